#pragma once

#include "ide/component_type.h"

#include <string>
#include <string_view>

// The backup of a module's code before it is replaced.
namespace corvelle::formatter {

/// The default file name of a backup: the component's name, "_bak" and the extension of its type. `copy`
/// above 1 tells apart the backups of modules of one name: "_bak2", "_bak3", ...
std::string backupName(std::string_view componentName, ide::ComponentType type, unsigned copy = 1);

} // namespace corvelle::formatter
