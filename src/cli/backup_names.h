#pragma once

#include "ide/component_type.h"

#include <map>
#include <string>
#include <string_view>

namespace corvelle::cli {

/// Gives each backup of one run a name of its own, in the order of asking.
class BackupNames {
  public:
    /// The dialog's default name; a second module of the same name (letter case aside) gets "_bak2", ...
    std::string next(std::string_view moduleName, ide::ComponentType type);

  private:
    std::map<std::string, unsigned> copies_; // by upper-case module name
};

} // namespace corvelle::cli
