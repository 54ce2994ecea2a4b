#pragma once

#include "cli/module_source.h"
#include "settings/editor_config.h"
#include "settings/files_on_disk.h"

#include <string>

namespace corvelle::cli {

/// The .editorconfig files on the disk, for the modules of one run.
class ModuleSettings {
  public:
    /// A module on standard input has the properties of a file named `stdinName` in the current folder, none
    /// if that is empty.
    explicit ModuleSettings(std::string stdinName) : stdinName_(std::move(stdinName)) {}

    /// The properties in force for the module. Throws SettingsError where a file that holds cannot be read.
    settings::Properties propertiesOf(const ModuleSource& source);

  private:
    std::string stdinName_;
    settings::EditorConfig files_{settings::readIfThere};
};

} // namespace corvelle::cli
