#include "cli/binary_check.h"

#include <algorithm>
#include <cstddef>

namespace corvelle::cli {

std::string_view whatInsteadOfText(std::string_view bytes) {
    const std::string_view mark = bytes.substr(0, 2);
    // Some editors and copy programs filled the last block of a text file with NULs.
    bytes = bytes.substr(0, bytes.find_last_not_of('\0') + 1).substr(0, std::size_t{1} << 16);
    const auto controls = std::count_if(bytes.begin(), bytes.end(), [](char c) {
        return static_cast<unsigned char>(c) < 32 && c != '\t' && c != '\n' && c != '\r' && c != '\f';
    });
    if (controls < 2 || static_cast<std::size_t>(controls) <= bytes.size() / 20) return {};
    return mark == "\xFF\xFE" || mark == "\xFE\xFF" ? "UTF-16 text" : "a binary file";
}

} // namespace corvelle::cli
