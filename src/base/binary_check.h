#pragma once

#include <string_view>

namespace corvelle::base {

/// What the bytes are if they are no 8-bit text ("a binary file", "UTF-16 text", "nothing but NUL bytes");
/// empty for text. They are none if in their first 64 KiB, NUL bytes and line ends at the very end aside, at
/// least two and more than one byte in twenty are control characters other than tab, line end and form feed.
std::string_view whatInsteadOfText(std::string_view bytes);

} // namespace corvelle::base
