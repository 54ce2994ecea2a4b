#include "ide/workspace/line_text.h"

#include "base/byte_search.h"

namespace corvelle::workspace {

std::string_view withoutLeadingBlanks(std::string_view text) {
    return text.substr(base::pastBlanks(text, 0));
}

std::string_view withoutBlanks(std::string_view text) {
    text = withoutLeadingBlanks(text);
    std::size_t size = text.size();
    while (size > 0 && isBlank(text[size - 1])) --size;
    return text.substr(0, size);
}

} // namespace corvelle::workspace
