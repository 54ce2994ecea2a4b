#pragma once

#include "ide/component_type.h"

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace corvelle::cli {

/// The name of one backup: the dialog's default name for the module's first one.
struct BackupName {
    std::string module;
    ide::ComponentType type{};
    unsigned copy = 1;

    std::string text() const;
};

/// Gives each backup of one run a name of its own, in the order of asking: what a folder holds already is
/// never one of them.
class BackupNames {
  public:
    explicit BackupNames(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /// The dialog's default name. Where the folder has it, or a module of the same name (letter case aside)
    /// has got it, the next free one of "_bak2", "_bak3", ...
    BackupName next(std::string_view module, ide::ComponentType type);

  private:
    std::filesystem::path folder_;
    std::map<std::string, unsigned> copies_; // by upper-case module name
};

} // namespace corvelle::cli
