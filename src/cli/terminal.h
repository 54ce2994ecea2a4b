#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvelle::cli {

/// Makes the standard streams fit for bytes and for files that must not come to harm. A stream that the
/// caller closed must not hand its number on to a module's file, which would then be given the messages; it
/// is opened so that its use fails. Where nothing more may be written the write fails, and the program goes
/// on to clean up.
void prepareStandardStreams();

/// From here on a reader of standard output or standard error that goes away does not end the program.
void outliveReaders();

/// Text that comes from a file, from a file's name or from an argument, as messages and lists show it: on one
/// line, in one column of a list, and without anything that a terminal obeys. Each byte of a control
/// character (the tab is one) becomes `\x` and two hexadecimal digits; everything else, a backslash too,
/// stays.
std::string shown(std::string_view text);

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
