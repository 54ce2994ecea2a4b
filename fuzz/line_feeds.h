#pragma once

#include <string>

/// The text with each of its line ends, be it CR LF, CR or LF, as LF.
inline std::string withLineFeeds(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (!pair) result += text[i] == '\r' ? '\n' : text[i];
    }
    return result;
}
