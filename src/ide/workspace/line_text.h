#pragma once

#include "base/text.h"

#include <string_view>

namespace corvelle::workspace {

/// A blank inside a line: a space or a tab.
constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

using base::isNameCharacter;

/// The text without the blanks before it.
std::string_view withoutLeadingBlanks(std::string_view text);

/// The text without the blanks at its ends.
std::string_view withoutBlanks(std::string_view text);

} // namespace corvelle::workspace
