#pragma once

#include "base/text.h"

#include <string_view>

namespace corvelle::workspace {

/// A blank inside a line: a space or a tab.
constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

/// Whether the character may stand in a name: a letter (any byte above 127 is one), a digit or an underscore.
constexpr bool isNameCharacter(char c) {
    const char letter = base::lower(c);
    return (letter >= 'a' && letter <= 'z') || (c >= '0' && c <= '9') || c == '_' ||
           static_cast<unsigned char>(c) > 127;
}

/// The text without the blanks before it.
std::string_view withoutLeadingBlanks(std::string_view text);

/// The text without the blanks at its ends.
std::string_view withoutBlanks(std::string_view text);

} // namespace corvelle::workspace
