#include "cli/binary_check.h"

#include <algorithm>
#include <cstddef>

namespace corvelle::cli {

bool looksBinary(std::string_view bytes) {
    // Some editors and copy programs filled the last block of a text file with NULs.
    bytes = bytes.substr(0, bytes.find_last_not_of('\0') + 1).substr(0, std::size_t{1} << 16);
    const auto controls = std::count_if(bytes.begin(), bytes.end(), [](char c) {
        return static_cast<unsigned char>(c) < 32 && c != '\t' && c != '\n' && c != '\r' && c != '\f';
    });
    return controls >= 2 && static_cast<std::size_t>(controls) > bytes.size() / 20;
}

} // namespace corvelle::cli
