#pragma once

#include <cstddef>

namespace corvelle::cli {

/// A line "[3/120]" at the bottom of standard error while several modules are worked on; nothing where
/// standard error is not a terminal.
class Progress {
  public:
    Progress(std::size_t total, bool quiet);
    ~Progress() { clear(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Takes the line away, before something else is printed.
    void clear();
    /// One more is done: shows the line.
    void step();

  private:
    std::size_t total_;
    std::size_t done_ = 0;
    bool active_;
    std::size_t shown_ = 0; // characters of the line that stands there
};

} // namespace corvelle::cli
