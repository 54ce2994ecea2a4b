#pragma once

#include "formatter/structured/structured.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvelle::formatter::structured::test {

inline std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto end = text.find('\n');
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

/// The text as the layout leaves it, each line with a line feed.
inline std::string once(std::string_view text, const StructuredOptions& options) {
    const auto lines = linesOf(text);
    const auto result = formatStructured(lines, options);
    std::string out;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (result.lines[i].dropped()) continue;
        result.lines[i].appendTo(out, lines[i], result.style);
        out += '\n';
    }
    return out;
}

/// The same, and "a second run changes it" with that run's text if it does.
inline std::string layOut(std::string_view text, const StructuredOptions& options = {}) {
    std::string first = once(text, options);
    std::string second = once(first, options);
    return first == second ? first : "a second run changes it:\n" + second;
}

/// The faults, each as its 1-based line, a colon and its text.
inline std::vector<std::string> faultsOf(std::string_view text) {
    std::vector<std::string> texts;
    for (const Fault& fault : formatStructured(linesOf(text), {}).faults) {
        texts.push_back(std::to_string(fault.line + 1) + ": " + fault.text(fault.other + 1));
    }
    return texts;
}

} // namespace corvelle::formatter::structured::test
