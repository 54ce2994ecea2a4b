#pragma once

#include "base/byte_search.h"

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

/// The meaning of the word of that length that begins at that position of the line. Faster than taking the
/// word out of it.
Word wordIn(std::string_view line, std::size_t begin, std::size_t length);

/// Whether a known word may begin with the two bytes; false for most names' first ones.
bool mayBeginWord(char first, char second);

/// Whether the word is reserved, so that with a colon behind it at a line's beginning it is no label.
bool isReserved(std::string_view text);

/// What a name is made of: letters, digits, the underscore, bytes above 127.
using Letters = base::NameBytes;
/// What can end a statement or hide its end.
using Specials = base::AnyOf<'"', '\'', ':', '#', '['>;

using base::isBlank;

/// Whether a name may hold the byte.
inline bool isLetter(char c) {
    static constexpr auto letters = [] {
        std::array<bool, 256> table{};
        for (std::size_t c = 0; c < table.size(); ++c) table[c] = Letters::has(static_cast<char>(c));
        return table;
    }();
    return letters[static_cast<unsigned char>(c)];
}
inline bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

using base::pastBlanks;

/// The position of the first byte from `at`, which is not beyond the end, that no name holds.
inline std::size_t pastLetters(std::string_view text, std::size_t at) {
    return base::skipKind<Letters>(text, at);
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
