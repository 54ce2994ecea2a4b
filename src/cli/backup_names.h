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
    std::string ending{}; ///< of a file that is no module: with its point

    std::string text() const;
};

/// Saves a copy of a file's bytes in the folder, which is made where there is none: under that name, or under
/// the next free one where another run has taken it. Nobody can read it who cannot read the file `like`.
/// Throws std::runtime_error, which names the copy.
void saveBackup(const std::filesystem::path& folder, BackupName name, std::string_view bytes,
                const std::filesystem::path& like);

/// Whether a module's name may become part of a file's name: one that would lead elsewhere may not.
bool isPlainName(std::string_view name);

/// Gives each backup of one run a name of its own, in the order of asking: what a folder holds already is
/// never one of them.
class BackupNames {
  public:
    explicit BackupNames(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /// The dialog's default name. Where the folder has it, or a module of the same name (letter case aside)
    /// has got it, the next free one of "_bak2", "_bak3", ...
    BackupName next(std::string_view module, ide::ComponentType type);
    /// The same for a file that is no module: its name and its ending.
    BackupName next(const std::filesystem::path& file);

  private:
    void findFree(BackupName& name);

    std::filesystem::path folder_;
    std::map<std::string, unsigned> copies_; // by upper-case module name
};

} // namespace corvelle::cli
