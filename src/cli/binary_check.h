#pragma once

#include <string_view>

namespace corvelle::cli {

/// Whether the bytes are no text: in the first 64 KiB, NUL bytes at the very end aside, at least two and more
/// than one byte in twenty are control characters other than tab, line end and form feed.
bool looksBinary(std::string_view bytes);

} // namespace corvelle::cli
