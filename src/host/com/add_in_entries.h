#pragma once

namespace corvelle::host {

/// Enters the add-ins in the lists that the IDE looks for add-ins in, the user's registry and vbaddin.ini.
/// What the user has chosen there already stays. Throws HresultError.
void enterAddIns();

/// Enters the help file and the exclusion list beside the DLL in the settings of the user who runs it, who
/// need not be the one who installed it. What is there stays, but for the path of such a file that has gone
/// with an older version. Throws HresultError.
void enterSettings();

/// Takes out what enterAddIns entered, and the settings that still name the files beside the DLL. Throws
/// HresultError.
void removeAddIns();

} // namespace corvelle::host
