#pragma once

#include <array>
#include <cstdint>
#include <string_view>

// The formatter's whole knowledge of Visual Basic block syntax. The indices are part of the rules: the first
// matching entry in index order wins, and the engine treats some entries specially by index.
namespace corvelle::formatter {

/// A line that starts with one of these, followed by a space or the line's end, opens a block.
inline constexpr std::array<std::string_view, 28> StartKeys{
    "Sub",              // 0
    "Function",         // 1
    "Property",         // 2
    "Private Sub",      // 3
    "Private Function", // 4
    "Property",         // 5: a second "Property"; private property procedures open no block, on purpose
    "Public Sub",       // 6
    "Public Function",  // 7
    "Public Property",  // 8
    "Friend Sub",       // 9
    "Friend Function",  // 10
    "Friend Property",  // 11
    "For",              // 12
    "Do",               // 13
    "While",            // 14
    "Select",           // 15: counts an open Select
    "Case",             // 16: the first Case of a Select indents, later ones step back first
    "With",             // 17
    "Do While",         // 18: never reached, 13 matches first
    "Begin",            // 19: counts an open Begin block
    "BeginProperty",    // 20
    "Enum",             // 21
    "Private Enum",     // 22
    "Public Enum",      // 23
    "Type",             // 24
    "Private Type",     // 25
    "Public Type",      // 26
    " Then",            // 27: never searched; recorded for a block If
};

/// A line that starts with one of these, followed by a space or the line's end, closes a block.
inline constexpr std::array<std::string_view, 13> EndKeys{
    "End Sub",      // 0
    "End Function", // 1
    "End Property", // 2
    "Else",         // 3: reopens one level after the line is written
    "Next",         // 4
    "Loop",         // 5
    "Wend",         // 6
    "End IF",       // 7
    "End Select",   // 8: also closes the level of the Cases
    "End With",     // 9
    "EndProperty",  // 10
    "End",          // 11: three characters alone are a statement or the end of a Begin block
    "ElseIF",       // 12: reopens one level if the line is a block If
};

/// Characters that tell an expression from the single plain word of a declaration.
inline constexpr std::array<char, 10> OpChars{' ', '+', '-', '/', '\\', '*', '&', '=', '(', ')'};

/// The last start key that CheckKey searches, and the last end key.
inline constexpr std::int16_t lastStartKey = 26;
inline constexpr std::int16_t lastEndKey = 12;

/// Start keys that count only before a single plain word (Check_Enum_Type).
inline constexpr std::int16_t firstWordKey = 18;
inline constexpr std::int16_t lastWordKey = 23;

/// Indices that the engine treats specially.
namespace start_key {
inline constexpr std::int16_t select = 15;
inline constexpr std::int16_t caseLabel = 16;
inline constexpr std::int16_t begin = 19;
inline constexpr std::int16_t blockIf = 27;
} // namespace start_key
namespace end_key {
inline constexpr std::int16_t elseLine = 3;
inline constexpr std::int16_t endSelect = 8;
inline constexpr std::int16_t end = 11;
inline constexpr std::int16_t elseIf = 12;
} // namespace end_key

} // namespace corvelle::formatter
