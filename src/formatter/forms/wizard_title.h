#pragma once

#include "ide/required.h"
#include "ide/vbe.h"

#include <memory>
#include <string>

namespace corvelle::formatter {

/// The title of both pages: the product and a project's name.
inline std::string wizardTitle(const std::string& projectName) {
    return "Trellis [" + projectName + "]";
}

/// The name of the IDE's active project. Raises a run-time error where there is none.
inline std::string activeProjectName(const std::shared_ptr<ide::VBE>& ide) {
    return ide::required(ide::required(ide).ActiveVBProject()).Name();
}

} // namespace corvelle::formatter
