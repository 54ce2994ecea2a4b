#include "base/run_time_error.h"
#include "formatter/run_engine.h"

#include <gtest/gtest.h>
#include <string>

// Structural errors, which are counted and listed, and run-time errors, which end the pass.
namespace corvelle::formatter {
namespace {

using base::ErrorNumber;
using base::RunTimeError;
using test::Lines;
using test::Outcome;
using test::RecordingObserver;
using test::run;

TEST(StructuralErrors, haveTheirTexts) {
    EXPECT_EQ((StructuralError{StructuralError::Kind::Tab, 5}.text()), "Tab On Line: 5");
    EXPECT_EQ((StructuralError{StructuralError::Kind::Error, 120}.text()), "Error On Line: 120");
}

class EveryEnd : public ::testing::TestWithParam<const char*> {};

TEST_P(EveryEnd, atLevelZeroIsATabErrorAndStaysAtColumnOne) {
    const Outcome result = run({GetParam()});
    EXPECT_EQ(result.result, 1);
    EXPECT_EQ(result.errors, Lines{"Tab On Line: 0"});
    EXPECT_EQ(result.lines, Lines{GetParam()});
    EXPECT_EQ(result.level, 0);
}

INSTANTIATE_TEST_SUITE_P(StructuralErrors, EveryEnd,
                         ::testing::Values("End Sub", "End Function", "End Property", "Next", "Loop", "Wend",
                                           "End If", "End Select", "End With", "EndProperty", "End Enum",
                                           "End Type", "ElseIf a Then b", "End ' stop"));

TEST(StructuralErrors, elseAtLevelZeroIsAnErrorAndOpensALevel) {
    const Outcome result = run({"Else", "x"});
    EXPECT_EQ(result.errors, Lines{"Tab On Line: 0"});
    EXPECT_EQ(result.lines, (Lines{"Else", "  x"}));
}

TEST(StructuralErrors, elseIfAtLevelZeroIsAnErrorAndOpensALevel) {
    const Outcome result = run({"ElseIf a Then", "x"});
    EXPECT_EQ(result.errors, Lines{"Tab On Line: 0"});
    EXPECT_EQ(result.lines, (Lines{"ElseIf a Then", "  x"}));
}

// The step down that it undoes was never made.
TEST(StructuralErrors, bareEndAtLevelZeroIsAnErrorAndEndsAtLevelOne) {
    const Outcome result = run({"End", "x"});
    EXPECT_EQ(result.errors, Lines{"Tab On Line: 0"});
    EXPECT_EQ(result.lines, (Lines{"  End", "  x"}));
    EXPECT_EQ(result.level, 1);
}

TEST(StructuralErrors, endOfABeginBlockAtLevelZeroIsAnErrorAndStaysThere) {
    const Outcome result = run({"Begin Child1", "Next", "End", "End"});
    EXPECT_EQ(result.errors, (Lines{"Tab On Line: 2", "Tab On Line: 3"}));
    // The first End takes the Begin block back, the second one is a bare statement.
    EXPECT_EQ(result.lines, (Lines{"Begin Child1", "Next", "End", "  End"}));
}

TEST(StructuralErrors, endSelectThatCannotCloseTheCasesIsAnErrorOfItsOwnKind) {
    const Outcome result = run({"Select Case x", "Case 1", "Next", "End Select", "x"});
    EXPECT_EQ(result.errors, Lines{"Error On Line: 3"});
    EXPECT_EQ(result.result, 1);
    EXPECT_EQ(result.lines, (Lines{"Select Case x", "  Case 1", "  Next", "End Select", "x"}));
}

TEST(StructuralErrors, endSelectCanBeTwoErrors) {
    const Outcome result = run({"Case 1", "Next", "End Select"});
    EXPECT_EQ(result.errors, (Lines{"Tab On Line: 2", "Error On Line: 2"}));
    EXPECT_EQ(result.result, 2);
}

TEST(StructuralErrors, endSelectForgetsItsCasesAlsoAfterAnError) {
    // The second End Select has no Case to close: one error, not two.
    const Outcome result = run({"Case 1", "Next", "End Select", "End Select"});
    EXPECT_EQ(result.errors, (Lines{"Tab On Line: 2", "Error On Line: 2", "Tab On Line: 3"}));
}

TEST(StructuralErrors, neverEndThePass) {
    const Outcome result = run({"End Sub", "End Sub", "Sub A()", "x", "End Sub"});
    EXPECT_EQ(result.errors, (Lines{"Tab On Line: 0", "Tab On Line: 1"}));
    EXPECT_EQ(result.lines, (Lines{"End Sub", "End Sub", "Sub A()", "  x", "End Sub"}));
}

TEST(StructuralErrors, countTheLinesOfTheCleanedBuffer) {
    FormatOptions options;
    options.bNoEmpty = options.bNoCmntLn = 1;
    EXPECT_EQ(run({"", "' note", "x", "", "End Sub"}, options).errors, Lines{"Tab On Line: 1"});
}

TEST(StructuralErrors, areCountedAnewByEveryPass) {
    RecordingObserver observer;
    Engine engine(observer);
    engine.beginCleaning(1);
    engine.cleanLine("End Sub");
    EXPECT_EQ(engine.VB_Format(0), 1);
    EXPECT_EQ(engine.VB_Format(0), 1);
}

// Run-time errors

// The number of the run-time error that ends the pass, 0 if none does; `position` takes the line.
int errorOf(const Lines& raw, int tabWidth, int* position = nullptr) {
    PassObserver observer;
    Engine engine(observer);
    engine.options.mTab = static_cast<std::uint8_t>(tabWidth);
    engine.ResetAll();
    engine.beginCleaning(raw.size());
    for (const std::string& line : raw) engine.cleanLine(line);
    int number = 0;
    try {
        engine.VB_Format(engine.lineBuffer().maxIndx());
    } catch (const RunTimeError& error) {
        number = error.number();
    }
    if (position) *position = engine.position();
    return number;
}

constexpr int overflow = static_cast<int>(ErrorNumber::Overflow);
constexpr int invalidCall = static_cast<int>(ErrorNumber::InvalidProcedureCall);

Lines blocks(int count) {
    return Lines(static_cast<std::size_t>(count), "With x");
}

Lines operator+(Lines lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

struct DeepestLevel {
    int tabWidth;
    int level; // the deepest one whose spaces are a 16-bit number
};

class SpacesOfALevel : public ::testing::TestWithParam<DeepestLevel> {};

TEST_P(SpacesOfALevel, mayBeUpTo32767) {
    EXPECT_EQ(errorOf(blocks(GetParam().level) + Lines{"x"}, GetParam().tabWidth), 0);
}

TEST_P(SpacesOfALevel, overflowBeyond32767) {
    int position = 0;
    EXPECT_EQ(errorOf(blocks(GetParam().level + 1) + Lines{"x"}, GetParam().tabWidth, &position), overflow);
    EXPECT_EQ(position, GetParam().level + 1); // "x"
}

TEST_P(SpacesOfALevel, areNotReckonedForALineThatKeepsItsColumn) {
    EXPECT_EQ(errorOf(blocks(GetParam().level + 1) + Lines{"x:"}, GetParam().tabWidth), 0);
}

TEST_P(SpacesOfALevel, overflowForAnEmptyLineToo) {
    EXPECT_EQ(errorOf(blocks(GetParam().level + 1) + Lines{""}, GetParam().tabWidth), overflow);
}

INSTANTIATE_TEST_SUITE_P(RunTimeErrors, SpacesOfALevel,
                         ::testing::Values(DeepestLevel{2, 16383}, DeepestLevel{4, 8191},
                                           DeepestLevel{8, 4095}, DeepestLevel{10, 3276},
                                           DeepestLevel{255, 128}));

TEST(RunTimeErrors, theLevelMayBeUpTo32767) {
    EXPECT_EQ(errorOf(blocks(32767) + Lines{"x", "End With"}, 1), 0);
}

TEST(RunTimeErrors, theLevelOverflowsWhereItIsRaisedBeyond32767) {
    int position = 0;
    EXPECT_EQ(errorOf(blocks(32768), 0, &position), overflow);
    EXPECT_EQ(position, 32767);
    EXPECT_EQ(errorOf(blocks(32768), 1), overflow);
}

TEST(RunTimeErrors, theLevelAt32767TakesAnElse) {
    // Down by one, then up again.
    EXPECT_EQ(errorOf(blocks(32767) + Lines{"Else", "ElseIf a Then", "x"}, 0), 0);
}

TEST(RunTimeErrors, theLevelAt32767TakesABareEnd) {
    EXPECT_EQ(errorOf(blocks(32767) + Lines{"End", "x"}, 0), 0);
}

// Select lines without any level: each is closed by a Next, so that only selectDepth grows.
Lines selectLines(int count) {
    Lines lines;
    for (int i = 0; i < count; ++i) {
        lines.emplace_back("Select x");
        lines.emplace_back("Next");
    }
    return lines;
}

TEST(RunTimeErrors, theCountOfSelectsMayBeUpTo32767) {
    EXPECT_EQ(errorOf(selectLines(32767), 2), 0);
}

TEST(RunTimeErrors, theCountOfSelectsOverflowsBeyond32767) {
    int position = 0;
    EXPECT_EQ(errorOf(selectLines(32768), 2, &position), overflow);
    EXPECT_EQ(position, 2 * 32767);
}

TEST(RunTimeErrors, endSelectSetsTheCountOfSelectsBack) {
    EXPECT_EQ(errorOf(selectLines(32767) + Lines{"End Select"} + selectLines(32767), 2), 0);
}

Lines beginLines(int count) {
    Lines lines;
    for (int i = 0; i < count; ++i) {
        lines.emplace_back("Begin Child1");
        lines.emplace_back("Next");
    }
    return lines;
}

TEST(RunTimeErrors, theCountOfBeginsMayBeUpTo32767) {
    EXPECT_EQ(errorOf(beginLines(32767), 2), 0);
}

TEST(RunTimeErrors, theCountOfBeginsOverflowsBeyond32767) {
    int position = 0;
    EXPECT_EQ(errorOf(beginLines(32768), 2, &position), overflow);
    EXPECT_EQ(position, 2 * 32767);
}

TEST(RunTimeErrors, anEndTakesABeginBackFromTheCount) {
    EXPECT_EQ(errorOf(beginLines(32767) + Lines{"With x", "End"} + beginLines(1), 2), 0);
}

// The second Case steps back from level 0 to -1.
const Lines negativeCase{"Select Case x", "Case 1", "Next", "Next", "Case 2", "x"};

TEST(RunTimeErrors, aNegativeNumberOfSpacesIsAnInvalidCall) {
    for (const int tabWidth : {1, 2, 4, 8, 10}) {
        int position = 0;
        EXPECT_EQ(errorOf(negativeCase, tabWidth, &position), invalidCall) << tabWidth;
        EXPECT_EQ(position, 4) << tabWidth;
    }
}

TEST(RunTimeErrors, aNegativeLevelWithoutSpacesIsNoError) {
    FormatOptions options;
    options.mTab = 0;
    const Outcome result = run(negativeCase, options);
    EXPECT_EQ(result.result, 0);
    EXPECT_EQ(result.level, 0); // -1, and the Case opens one
}

TEST(RunTimeErrors, aNegativeNumberOfSpacesIsReckonedForACaseThatEndsInAColonToo) {
    // Only an ordinary line keeps its column.
    EXPECT_EQ(errorOf({"Select Case x", "Case 1", "Next", "Next", "Case 2:"}, 2), invalidCall);
}

TEST(RunTimeErrors, aLineThatTheBufferDoesNotHoldIsOutOfRange) {
    PassObserver observer;
    Engine engine(observer);
    engine.ResetAll();
    try {
        engine.VB_Format(1);
        FAIL() << "no error";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), static_cast<int>(ErrorNumber::SubscriptOutOfRange));
    }
    EXPECT_EQ(engine.position(), 1);
}

TEST(RunTimeErrors, aBufferThatIsResetWhileThePassYieldsEndsThePass) {
    RecordingObserver observer;
    Engine engine(observer);
    engine.beginCleaning(3);
    for (const char* line : {"Sub A()", "x", "End Sub"}) engine.cleanLine(line);
    observer.onEvents = [&](int yields) {
        if (yields == 3 + 2) engine.ResetAll(); // before line 1
    };
    EXPECT_THROW(engine.VB_Format(2), RunTimeError);
    EXPECT_EQ(engine.lineBuffer().maxIndx(), 0);
}

TEST(RunTimeErrors, areDescribedAsTheLanguageDescribesThem) {
    EXPECT_EQ(RunTimeError(ErrorNumber::Overflow).description(), "Overflow");
    EXPECT_EQ(RunTimeError(ErrorNumber::InvalidProcedureCall).description(),
              "Invalid procedure call or argument");
}

TEST(RunTimeErrors, leaveTheLinesBeforeThemFormatted) {
    PassObserver observer;
    Engine engine(observer);
    engine.ResetAll();
    engine.beginCleaning(negativeCase.size());
    for (const std::string& line : negativeCase) engine.cleanLine(line);
    EXPECT_THROW(engine.VB_Format(engine.lineBuffer().maxIndx()), RunTimeError);
    EXPECT_EQ(engine.lineBuffer().line(1), "  Case 1");
    EXPECT_EQ(engine.lineBuffer().line(4), "Case 2");
}

TEST(RunTimeErrors, areForgottenByTheNextRun) {
    PassObserver observer;
    Engine engine(observer);
    for (const char* lastLine : {"Case 2", "End Select"}) {
        engine.ResetAll();
        engine.beginCleaning(5);
        for (const char* line : {"Select Case x", "Case 1", "Next", "Next"}) engine.cleanLine(line);
        engine.cleanLine(lastLine);
        if (std::string(lastLine) == "Case 2") {
            EXPECT_THROW(engine.VB_Format(4), RunTimeError);
        } else {
            EXPECT_EQ(engine.VB_Format(4), 2);
        }
    }
}

} // namespace
} // namespace corvelle::formatter
