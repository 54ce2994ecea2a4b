#pragma once

namespace corvelle::cli {

/// The whole program: reads the arguments, runs the command; the exit status.
int runCommandLine(int argc, const char* const* argv);

} // namespace corvelle::cli
