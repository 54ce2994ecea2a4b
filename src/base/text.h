#pragma once

#include <cstddef>
#include <cstdint>
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

/// A blank inside a line: a space or a tab.
constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

/// The text without the blanks before it.
std::string_view withoutLeadingBlanks(std::string_view text);

/// The text without the blanks at its ends.
std::string_view withoutBlanks(std::string_view text);

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

/// How many bytes of the text satisfy the predicate, which should be free of branches: blocks of one size and
/// a count that fits a byte then let the compiler look at many bytes at once.
template <class Predicate>
std::size_t countBytes(std::string_view text, Predicate isOne) {
    constexpr std::size_t block = 128;
    std::size_t count = 0;
    for (; text.size() >= block; text.remove_prefix(block)) {
        std::uint8_t inBlock = 0;
        for (std::size_t i = 0; i < block; ++i) inBlock += isOne(text[i]) ? 1 : 0;
        count += inBlock;
    }
    for (const char c : text) count += isOne(c) ? 1 : 0;
    return count;
}

/// What the bytes are if they are no 8-bit text ("a binary file", "UTF-16 text", "nothing but NUL bytes");
/// empty for text. They are none if in their first 64 KiB, NUL bytes and line ends at the very end aside, at
/// least two and more than one byte in twenty are control characters other than tab, line end and form feed.
std::string_view whatInsteadOfText(std::string_view bytes);

} // namespace corvelle::base
