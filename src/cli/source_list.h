#pragma once

#include "cli/module_settings.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

namespace corvelle::cli {

/// Files as the system names them: absolute, links resolved.
using RealPaths = std::unordered_set<std::filesystem::path::string_type>;

/// What the paths of a command line stand for: module files, projects (all their modules), project groups
/// (all their projects), directories (every module file below) and "-" (standard input, named `stdinName` or
/// "<stdin>"). In the order of the arguments, then of the project's lines, then of names; a file that is
/// reached twice stands at its first place only. What cannot be found or read is a problem in its place; a
/// directory, project or group that holds nothing is a note in its place.
///
/// What a project names is a module wherever it stands, if it has a module's ending and, where it is a link,
/// leads to a file that has one. Below a directory nothing is a module that a link gets from outside. Paths
/// on the network and of devices that a project names are not looked at. All of these stand in the list as
/// skipped.
struct SourceList {
    std::vector<ModuleSource> sources;
    RealPaths realPaths; ///< of the modules' files and the projects

    std::size_t moduleCount() const;
};

/// Looks the paths up; reads the projects and groups among them, but no module. The folder `backupDir` is not
/// looked into where it stands below a directory: what is in it is to stay as it is.
SourceList listSources(const std::vector<std::string>& paths, const std::string& stdinName,
                       const std::optional<std::string>& backupDir = std::nullopt);

} // namespace corvelle::cli
