#include "ide/workspace/attribute_line.h"

namespace corvelle::workspace {

namespace {

// Takes the next part of a dotted name off the text; empty when there is none.
std::string_view takeNamePart(std::string_view& text) {
    std::string_view part;
    if (!text.empty() && text[0] == '[') {
        const auto close = text.find(']');
        if (close == std::string_view::npos) return {};
        part = text.substr(1, close - 1);
        text.remove_prefix(close + 1);
    } else {
        const auto size = base::nameLength(text);
        part = text.substr(0, size);
        text.remove_prefix(size);
    }
    return part;
}

} // namespace

AttributeLine readAttributeLine(std::string_view line) {
    constexpr std::string_view word = "Attribute";
    std::string_view rest = withoutLeadingBlanks(line);
    if (!base::startsWithIgnoringCase(rest, word)) return {};
    rest.remove_prefix(word.size());
    if (rest.empty() || !isBlank(rest[0])) return {};
    rest = withoutLeadingBlanks(rest);

    AttributeLine result;
    result.name = takeNamePart(rest);
    while (!result.name.empty() && !rest.empty() && rest[0] == '.') {
        if (result.member.empty()) result.member = result.name;
        rest.remove_prefix(1);
        result.name = takeNamePart(rest);
    }
    if (!base::startsWithIgnoringCase(result.name, "VB_")) return {};
    rest = withoutLeadingBlanks(rest);
    if (rest.empty() || rest[0] != '=') return {};
    result.value = rest.substr(1);
    result.found = true;
    return result;
}

} // namespace corvelle::workspace
