#include "cli/line_ends.h"

#include <algorithm>
#include <cstddef>

namespace corvelle::cli {

std::string withFileLineEnds(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r')) result += '\r';
        result += text[i];
    }
    return result;
}

std::string withTerminalLineEnds(std::string text) {
    std::replace(text.begin(), text.end(), '\r', '\n');
    return text;
}

} // namespace corvelle::cli
