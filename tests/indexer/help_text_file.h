#pragma once

#include <map>
#include <string>
#include <string_view>

namespace corvelle::test {

/// Reads a text pop-up file by the rules of the help compiler's format: each topic begins with a line of
/// ".topic", blanks and one name, the lines up to the next topic are its text, and every name stands once.
/// Gives the texts, lines joined by LF, by name. Throws std::runtime_error for what breaks the rules.
std::map<std::string, std::string> readHelpTexts(std::string_view bytes);

/// What a reader sees of them: the texts without blanks and empty lines at their ends, and only those that
/// hold anything.
std::map<std::string, std::string> shownHelpTexts(std::string_view bytes);

/// Reads a header file: "#define", a name and a decimal number on each line; names and numbers stand once.
std::map<std::string, int> readHelpMap(std::string_view bytes);

} // namespace corvelle::test
