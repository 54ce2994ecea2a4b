#pragma once

#include <string>
#include <vector>

namespace corvelle::workbench {

/// What the program was started with: `[/addin:PROGID]... [FILE]`.
struct CommandLine {
    CommandLine(int argc, const char* const* argv);

    std::string file;                ///< the project, group or module to open; empty for none
    std::vector<std::string> addIns; ///< to be loaded besides those that the user has chosen
};

} // namespace corvelle::workbench
