#pragma once

#include "cli/module_source.h"

#include <cstddef>
#include <filesystem>
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
struct SourceList {
    std::vector<ModuleSource> sources;
    RealPaths realPaths; ///< of the modules' files and the projects

    std::size_t moduleCount() const;
};

/// Looks the paths up; reads the projects and groups among them, but no module.
SourceList listSources(const std::vector<std::string>& paths, const std::string& stdinName);

} // namespace corvelle::cli
