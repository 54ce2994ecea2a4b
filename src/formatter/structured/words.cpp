#include "formatter/structured/words.h"

#include <algorithm>

namespace corvelle::formatter::structured {
namespace {

constexpr std::size_t longestPacked = 8;

// Up to eight characters as one number, letters in lower case. A bit more makes a letter small and changes no
// other byte of a name into a letter.
constexpr std::uint64_t packed(std::string_view text) {
    std::uint64_t value = 0;
    for (const char c : text) value = value << 8 | static_cast<unsigned char>(c | 0x20);
    return value;
}

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

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

bool sameWord(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return lower(x) == lower(y); });
}

} // namespace

Word wordOf(std::string_view text) {
    if (text.size() < 2 || text.size() > longestPacked) return Word::Other;
    switch (packed(text)) {
    case packed("as"):
        return Word::As;
    case packed("case"):
        return Word::Case;
    case packed("const"):
        return Word::Const;
    case packed("dim"):
        return Word::Dim;
    case packed("do"):
        return Word::Do;
    case packed("else"):
        return Word::Else;
    case packed("elseif"):
        return Word::ElseIf;
    case packed("end"):
        return Word::End;
    case packed("endif"):
        return Word::EndIf;
    case packed("enum"):
        return Word::Enum;
    case packed("for"):
        return Word::For;
    case packed("function"):
        return Word::Function;
    case packed("get"):
        return Word::Get;
    case packed("if"):
        return Word::If;
    case packed("let"):
        return Word::Let;
    case packed("loop"):
        return Word::Loop;
    case packed("public"):
    case packed("private"):
    case packed("friend"):
    case packed("global"):
    case packed("static"):
        return Word::Modifier;
    case packed("next"):
        return Word::Next;
    case packed("on"):
        return Word::On;
    case packed("property"):
        return Word::Property;
    case packed("rem"):
        return Word::Rem;
    case packed("select"):
        return Word::Select;
    case packed("set"):
        return Word::Set;
    case packed("sub"):
        return Word::Sub;
    case packed("then"):
        return Word::Then;
    case packed("type"):
        return Word::Type;
    case packed("wend"):
        return Word::Wend;
    case packed("while"):
        return Word::While;
    case packed("with"):
        return Word::With;
    default:
        return Word::Other;
    }
}

bool isReserved(std::string_view text) {
    return std::any_of(reservedWords.begin(), reservedWords.end(),
                       [&](std::string_view word) { return sameWord(word, text); });
}

} // namespace corvelle::formatter::structured
