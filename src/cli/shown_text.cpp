#include "cli/shown_text.h"

#include <cstddef>

namespace corvelle::cli {

namespace {

// Of a UTF-8 terminal a second set of control characters has two bytes, the first of them C2. Windows shows
// text in a code page, where C2 is a letter.
#ifdef _WIN32
constexpr bool terminalTakesUtf8 = false;
#else
constexpr bool terminalTakesUtf8 = true;
#endif

// How many bytes from there on are one control character; 0 for other text.
std::size_t controlAt(std::string_view text, std::size_t at) {
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    if (byte(at) < 32 || byte(at) == 127) return 1;
    const bool second = terminalTakesUtf8 && byte(at) == 0xC2 && at + 1 < text.size() &&
                        byte(at + 1) >= 0x80 && byte(at + 1) < 0xA0;
    return second ? 2 : 0;
}

void appendEscaped(std::string& to, char c) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    to.append("\\x").append(1, digits[byte >> 4]).append(1, digits[byte & 15]);
}

} // namespace

std::string shown(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        std::size_t control = controlAt(text, at);
        if (control == 0) result += text[at++];
        for (; control > 0; --control) appendEscaped(result, text[at++]);
    }
    return result;
}

} // namespace corvelle::cli
