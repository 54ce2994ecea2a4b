#pragma once

#include "base/text.h"

#include <string>
#include <string_view>

// The kinds of lines of a designer section.
namespace corvelle::workspace {

/// Whether the line begins with the word, which is not empty; then `rest` is what follows it and the blanks
/// after it.
inline bool takeWord(std::string_view line, std::string_view word, std::string_view& rest) {
    if (!line.empty() && base::isBlank(line[0])) line = base::withoutLeadingBlanks(line);
    if (line.empty() || base::lower(line[0]) != base::lower(word[0])) return false; // tells it mostly
    if (!base::startsWithIgnoringCase(line, word)) return false;
    line.remove_prefix(word.size());
    rest = base::withoutLeadingBlanks(line);
    return rest.empty() || rest.size() < line.size() || rest[0] == '=';
}

/// Whether the line begins a block; then `rest` is what follows the word. A property may be called Begin or
/// End: its line, with the equals sign, belongs to no block.
bool isBeginLine(std::string_view line, std::string_view& rest);

/// Whether the line ends a block.
bool isEndLine(std::string_view line);

/// Takes the next word, up to a blank, off the text; empty when there is none.
std::string_view nextWord(std::string_view& text);

/// The text of a literal as a file has it, quotes inside it doubled; empty if it is none.
std::string literalText(std::string_view value);

} // namespace corvelle::workspace
