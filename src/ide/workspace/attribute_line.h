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

/// The text without the blanks behind it.
std::string_view withoutTrailingBlanks(std::string_view text);

/// A line that the IDE hides: `Attribute Member.VB_Description = "text"`, `Attribute VB_Name = "Module1"`.
struct AttributeLine {
    bool found = false;
    std::string_view member; ///< the first of several parts of the name, without brackets; else empty
    std::string_view name;   ///< the last part, without brackets
    std::string_view value;  ///< what follows the equals sign, blanks included
};

/// Reads a line without its line end; `found` is false for a line that is shown.
AttributeLine readAttributeLine(std::string_view line);

/// Whether the line's first character behind blanks lets it be one that the IDE hides. Rules out nearly every
/// line at once.
inline bool mayBeAttributeLine(std::string_view line) {
    std::size_t blanks = 0;
    while (blanks < line.size() && isBlank(line[blanks])) ++blanks;
    return blanks < line.size() && (line[blanks] == 'A' || line[blanks] == 'a');
}

} // namespace corvelle::workspace
