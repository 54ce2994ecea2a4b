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

} // namespace corvelle::workspace
