#include "base/run_time_error.h"
#include "base/text.h"
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
using test::RecordingObserver;

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
    std::string room;
    for (int i = 0; i < 50'000; ++i) {
        const std::string line = random.anyLine();
        SCOPED_TRACE("line " + std::to_string(i) + ": " + line);
        ASSERT_EQ(Scanner::myTrim(line, room), reference::myTrim(line));
        ASSERT_EQ(Scanner::isOnlySpace(line), reference::isOnlySpace(line));
        ASSERT_EQ(Scanner::isCommentLine(line), reference::isCommentLine(line));
        ASSERT_EQ(Scanner::SafeUncomment(line), reference::SafeUncomment(line));
        ASSERT_EQ(Scanner::Check_IF_THEN_(line), reference::Check_IF_THEN_(line));
        ASSERT_EQ(Scanner::codeStarted(line), reference::codeStarted(line));
        ASSERT_EQ(Scanner::Check_Enum_Type(line, "Enum"), reference::Check_Enum_Type(line, "Enum"));
        const auto pos = static_cast<std::int32_t>(1 + random.below(40));
        const auto code = static_cast<std::int16_t>(random.below(2) == 0 ? 32 : random.below(256));
        ASSERT_EQ(Scanner::CheckChar(line, pos, code), reference::CheckChar(line, pos, code));
        ASSERT_EQ(Scanner::CheckChar(line, pos, code, true), reference::CheckChar(line, pos, code, true));
    }
}

TEST(Differential, checkKeyAndItsIndicesAgreeWithTheReference) {
    RandomLines random(2);
    Scanner scanner;
    reference::Scanner expected;
    for (int i = 0; i < 50'000; ++i) {
        const std::string line = random.below(2) == 0 ? random.anyLine() : random.blockLine();
        SCOPED_TRACE("line " + std::to_string(i) + ": " + line);
        ASSERT_EQ(static_cast<int>(scanner.CheckKey(line)), expected.CheckKey(line));
        ASSERT_EQ(scanner.startKeyIndex, expected.startKeyIndex);
        ASSERT_EQ(scanner.endKeyIndex, expected.endKeyIndex);
    }
}

// One module through both: every line of the buffer, everything told on the way, the result and the error.
void compareModule(const Lines& raw, FormatOptions options, long stopAfterLines) {
    reference::Engine expected;
    expected.bNoEmpty = options.bNoEmpty;
    expected.bNoCmntLn = options.bNoCmntLn;
    expected.bNoAllCmnt = options.bNoAllCmnt;
    expected.mTab = options.mTab;
    expected.stopAfterLines = stopAfterLines;
    for (const std::string& line : raw) expected.clean(line);
    const auto maxIndx = static_cast<std::int32_t>(expected.LineBuffer.size()) - 1;
    long expectedResult = 0;
    int expectedError = 0;
    try {
        expectedResult = expected.VB_Format(maxIndx);
    } catch (const reference::RunTimeError& error) {
        expectedError = error.number;
    }

    RecordingObserver observer;
    Engine engine(observer);
    engine.options = options;
    observer.onEvents = [&](int yields) {
        if (stopAfterLines >= 0 && yields == maxIndx + 1 + stopAfterLines + 1) engine.DisableProc();
    };
    engine.beginCleaning(raw.size());
    for (const std::string& line : raw) engine.cleanLine(line);
    ASSERT_EQ(engine.lineBuffer().maxIndx(), maxIndx);
    std::int32_t result = 0;
    int error = 0;
    try {
        result = engine.VB_Format(maxIndx);
    } catch (const base::RunTimeError& raised) {
        error = raised.number();
    }

    Lines lines;
    for (std::int32_t i = 0; i <= maxIndx; ++i) lines.push_back(engine.lineBuffer().line(i));
    ASSERT_EQ(lines, expected.LineBuffer);
    ASSERT_EQ(error, expectedError);
    ASSERT_EQ(result, expectedResult);
    ASSERT_EQ(observer.told, expected.told);
    ASSERT_EQ(engine.indentLevel(), expected.indentLevel);
    ASSERT_EQ(engine.position(), expected.position);
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
    for (int module = 0; module < 3'000; ++module) {
        Lines raw;
        for (unsigned lines = random.below(80); lines > 0; --lines) {
            raw.push_back(random.below(5) == 0 ? random.anyLine() : random.blockLine());
        }
        SCOPED_TRACE("module " + std::to_string(module));
        const long stop = random.below(10) == 0 ? static_cast<long>(random.below(40)) : -1;
        compareModule(raw, anyOptions(random), stop);
        if (HasFatalFailure()) return;
    }
}

TEST(Differential, deepRunsAgreeWithTheReferenceUpToTheirOverflow) {
    for (const std::uint8_t width : {0, 10, 255}) {
        RandomLines random(4);
        Lines raw(width == 0 ? 32'760 : 32'767 / width - 10, "With x");
        for (int i = 0; i < 200; ++i) raw.push_back(random.below(3) == 0 ? random.blockLine() : "Do");
        FormatOptions options;
        options.mTab = width;
        SCOPED_TRACE("width " + std::to_string(width));
        compareModule(raw, options, -1);
        if (HasFatalFailure()) return;
    }
}

} // namespace
} // namespace corvelle::formatter
