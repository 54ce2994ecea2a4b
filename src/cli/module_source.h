#pragma once

#include "ide/component_type.h"

#include <filesystem>
#include <string>

namespace corvelle::cli {

/// A module that the command line was asked to work on, or a path of which nothing can be made.
struct ModuleSource {
    std::string shownPath{};      ///< how messages name it
    std::filesystem::path path{}; ///< the file; empty for standard input
    ide::ComponentType type{};    ///< zero: unknown (standard input), or a problem
    std::string projectName{};    ///< the name in the project's line, if any
    std::string problem{};        ///< why the path cannot be worked on; empty for a module

    bool isStandardInput() const { return path.empty() && problem.empty(); }
};

} // namespace corvelle::cli
