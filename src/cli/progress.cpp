#include "cli/progress.h"

#include <iostream>

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
    if (shown_) std::cerr << "\r\x1b[K" << std::flush;
    shown_ = false;
}

void Progress::step() {
    ++done_;
    if (!active_ || done_ == total_) return;
    std::cerr << '[' << done_ << '/' << total_ << ']' << std::flush;
    shown_ = true;
}

} // namespace corvelle::cli
