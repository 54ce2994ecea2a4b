#include "base/text.h"

#include <algorithm>

namespace corvelle::base {

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
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

} // namespace corvelle::base
