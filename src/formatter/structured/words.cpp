#include "formatter/structured/words.h"

#include "base/packed_text.h"

#include <algorithm>

namespace corvelle::formatter::structured {
namespace {

struct KnownWord {
    std::string_view text;
    Word word;
};

constexpr std::array<KnownWord, 33> knownWords{{
    {"as", Word::As},
    {"case", Word::Case},
    {"const", Word::Const},
    {"dim", Word::Dim},
    {"do", Word::Do},
    {"else", Word::Else},
    {"elseif", Word::ElseIf},
    {"end", Word::End},
    {"endif", Word::EndIf},
    {"enum", Word::Enum},
    {"for", Word::For},
    {"friend", Word::Modifier},
    {"function", Word::Function},
    {"get", Word::Get},
    {"global", Word::Modifier},
    {"if", Word::If},
    {"let", Word::Let},
    {"loop", Word::Loop},
    {"next", Word::Next},
    {"on", Word::On},
    {"private", Word::Modifier},
    {"property", Word::Property},
    {"public", Word::Modifier},
    {"rem", Word::Rem},
    {"select", Word::Select},
    {"set", Word::Set},
    {"static", Word::Modifier},
    {"sub", Word::Sub},
    {"then", Word::Then},
    {"type", Word::Type},
    {"wend", Word::Wend},
    {"while", Word::While},
    {"with", Word::With},
}};

constexpr std::size_t shortestWord = 2, longestWord = base::mostPacked;

// The known words where their numbers, multiplied, lead to: each has a place of its own, so that one
// comparison tells a word. The factor was found by trying; another list of words may need another one.
class PackedWords {
  public:
    constexpr PackedWords() {
        for (const KnownWord& known : knownWords) {
            Place& place = places_[placeOf(base::packed(known.text))];
            distinct_ = distinct_ && place.value == 0;
            place = {base::packed(known.text), known.word};
        }
    }
    constexpr bool distinct() const { return distinct_; }
    constexpr Word find(std::uint64_t value) const {
        const Place& place = places_[placeOf(value)];
        return place.value == value ? place.word : Word::Other;
    }

  private:
    struct Place {
        std::uint64_t value = 0;
        Word word = Word::Other;
    };
    static constexpr std::size_t placeOf(std::uint64_t value) {
        return static_cast<std::size_t>((value * 0xC5867BB3D20113F9U) >> 58);
    }

    std::array<Place, 64> places_{};
    bool distinct_ = true;
};

constexpr PackedWords packedWords;
static_assert(packedWords.distinct());

constexpr std::array<std::string_view, 142> reservedWords{
    "Abs",        "AddressOf", "And",     "Any",        "Array",      "As",         "Attribute", "Boolean",
    "ByRef",      "Byte",      "ByVal",   "Call",       "Case",       "CBool",      "CByte",     "CCur",
    "CDate",      "CDbl",      "CDec",    "CDecl",      "CInt",       "Circle",     "CLng",      "Close",
    "Const",      "CSng",      "CStr",    "Currency",   "CVar",       "CVErr",      "Date",      "Debug",
    "Decimal",    "Declare",   "DefBool", "DefByte",    "DefCur",     "DefDate",    "DefDbl",    "DefDec",
    "DefInt",     "DefLng",    "DefObj",  "DefSng",     "DefStr",     "DefVar",     "Dim",       "Do",
    "DoEvents",   "Double",    "Each",    "Else",       "ElseIf",     "Empty",      "End",       "EndIf",
    "Enum",       "Eqv",       "Erase",   "Event",      "Exit",       "False",      "Fix",       "For",
    "Friend",     "Function",  "Get",     "Global",     "GoSub",      "GoTo",       "If",        "Imp",
    "Implements", "In",        "Input",   "InputB",     "Int",        "Integer",    "Is",        "LBound",
    "Len",        "LenB",      "Let",     "Like",       "Local",      "Lock",       "Long",      "Loop",
    "LSet",       "Me",        "Mod",     "New",        "Next",       "Not",        "Nothing",   "Null",
    "On",         "Open",      "Option",  "Optional",   "Or",         "ParamArray", "Preserve",  "Print",
    "Private",    "PSet",      "Public",  "Put",        "RaiseEvent", "ReDim",      "Rem",       "Resume",
    "Return",     "RSet",      "Scale",   "Seek",       "Select",     "Set",        "Sgn",       "Shared",
    "Single",     "Spc",       "Static",  "Stop",       "String",     "Sub",        "Tab",       "Then",
    "To",         "True",      "Type",    "TypeOf",     "UBound",     "Unlock",     "Until",     "Variant",
    "Wend",       "While",     "With",    "WithEvents", "Write",      "Xor",
};

// The first two letters of the known words, a set of the second ones for each first one.
constexpr auto wordBeginnings = [] {
    std::array<std::uint32_t, 32> seconds{};
    for (const KnownWord& known : knownWords) seconds[known.text[0] & 31] |= 1U << (known.text[1] & 31);
    return seconds;
}();

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

bool sameWord(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return lower(x) == lower(y); });
}

} // namespace

Word wordIn(std::string_view line, std::size_t begin, std::size_t length) {
    if (length < shortestWord || length > longestWord) return Word::Other;
    const std::uint64_t value = base::packedAt(line, begin, length);
    return packedWords.find(value | (base::smallLetters & base::packedBits(length)));
}

Word wordOf(std::string_view text) {
    return wordIn(text, 0, text.size());
}

bool mayBeginWord(char first, char second) {
    return (wordBeginnings[first & 31] >> (second & 31) & 1) != 0;
}

bool isReserved(std::string_view text) {
    return std::any_of(reservedWords.begin(), reservedWords.end(),
                       [&](std::string_view word) { return sameWord(word, text); });
}

} // namespace corvelle::formatter::structured
