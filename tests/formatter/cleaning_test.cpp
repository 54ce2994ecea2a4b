#include "formatter/run_engine.h"

#include <gtest/gtest.h>
#include <string>

// The cleaning pass: what each option drops, and in which order the rules apply.
namespace corvelle::formatter {
namespace {

using test::cleaned;
using test::Lines;
using test::RecordingObserver;

FormatOptions noOption() {
    return {};
}

FormatOptions noEmptyLines() {
    FormatOptions options;
    options.bNoEmpty = 1;
    return options;
}

FormatOptions noCommentLines() {
    FormatOptions options;
    options.bNoCmntLn = 1;
    return options;
}

FormatOptions noTrailingComments() {
    FormatOptions options;
    options.bNoAllCmnt = 1;
    return options;
}

TEST(Cleaning, stripsOldIndentationAndTabs) {
    EXPECT_EQ(cleaned({"\tSub A()", "    \tx =\t1  ", "End Sub"}, noOption()),
              (Lines{"Sub A()", "x =1", "End Sub"}));
}

TEST(Cleaning, keepsEmptyLinesAndCommentsUnlessToldOtherwise) {
    const Lines lines{"Option Explicit", "", "' note", "Rem note", "x = 1 ' note"};
    EXPECT_EQ(cleaned(lines, noOption()), lines);
}

TEST(Cleaning, optionsTakeOnlyOneForOn) {
    FormatOptions options;
    options.bNoEmpty = options.bNoCmntLn = options.bNoAllCmnt = 2;
    const Lines lines{"Option Explicit", "", "' note", "x = 1 ' note"};
    EXPECT_EQ(cleaned(lines, options), lines);
}

TEST(Cleaning, dropsEmptyLines) {
    EXPECT_EQ(cleaned({"", "x = 1", "", "", "y = 2", ""}, noEmptyLines()), (Lines{"x = 1", "y = 2"}));
}

TEST(Cleaning, dropsLinesThatHaveOnlyBlanks) {
    EXPECT_EQ(cleaned({"   ", "x = 1", "\t", " \t "}, noEmptyLines()), Lines{"x = 1"});
}

TEST(Cleaning, keepsCommentsWhenEmptyLinesGo) {
    EXPECT_EQ(cleaned({"' note", "", "x = 1 ' note"}, noEmptyLines()), (Lines{"' note", "x = 1 ' note"}));
}

TEST(Cleaning, dropsCommentLines) {
    EXPECT_EQ(cleaned({"' a", "x = 1", "   ' b", "\t' c", "Rem d", "Rem", "'"}, noCommentLines()),
              Lines{"x = 1"});
}

TEST(Cleaning, keepsTrailingCommentsAndEmptyLinesWhenCommentLinesGo) {
    EXPECT_EQ(cleaned({"Option Explicit", "x = 1 ' note", ""}, noCommentLines()),
              (Lines{"Option Explicit", "x = 1 ' note", ""}));
}

TEST(Cleaning, keepsRemLinesWithAnApostrophe) {
    EXPECT_EQ(cleaned({"Option Explicit", "Rem it's done"}, noCommentLines()),
              (Lines{"Option Explicit", "Rem it's done"}));
}

TEST(Cleaning, keepsLinesThatOnlyBeginLikeRem) {
    EXPECT_EQ(cleaned({"Remark = 1"}, noCommentLines()), Lines{"Remark = 1"});
}

TEST(Cleaning, cutsTrailingComments) {
    EXPECT_EQ(cleaned({"Option Explicit", "x = 1 ' note", "s = \"it's\" ' note"}, noTrailingComments()),
              (Lines{"Option Explicit", "x = 1 ", "s = \"it's\" "}));
}

TEST(Cleaning, keepsTheSpacesBeforeTheCommentThatWasCut) {
    EXPECT_EQ(cleaned({"Dim x", "x = 1   ' note"}, noTrailingComments()), (Lines{"Dim x", "x = 1   "}));
}

TEST(Cleaning, removesTabsBeforeTheCommentThatWasCut) {
    EXPECT_EQ(cleaned({"Dim x", "x = 1\t' note"}, noTrailingComments()), (Lines{"Dim x", "x = 1"}));
}

TEST(Cleaning, keepsCommentLinesWhenTrailingCommentsGo) {
    EXPECT_EQ(cleaned({"Dim x", "' note", "   ' note", "Rem note"}, noTrailingComments()),
              (Lines{"Dim x", "' note", "' note", "Rem note"}));
}

// The text after the apostrophe of such a line goes, but not the line: it counts as code with a comment.
TEST(Cleaning, cutsARemLineAtItsApostrophe) {
    EXPECT_EQ(cleaned({"Dim x", "Rem it's done"}, noTrailingComments()), (Lines{"Dim x", "Rem it"}));
}

TEST(Cleaning, cutsInsideALaterLiteral) {
    EXPECT_EQ(cleaned({"Dim x", "x = \"a\" & \"it's\""}, noTrailingComments()),
              (Lines{"Dim x", "x = \"a\" & \"it"}));
}

TEST(Cleaning, keepsTrailingCommentsAboveTheFirstDeclaration) {
    EXPECT_EQ(cleaned({"DefInt A-Z ' a", "Dim x ' b", "x = 1 ' c"}, noTrailingComments()),
              (Lines{"DefInt A-Z ' a", "Dim x ", "x = 1 "}));
}

TEST(Cleaning, keepsEveryTrailingCommentOfAModuleWithoutDeclarations) {
    const Lines lines{"Sub Main()", "x = 1 ' a", "End Sub ' b"};
    EXPECT_EQ(cleaned(lines, noTrailingComments()), lines);
}

class FirstDeclaration : public ::testing::TestWithParam<const char*> {};

TEST_P(FirstDeclaration, startsTheRemovalOfTrailingComments) {
    const std::string line = GetParam();
    EXPECT_EQ(cleaned({"x = 1 ' a", line, "y = 2 ' b"}, noTrailingComments()),
              (Lines{"x = 1 ' a", line, "y = 2 "}));
}

INSTANTIATE_TEST_SUITE_P(Cleaning, FirstDeclaration,
                         ::testing::Values("Option Explicit", "Dim a", "Public a", "Private a", "Const a = 1",
                                           "Friend Sub A()", "Enum a", "Type a", "' needs Option Explicit"));

TEST(Cleaning, aCommentThatIsDroppedStillStartsTheCode) {
    FormatOptions options = noTrailingComments();
    options.bNoCmntLn = 1;
    EXPECT_EQ(cleaned({"x = 1 ' a", "' needs Option Explicit", "y = 2 ' b"}, options),
              (Lines{"x = 1 ' a", "y = 2 "}));
}

TEST(Cleaning, theCodeStaysStarted) {
    EXPECT_EQ(cleaned({"Dim x", "y = 1 ' a", "Sub A() ' b"}, noTrailingComments()),
              (Lines{"Dim x", "y = 1 ", "Sub A() "}));
}

TEST(Cleaning, theCodeStartsAnewInTheNextModule) {
    RecordingObserver observer;
    Engine engine(observer);
    engine.options = noTrailingComments();
    engine.beginCleaning(1);
    engine.cleanLine("Dim x");
    engine.beginCleaning(1);
    engine.cleanLine("x = 1 ' a");
    EXPECT_EQ(engine.lineBuffer().line(0), "x = 1 ' a");
}

TEST(Cleaning, allOptionsTogetherLeaveTheBareCode) {
    FormatOptions options;
    options.bNoEmpty = options.bNoCmntLn = options.bNoAllCmnt = 1;
    EXPECT_EQ(cleaned({"' head", "", "Option Explicit ' on", "", "Sub A()", "\t' note", "\tx = 1 ' one", "",
                       "End Sub"},
                      options),
              (Lines{"Option Explicit ", "Sub A()", "x = 1 ", "End Sub"}));
}

// Emptiness is looked at before the comment goes.
TEST(Cleaning, aLineThatBecomesEmptyByOtherRulesStays) {
    EXPECT_EQ(cleaned({"' note"}, noEmptyLines()), Lines{"' note"});
}

TEST(Cleaning, tellsWhetherTheLineWasKept) {
    RecordingObserver observer;
    Engine engine(observer);
    engine.options = noEmptyLines();
    engine.options.bNoCmntLn = 1;
    engine.beginCleaning(3);
    EXPECT_TRUE(engine.cleanLine("x = 1"));
    EXPECT_FALSE(engine.cleanLine(" "));
    EXPECT_FALSE(engine.cleanLine("' note"));
    EXPECT_EQ(engine.lineBuffer().maxIndx(), 0);
}

TEST(Cleaning, leavesNoLineOfAModuleWhoseLinesAreAllDropped) {
    EXPECT_EQ(cleaned({"", "  "}, noEmptyLines()), Lines{});
}

TEST(Cleaning, showsTheNumberOfKeptLinesAndYieldsAfterEachOfThem) {
    RecordingObserver observer;
    Engine engine(observer);
    engine.options = noEmptyLines();
    engine.beginCleaning(4);
    for (const char* line : {"a", "", "b", "c"}) engine.cleanLine(line);
    EXPECT_EQ(observer.told,
              (Lines{"proc: LN: 1", "events", "proc: LN: 2", "events", "proc: LN: 3", "events"}));
}

TEST(Cleaning, anOptionThatChangesWhileThePassYieldsHoldsFromTheNextLineOn) {
    RecordingObserver observer;
    Engine engine(observer);
    observer.onEvents = [&](int yields) { engine.options.bNoEmpty = yields == 1 ? 1 : 0; };
    engine.beginCleaning(4);
    for (const char* line : {"a", "", "b", ""}) engine.cleanLine(line);
    EXPECT_EQ(engine.lineBuffer().maxIndx(), 2); // "a", "b" and the second empty line
}

} // namespace
} // namespace corvelle::formatter
