#pragma once

#include <string_view>
#include <vector>

// A module's lines, as the structured layout takes them.
using Texts = std::vector<std::string_view>;

/// The text's lines, which end in LF; what stands behind the last one is a line too.
inline Texts linesOf(std::string_view text) {
    Texts lines;
    for (;;) {
        const auto end = text.find('\n');
        lines.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return lines;
        text.remove_prefix(end + 1);
    }
}
