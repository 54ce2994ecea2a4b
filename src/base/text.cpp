#include "base/text.h"

#include "base/byte_search.h"

#include <algorithm>
#include <cstddef>

namespace corvelle::base {

std::string_view withoutLeadingBlanks(std::string_view text) {
    return text.substr(pastBlanks(text, 0));
}

std::string_view withoutBlanks(std::string_view text) {
    text = withoutLeadingBlanks(text);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

std::string upper(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), [](char c) { return upper(c); });
    return result;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && startsWithIgnoringCase(a, b);
}

bool startsWithIgnoringCase(std::string_view text, std::string_view prefix) {
    if (text.size() < prefix.size()) return false;
    for (std::size_t i = 0; i < prefix.size(); ++i) {
        if (lower(text[i]) != lower(prefix[i])) return false;
    }
    return true;
}

std::size_t findIgnoringCase(std::string_view text, std::string_view wanted) {
    if (wanted.empty()) return 0;
    const char first = lower(wanted[0]); // most places are ruled out by it
    for (std::size_t at = 0; at + wanted.size() <= text.size(); ++at) {
        if (lower(text[at]) == first && startsWithIgnoringCase(text.substr(at), wanted)) return at;
    }
    return std::string_view::npos;
}

std::size_t findLastIgnoringCase(std::string_view text, std::string_view wanted) {
    if (text.size() < wanted.size()) return std::string_view::npos;
    for (std::size_t at = text.size() - wanted.size() + 1; at-- > 0;) {
        if (startsWithIgnoringCase(text.substr(at), wanted)) return at;
    }
    return std::string_view::npos;
}

std::string_view trimSpaces(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

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
