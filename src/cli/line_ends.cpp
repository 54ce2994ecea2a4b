#include "cli/line_ends.h"

#include "indexer/text_lines.h"

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

bool isSameButLineEnds(std::string_view old, std::string_view fresh) {
    if (old == fresh) return true;
    indexer::TextLines oldLines(old), freshLines(fresh);
    while (oldLines.next()) {
        if (!freshLines.next() || oldLines.line() != freshLines.line()) return false;
    }
    return !freshLines.next();
}

} // namespace corvelle::cli
