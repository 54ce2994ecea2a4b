#include "base/text.h"
#include "formatter/reference_comparison.h"
#include "formatter/reference_engine.h"
#include "formatter/run_engine.h"

#include <array>
#include <gtest/gtest.h>
#include <random>
#include <string>

// The scanner and the engine against the reference, which does the same slowly and literally, over lines made
// at random from pieces of Visual Basic.
namespace corvelle::formatter {
namespace {

using test::Lines;

class RandomLines {
  public:
    explicit RandomLines(unsigned seed) : random_(seed) {}

    unsigned below(unsigned bound) { return static_cast<unsigned>(random_() % bound); }

    // Up to twelve pieces; now and then letters change their case.
    std::string anyLine() {
        std::string line;
        for (unsigned pieces = below(13); pieces > 0; --pieces) line += piece();
        if (below(4) == 0) {
            for (char& c : line) {
                if (below(3) == 0) c = below(2) == 0 ? base::upper(c) : base::lower(c);
            }
        }
        return line;
    }

    // A line that a block rule knows, most of the time, with blanks and a comment around it.
    std::string blockLine() {
        static const std::array lines{
            "Sub A()",
            "Private Function B()",
            "Property Get C()",
            "Private Property Get D()",
            "End Sub",
            "End Function",
            "End Property",
            "If a Then",
            "If a Then b",
            "If a Then _",
            "ElseIf b Then",
            "ElseIf b Then c",
            "Else",
            "Else: x",
            "End If",
            "Select Case x",
            "Case 1",
            "Case 2:",
            "Case Else",
            "End Select",
            "For i = 1 To 2",
            "Next i",
            "Next",
            "Do",
            "Do While x",
            "Loop",
            "While x",
            "Wend",
            "With x",
            "End With",
            "Begin Child1",
            "BeginProperty Font",
            "EndProperty",
            "End",
            "Enum Colors",
            "End Enum",
            "Type = 5",
            "Private Type P",
            "End Type",
            "#If A Then",
            "#Else",
            "#End If",
            "here:",
            "x = \"it's\"",
            "Option Explicit",
            "Dim x",
            "' note",
            "Rem note",
            "",
            "x = 1 + _",
        };
        static const std::array before{"", "", "", " ", "\t", "    ", "\t\t", "10 "};
        static const std::array after{"", "", "", "", " ", "\t", " ' note", "' Then", ": x", " ' a:"};
        return std::string(one(before)) + one(lines) + one(after);
    }

  private:
    template <class Choices>
    const char* one(const Choices& choices) {
        return choices[below(static_cast<unsigned>(choices.size()))];
    }

    std::string piece() {
        static const std::array pieces{
            "Sub",         "Function",
            "Property",    "Private",
            "Public",      "Friend",
            "Static",      "For",
            "Do",          "While",
            "Select",      "Case",
            "With",        "Begin",
            "Enum",        "Type",
            "End",         "Else",
            "ElseIf",      "Next",
            "Loop",        "Wend",
            "If",          "Then",
            "Rem",         "Dim",
            "Const",       "Option Explicit",
            " Then",       " Then ",
            " Then",       "#If",
            "EndProperty", "BeginProperty",
            "x",           "a1",
            "'",           "'",
            "'",           "\"",
            "\"",          "\"",
            "\"",          " ",
            " ",           " ",
            " ",           "  ",
            "\t",          ":",
            "_",           " _",
            "+",           "=",
            "(",           ")",
            "&",           "*",
            "\\",          "/",
            "-",           "\xC4",
            "\xE4",        "\xFF",
            "\xA0",        "\x92",
            ".",           "1",
        };
        if (below(40) == 0) return {static_cast<char>(below(256))};
        return one(pieces);
    }

    std::mt19937 random_;
};

TEST(Differential, scannerFunctionsAgreeWithTheReference) {
    RandomLines random(1);
    for (int i = 0; i < 25'000; ++i) ASSERT_EQ(reference::differenceOfLine(random.anyLine()), "");
}

TEST(Differential, checkCharAgreesWithTheReference) {
    RandomLines random(5);
    for (int i = 0; i < 20'000; ++i) {
        const std::string line = random.anyLine();
        const auto pos = static_cast<std::int32_t>(1 + random.below(40));
        const auto code = static_cast<std::int16_t>(random.below(2) == 0 ? 32 : random.below(256));
        ASSERT_EQ(Scanner::CheckChar(line, pos, code), reference::CheckChar(line, pos, code)) << line;
        ASSERT_EQ(Scanner::CheckChar(line, pos, code, true), reference::CheckChar(line, pos, code, true))
            << line;
    }
}

TEST(Differential, checkKeyAndItsIndicesAgreeWithTheReference) {
    RandomLines random(2);
    Lines lines;
    for (int i = 0; i < 25'000; ++i) {
        lines.push_back(random.below(2) == 0 ? random.anyLine() : random.blockLine());
    }
    EXPECT_EQ(reference::differenceOfKeys(lines), "");
}

FormatOptions anyOptions(RandomLines& random) {
    static constexpr std::array<std::uint8_t, 7> widths{0, 1, 2, 4, 8, 10, 255};
    FormatOptions options;
    options.bNoEmpty = static_cast<std::uint8_t>(random.below(2));
    options.bNoCmntLn = static_cast<std::uint8_t>(random.below(2));
    options.bNoAllCmnt = static_cast<std::uint8_t>(random.below(2));
    options.mTab = widths[random.below(widths.size())];
    return options;
}

TEST(Differential, wholeRunsAgreeWithTheReference) {
    RandomLines random(3);
    for (int module = 0; module < 1'000; ++module) {
        Lines raw;
        for (unsigned lines = random.below(80); lines > 0; --lines) {
            raw.push_back(random.below(5) == 0 ? random.anyLine() : random.blockLine());
        }
        const long stop = random.below(10) == 0 ? static_cast<long>(random.below(40)) : -1;
        ASSERT_EQ(reference::differenceOfRun(raw, anyOptions(random), stop), "") << "module " << module;
    }
}

TEST(Differential, deepRunsAgreeWithTheReferenceUpToTheirOverflow) {
    for (const std::uint8_t width : {0, 10, 255}) {
        RandomLines random(4);
        Lines raw(width == 0 ? 32'760 : 32'767 / width - 10, "With x");
        for (int i = 0; i < 200; ++i) raw.push_back(random.below(3) == 0 ? random.blockLine() : "Do");
        FormatOptions options;
        options.mTab = width;
        EXPECT_EQ(reference::differenceOfRun(raw, options, -1), "") << "width " << int{width};
    }
}

} // namespace
} // namespace corvelle::formatter
