#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// 8-bit text. Letter case is folded for the ASCII letters only, whatever the code page; trimming removes
// the character 32 only.
namespace corvelle::base {

/// The lower-case form of an ASCII letter; every other byte as it is.
constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

/// The upper-case form of an ASCII letter; every other byte as it is.
constexpr char upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

/// Whether the character may stand in a name of the language: a letter (any byte above 127 is one), a digit
/// or an underscore.
constexpr bool isNameCharacter(char c) {
    const char letter = lower(c);
    return (letter >= 'a' && letter <= 'z') || (c >= '0' && c <= '9') || c == '_' ||
           static_cast<unsigned char>(c) > 127;
}

/// How many characters of a name the text starts with.
constexpr std::size_t nameLength(std::string_view text) {
    std::size_t length = 0;
    while (length < text.size() && isNameCharacter(text[length])) ++length;
    return length;
}

/// Every ASCII letter of the text in upper case.
std::string upper(std::string_view text);

/// Whether the texts are equal but for letter case.
bool equalIgnoringCase(std::string_view a, std::string_view b);

/// Whether the text begins with the prefix, letter case aside.
bool startsWithIgnoringCase(std::string_view text, std::string_view prefix);

/// Position of the first occurrence, letter case aside; npos if there is none.
std::size_t findIgnoringCase(std::string_view text, std::string_view wanted);

/// Position of the last occurrence, letter case aside; npos if there is none.
std::size_t findLastIgnoringCase(std::string_view text, std::string_view wanted);

/// The text without its leading and trailing spaces.
std::string_view trimSpaces(std::string_view text);

} // namespace corvelle::base
