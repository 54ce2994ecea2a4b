#pragma once

#include <string>
#include <string_view>

namespace corvelle::cli {

/// Text that comes from a file, from a file's name or from an argument, as messages and lists show it: on one
/// line, in one column of a list, and without anything that a terminal obeys. Each byte of a control
/// character (the tab is one) becomes `\x` and two hexadecimal digits; everything else, a backslash too,
/// stays.
std::string shown(std::string_view text);

} // namespace corvelle::cli
