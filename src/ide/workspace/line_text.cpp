#include "ide/workspace/line_text.h"

namespace corvelle::workspace {

std::string_view withoutLeadingBlanks(std::string_view text) {
    std::size_t blanks = 0;
    while (blanks < text.size() && isBlank(text[blanks])) ++blanks;
    return text.substr(blanks);
}

std::string_view withoutBlanks(std::string_view text) {
    text = withoutLeadingBlanks(text);
    std::size_t size = text.size();
    while (size > 0 && isBlank(text[size - 1])) --size;
    return text.substr(0, size);
}

} // namespace corvelle::workspace
