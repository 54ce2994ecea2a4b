#include "cli/progress.h"

#include <iostream>
#include <string>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace corvelle::cli {

namespace {

bool isTerminal() {
#ifdef _WIN32
    return _isatty(2) != 0;
#else
    return isatty(2) != 0;
#endif
}

} // namespace

Progress::Progress(std::size_t total, bool quiet)
    : total_(total), active_(total > 1 && !quiet && isTerminal()) {}

void Progress::clear() {
    // Blanks and no terminal sequence: not every console takes those.
    if (shown_ > 0) std::cerr << '\r' << std::string(shown_, ' ') << '\r' << std::flush;
    shown_ = 0;
}

void Progress::step() {
    ++done_;
    if (!active_ || done_ == total_) return;
    const std::string line = "[" + std::to_string(done_) + "/" + std::to_string(total_) + "]";
    std::cerr << line << std::flush;
    shown_ = line.size();
}

} // namespace corvelle::cli
