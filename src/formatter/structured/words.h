#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

// The words of the language that the structured layout knows, and the bytes they are made of. Words are
// compared without regard to the case of ASCII letters; bytes above 127 are letters, and only the characters
// 32 and 9 are blanks.
namespace corvelle::formatter::structured {

enum class Word : std::uint8_t {
    Other, ///< any other word: a name
    As,
    Case,
    Const,
    Dim,
    Do,
    Else,
    ElseIf,
    End,
    EndIf, ///< in one word
    Enum,
    For,
    Function,
    Get,
    If,
    Let,
    Loop,
    Modifier, ///< Public, Private, Friend, Global, Static
    Next,
    On,
    Property,
    Rem,
    Select,
    Set,
    Sub,
    Then,
    Type,
    Wend,
    While,
    With,
};

/// The word's meaning.
Word wordOf(std::string_view text);

/// Whether the word is reserved, so that with a colon behind it at a line's beginning it is no label.
bool isReserved(std::string_view text);

namespace detail {

enum ByteClass : std::uint8_t {
    blank = 1,
    letter = 2,  ///< letters, digits, the underscore, bytes above 127: what a name is made of
    special = 4, ///< what can end a statement or hide its end
    digit = 8,
};

constexpr std::array<std::uint8_t, 256> makeByteClasses() {
    std::array<std::uint8_t, 256> classes{};
    for (std::size_t c = 128; c < 256; ++c) classes[c] = letter;
    for (std::size_t c = 'a'; c <= 'z'; ++c) classes[c] = letter;
    for (std::size_t c = 'A'; c <= 'Z'; ++c) classes[c] = letter;
    for (std::size_t c = '0'; c <= '9'; ++c) classes[c] = letter | digit;
    classes['_'] = letter;
    classes[' '] = classes['\t'] = blank;
    for (const unsigned char c : {'"', '\'', ':', '#', '['}) classes[c] = special;
    return classes;
}

inline constexpr auto byteClasses = makeByteClasses();

inline bool is(char c, std::uint8_t classes) {
    return (byteClasses[static_cast<unsigned char>(c)] & classes) != 0;
}

} // namespace detail

/// Whether the byte is a space or a tab.
inline bool isBlank(char c) {
    return detail::is(c, detail::blank);
}
/// Whether a name may hold the byte.
inline bool isLetter(char c) {
    return detail::is(c, detail::letter);
}
inline bool isDigit(char c) {
    return detail::is(c, detail::digit);
}
inline bool isSpecial(char c) {
    return detail::is(c, detail::special);
}

/// The position of the first byte from `at` that is no blank; the text's length if there is none.
inline std::size_t pastBlanks(std::string_view text, std::size_t at) {
    while (at < text.size() && isBlank(text[at])) ++at;
    return at;
}

/// The text's length without the blanks at its end.
inline std::size_t lengthWithoutBlanks(std::string_view text) {
    std::size_t end = text.size();
    while (end > 0 && isBlank(text[end - 1])) --end;
    return end;
}

/// Whether the text, its blanks at the end apart, ends in the mark that joins the next line.
inline bool endsInJoin(std::string_view text) {
    const std::size_t end = lengthWithoutBlanks(text);
    return end > 0 && text[end - 1] == '_' && (end == 1 || isBlank(text[end - 2]));
}

} // namespace corvelle::formatter::structured
