#include "base/binary_check.h"

#include "base/count_bytes.h"

#include <cstddef>

namespace corvelle::base {

namespace {

bool isControl(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (byte < 32) & (byte != '\t') & (byte != '\n') & (byte != '\r') & (byte != '\f');
}

} // namespace

std::string_view whatInsteadOfText(std::string_view bytes) {
    const std::string_view mark = bytes.substr(0, 2);
    // Some editors and copy programs filled the last block of a text file with NULs. Formatted, they are the
    // last line.
    constexpr std::string_view fill("\0\r\n ", 4);
    const auto end = bytes.find_last_not_of(fill) + 1; // npos + 1 is 0
    if (end == 0 && bytes.find('\0') != std::string_view::npos) return "nothing but NUL bytes";
    bytes = bytes.substr(0, end).substr(0, std::size_t{1} << 16);
    const auto controls = countBytes(bytes, isControl);
    if (controls < 2 || controls <= bytes.size() / 20) return {};
    return mark == "\xFF\xFE" || mark == "\xFE\xFF" ? "UTF-16 text" : "a binary file";
}

} // namespace corvelle::base
