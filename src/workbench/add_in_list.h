#pragma once

#include <string>
#include <vector>

namespace corvelle::workbench {

/// An add-in as the machine lists it.
struct ListedAddIn {
    std::string progId;
    std::string name;        ///< what the user reads; the ProgID where the list has no other
    std::string description; ///< may be empty
    bool onStartup = false;
};

/// The add-ins that are listed for the IDE: under `Software\Microsoft\Visual Basic\6.0\Addins` of the user
/// and of the machine, and in section [Add-Ins32] of vbaddin.ini; and our own where they are registered
/// classes. Each once, in the order of their names.
std::vector<ListedAddIn> listAddIns();

/// Keeps for the next start whether the add-in is to be loaded then, where it is listed; for an add-in that
/// is not listed, or only for the whole machine, in the user's part. Throws base::RunTimeError 75.
void setOnStartup(const std::string& progId, bool onStartup);

} // namespace corvelle::workbench
