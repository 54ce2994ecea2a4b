#pragma once

#include "ide/component_type.h"
#include "settings/editor_config.h"

#include <filesystem>
#include <string>

namespace corvelle::cli {

/// What the command line found to do: a module to work on or, in its place, something to tell about a path.
struct ModuleSource {
    std::string shownPath{};      ///< how messages name it
    std::filesystem::path path{}; ///< the file; empty for standard input
    ide::ComponentType type{};    ///< zero: unknown (standard input)
    std::string projectName{};    ///< the name in the project's line, if any
    std::string problem{};        ///< why the path cannot be worked on
    std::string skipped{};        ///< why what a project or a folder leads to is left alone
    std::string note{};           ///< what is worth telling of the path, no failure

    bool isModule() const { return problem.empty() && skipped.empty() && note.empty(); }
    bool isStandardInput() const { return isModule() && path.empty(); }
};

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
