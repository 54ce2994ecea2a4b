#include "ide/workspace/designer_lines.h"

#include "base/text.h"

namespace corvelle::workspace {

bool isBeginLine(std::string_view line, std::string_view& rest) {
    return takeWord(line, "Begin", rest) && (rest.empty() || rest[0] != '=');
}

bool isEndLine(std::string_view line) {
    std::string_view rest;
    return takeWord(line, "End", rest) && rest.empty();
}

std::string_view nextWord(std::string_view& text) {
    text = base::withoutLeadingBlanks(text);
    std::size_t size = 0;
    while (size < text.size() && !base::isBlank(text[size])) ++size;
    const auto word = text.substr(0, size);
    text.remove_prefix(size);
    return word;
}

std::string literalText(std::string_view value) {
    std::string result;
    if (value.empty() || value[0] != '"') return result;
    for (std::size_t i = 1; i < value.size(); ++i) {
        if (value[i] == '"' && (++i == value.size() || value[i] != '"')) break;
        result += value[i];
    }
    return result;
}

} // namespace corvelle::workspace
