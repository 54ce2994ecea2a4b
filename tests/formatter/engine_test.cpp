#include "formatter/run_engine.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

// The layout that the indentation pass gives to each construct. Where a test compares a text with its
// formatted self, the text is written as the pass must write it: the cleaning pass takes its indentation away
// first.
namespace corvelle::formatter {
namespace {

using test::formatted;
using test::levels;
using test::Lines;
using test::Outcome;
using test::run;

void expectLayout(const Lines& wanted) {
    const Outcome result = run(wanted);
    EXPECT_EQ(result.lines, wanted);
    EXPECT_EQ(result.result, 0);
    EXPECT_EQ(result.errors, Lines{});
    EXPECT_EQ(result.level, 0);
}

// Blocks

struct Block {
    const char* name;
    const char* opens;
    const char* closes;
};

void PrintTo(const Block& block, std::ostream* out) {
    *out << block.opens << " ... " << block.closes;
}

class EveryBlock : public ::testing::TestWithParam<Block> {};

TEST_P(EveryBlock, indentsItsBodyByOneLevel) {
    const auto [name, opens, closes] = GetParam();
    expectLayout({opens, "  x = 1", "  y = 2", closes, "z = 3"});
}

TEST_P(EveryBlock, nestsInItself) {
    const auto [name, opens, closes] = GetParam();
    expectLayout({opens, std::string("  ") + opens, "    x = 1", std::string("  ") + closes, closes});
}

const Block blocks[]{
    {"sub", "Sub A()", "End Sub"},
    {"function", "Function A() As Long", "End Function"},
    {"property", "Property Get A() As Long", "End Property"},
    {"privateSub", "Private Sub A()", "End Sub"},
    {"privateFunction", "Private Function A() As Long", "End Function"},
    {"publicSub", "Public Sub A()", "End Sub"},
    {"publicFunction", "Public Function A() As Long", "End Function"},
    {"publicProperty", "Public Property Let A(v As Long)", "End Property"},
    {"friendSub", "Friend Sub A()", "End Sub"},
    {"friendFunction", "Friend Function A() As Long", "End Function"},
    {"friendProperty", "Friend Property Set A(v As Object)", "End Property"},
    {"forNext", "For i = 1 To 10", "Next i"},
    {"forEach", "For Each c In Controls", "Next"},
    {"doLoopUntil", "Do", "Loop Until x"},
    {"doWhileLoop", "Do While x", "Loop"},
    {"whileWend", "While x", "Wend"},
    {"with", "With Me.Font", "End With"},
    {"beginProperty", "BeginProperty Font", "EndProperty"},
    {"enumeration", "Enum Colors", "End Enum"},
    {"privateEnum", "Private Enum Colors", "End Enum"},
    {"publicEnum", "Public Enum Colors", "End Enum"},
    {"type", "Type Point", "End Type"},
    {"privateType", "Private Type Point", "End Type"},
    {"publicType", "Public Type Point", "End Type"},
    {"blockIf", "If a Then", "End If"},
    {"begin", "Begin Child1", "End"},
};
INSTANTIATE_TEST_SUITE_P(Layout, EveryBlock, ::testing::ValuesIn(blocks),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(Layout, nestsBlocksOfAllKinds) {
    expectLayout({
        "Public Sub Fill()",
        "  Dim i As Long",
        "  With rs",
        "    Do While Not .EOF",
        "      For i = 0 To 3",
        "        If IsNull(.Fields(i)) Then",
        "          While busy",
        "            DoEvents",
        "          Wend",
        "        End If",
        "      Next i",
        "    Loop",
        "  End With",
        "End Sub",
    });
}

// If

TEST(Layout, elseStandsAtTheLevelOfItsIf) {
    expectLayout({"If a Then", "  x", "Else", "  y", "End If"});
}

TEST(Layout, elseIfStandsAtTheLevelOfItsIf) {
    EXPECT_EQ(levels({"If a Then", "x", "ElseIf b Then", "y", "Else", "z", "End If"}),
              (std::vector<int>{0, 1, 0, 1, 0, 1, 0}));
}

TEST(Layout, elseIfWithATrailingCommentReopensItsLevel) {
    expectLayout({"If a Then", "  x", "ElseIf b Then ' why", "  y", "End If"});
}

TEST(Layout, elseIfWithThenInItsCommentReopensItsLevel) {
    expectLayout({"If a Then", "  x", "ElseIf b Then ' Then c", "  y", "End If"});
}

TEST(Layout, elseIfWithAStatementReopensNoLevel) {
    EXPECT_EQ(levels({"If a Then", "x", "ElseIf b Then y = 1", "z"}), (std::vector<int>{0, 1, 0, 0}));
}

TEST(Layout, elseIfThatIsContinuedReopensItsLevelOnlyAtItsThen) {
    EXPECT_EQ(levels({"If a Then", "x", "ElseIf b And _", "c Then", "y", "End If"}),
              (std::vector<int>{0, 1, 0, 0, 1, 0}));
}

TEST(Layout, elseWithAStatementReopensOneLevelAllTheSame) {
    EXPECT_EQ(levels({"If a Then", "x", "Else y = 1", "z", "End If"}), (std::vector<int>{0, 1, 0, 1, 0}));
}

TEST(Layout, elseWithAColonIsAnOrdinaryLine) {
    EXPECT_EQ(levels({"If a Then", "x", "Else: y = 1", "End If"}), (std::vector<int>{0, 1, 1, 0}));
}

// Only "Else" itself (not a block If) reopens the level: one step, not two.
TEST(Layout, elseSpaceIfReopensOneLevel) {
    EXPECT_EQ(levels({"If a Then", "x", "Else If b Then", "y", "End If"}), (std::vector<int>{0, 1, 0, 1, 0}));
}

TEST(Layout, oneLineIfOpensNoBlock) {
    expectLayout({"If a Then b = 1", "If a Then b = 1 Else b = 2", "x"});
}

TEST(Layout, oneLineIfOnTwoLinesOpensNoBlock) {
    expectLayout({"If a Then _", "b = 1", "x"});
}

TEST(Layout, conditionOnTwoLinesOpensItsBlockOnTheSecond) {
    expectLayout({"If a And _", "b Then", "  x", "End If"});
}

TEST(Layout, conditionalCompilationOpensALevelThatNoLineCloses) {
    const Outcome result = run({"#If DEBUG Then", "x", "#Else", "y", "#End If", "z"});
    EXPECT_EQ(result.lines, (Lines{"#If DEBUG Then", "  x", "  #Else", "  y", "  #End If", "  z"}));
    EXPECT_EQ(result.result, 0);
    EXPECT_EQ(result.level, 1);
}

TEST(Layout, conditionalCompilationElseIfOpensAnotherLevel) {
    EXPECT_EQ(levels({"#If A Then", "x", "#ElseIf B Then", "y", "#End If"}),
              (std::vector<int>{0, 1, 1, 2, 2}));
}

// Select

TEST(Layout, selectPutsItsCasesAndTheirStatementsDeeper) {
    EXPECT_EQ(levels({"Select Case x", "Case 1", "a = 1", "Case 2", "b = 2", "End Select"}),
              (std::vector<int>{0, 1, 2, 1, 2, 0}));
    expectLayout(
        {"Select Case x", "  Case 1", "    a = 1", "  Case 2", "    b = 2", "  Case Else", "End Select"});
}

TEST(Layout, selectWithoutACaseIsClosedByItself) {
    expectLayout({"Select Case x", "End Select"});
}

TEST(Layout, selectWithOneCaseComesBackToItsLevel) {
    expectLayout({"Sub A()", "  Select Case x", "    Case 1", "      y", "  End Select", "End Sub"});
}

TEST(Layout, selectsAfterOneAnotherStandAtTheSameLevel) {
    expectLayout({"Select Case x", "  Case 1", "  Case 2", "End Select", "Select Case y", "  Case 1",
                  "  Case 2", "End Select"});
}

TEST(Layout, casesWithAColonAtTheEndKeepTheirLevel) {
    expectLayout({"Select Case x", "  Case 1:", "    a", "  Case 2:", "    b", "End Select"});
}

TEST(Layout, theStepBackOfACaseNeedsAnOpenSelect) {
    // No "Select" was seen: every Case only opens.
    EXPECT_EQ(levels({"Case 1", "a", "Case 2", "b"}), (std::vector<int>{0, 1, 1, 2}));
}

// The inner "End Select" makes the outer block forget that it had a Case; the inner "Select" does not.
TEST(Layout, nestedSelectsShareTheirState) {
    EXPECT_EQ(levels({
                  "Select Case x", // 0
                  "Case 1",        // 1
                  "Select Case y", // 2
                  "Case 11",       // 3 less the step back: a Case was seen
                  "a",             // 3
                  "Case 12",       // 2
                  "b",             // 3
                  "End Select",    // 1
                  "c",             // 1
                  "Case 2",        // 1: selectDepth is 0, no step back
                  "d",             // 2
                  "Case 3",        // 2: still none, the level grows
                  "e",             // 3
                  "End Select",    // 1
              }),
              (std::vector<int>{0, 1, 2, 2, 3, 2, 3, 1, 1, 1, 2, 2, 3, 1}));
}

TEST(Layout, nestedSelectsWhoseInnerOneHasNoCaseShareTheirStateToo) {
    EXPECT_EQ(levels({"Select Case x", "Case 1", "Select Case y", "End Select", "Case 2", "a"}),
              (std::vector<int>{0, 1, 2, 1, 1, 2}));
}

// Begin and End

TEST(Layout, bareEndInAProcedureLeavesTheLevel) {
    expectLayout({"Sub A()", "  End", "  x", "End Sub"});
}

TEST(Layout, bareEndInsideABlockLeavesTheLevel) {
    expectLayout({"Sub A()", "  If a Then", "    End", "  End If", "End Sub"});
}

TEST(Layout, endClosesAnOpenBeginBlock) {
    expectLayout({"Begin Child1", "  Begin Child2", "    Left = 1", "  End", "End"});
}

TEST(Layout, endAfterTheLastBeginBlockIsAStatementAgain) {
    EXPECT_EQ(levels({"Sub A()", "Begin Child1", "End", "End", "End Sub"}),
              (std::vector<int>{0, 1, 1, 1, 0}));
}

// Only a line of three characters is the bare statement; with a comment it closes a level.
TEST(Layout, endWithATrailingCommentClosesALevel) {
    EXPECT_EQ(levels({"Sub A()", "If a Then", "End ' stop", "End If", "End Sub"}),
              (std::vector<int>{0, 1, 1, 0, 0}));
}

TEST(Layout, endWithATrailingCommentDoesNotEndABeginBlock) {
    // beginDepth stays 1, so the later bare End closes a level instead of being a statement.
    EXPECT_EQ(levels({"Sub A()", "Begin Child1", "x", "End ' of child", "End", "y"}),
              (std::vector<int>{0, 1, 2, 1, 0, 0}));
}

TEST(Layout, beginPropertyOpensALevelButNoBeginBlock) {
    // The bare End finds no Begin block open and undoes its step.
    EXPECT_EQ(levels({"BeginProperty Font", "End", "EndProperty"}), (std::vector<int>{0, 1, 0}));
}

TEST(Layout, beginWithAClassAndANameOpensNothing) {
    EXPECT_EQ(levels({"Begin VB.Form Form1", "x"}), (std::vector<int>{0, 0}));
}

TEST(Layout, endOfAnEnumerationOrATypeIsNotTheBareStatement) {
    expectLayout({"Enum Colors", "  Red", "End Enum", "Type Point", "  X As Long", "End Type"});
}

// Procedures without an entry

TEST(Layout, privatePropertyOpensNoBlockAndItsEndIsAnError) {
    const Outcome result = run({"Private Property Get A() As Long", "A = 1", "End Property"});
    EXPECT_EQ(result.lines, (Lines{"Private Property Get A() As Long", "A = 1", "End Property"}));
    EXPECT_EQ(result.errors, Lines{"Tab On Line: 2"});
    EXPECT_EQ(result.result, 1);
}

TEST(Layout, everyPrivatePropertyIsAnErrorOfItsOwn) {
    const Outcome result = run({"Private Property Get A()", "End Property", "Private Property Let A(v)",
                                "End Property", "Private Property Set A(v)", "End Property"});
    EXPECT_EQ(result.errors, (Lines{"Tab On Line: 1", "Tab On Line: 3", "Tab On Line: 5"}));
    EXPECT_EQ(result.result, 3);
}

TEST(Layout, privatePropertyInsideABlockStepsTheLevelDown) {
    EXPECT_EQ(levels({"#If A Then", "Private Property Get A()", "End Property", "x"}),
              (std::vector<int>{0, 1, 0, 0}));
}

TEST(Layout, staticProceduresBehaveLikePrivateProperties) {
    const Outcome result =
        run({"Static Sub A()", "x", "End Sub", "Public Static Function B()", "End Function"});
    EXPECT_EQ(result.errors, (Lines{"Tab On Line: 2", "Tab On Line: 4"}));
    EXPECT_EQ(result.lines[1], "x");
}

TEST(Layout, oneLineProcedureOpensALevelThatNoLineCloses) {
    EXPECT_EQ(levels({"Sub A(): x = 1: End Sub", "y"}), (std::vector<int>{0, 1}));
}

TEST(Layout, oneLineLoopOpensALevelThatNoLineCloses) {
    EXPECT_EQ(levels({"For i = 1 To 2: x: Next", "y"}), (std::vector<int>{0, 1}));
    EXPECT_EQ(levels({"Do While a: b: Loop", "y"}), (std::vector<int>{0, 1}));
}

TEST(Layout, typeAssignedOpensALevel) {
    EXPECT_EQ(levels({"Type = 5", "x"}), (std::vector<int>{0, 1}));
}

// Ordinary lines

TEST(Layout, labelsKeepTheFirstColumn) {
    expectLayout({"Sub A()", "  On Error GoTo ErrHandler", "  x", "ErrHandler:", "  y", "End Sub"});
}

TEST(Layout, everyOrdinaryLineThatEndsInAColonKeepsTheFirstColumn) {
    expectLayout({"Sub A()", "Debug.Print a:", "' as follows:", "x = 1: y = 2:", "End Sub"});
}

TEST(Layout, aLabelWithATrailingCommentIsIndented) {
    expectLayout({"Sub A()", "  ErrHandler: ' here", "End Sub"});
}

TEST(Layout, aLabelBeforeAStatementIsIndented) {
    expectLayout({"Sub A()", "  again: x = 1", "End Sub"});
}

TEST(Layout, lineNumbersAreIndentedWithTheirLines) {
    expectLayout({"Sub A()", "  10 x = 1", "  20", "  30 If a Then", "    40 y", "  End If", "End Sub"});
}

TEST(Layout, aLineNumberHidesTheKeyBehindIt) {
    EXPECT_EQ(levels({"For i = 1 To 2", "10 Next", "x"}), (std::vector<int>{0, 1, 1}));
}

TEST(Layout, commentLinesStandAtTheCurrentLevel) {
    expectLayout({"' head", "Sub A()", "  ' If a Then", "  Rem End Sub", "  x", "End Sub", "' tail"});
}

TEST(Layout, emptyLinesBecomeRunsOfSpaces) {
    expectLayout({"", "Sub A()", "  ", "  If a Then", "    ", "  End If", "End Sub", ""});
}

TEST(Layout, continuationLinesGetNoHangingIndent) {
    EXPECT_EQ(formatted({"Sub A()", "x = 1 + _", "      2 + _", "      3", "End Sub"}),
              (Lines{"Sub A()", "  x = 1 + _", "  2 + _", "  3", "End Sub"}));
}

TEST(Layout, aContinuedHeaderOpensItsBlockAtOnce) {
    EXPECT_EQ(levels({"Public Sub A(ByVal x As Long, _", "ByVal y As Long)", "z", "End Sub"}),
              (std::vector<int>{0, 1, 1, 0}));
}

TEST(Layout, aKeyAtTheBeginOfAContinuationLineCounts) {
    EXPECT_EQ(levels({"x = y + _", "For + 1", "z"}), (std::vector<int>{0, 0, 1}));
}

TEST(Layout, nonAsciiTextGoesThroughUnchanged) {
    expectLayout({"Sub \xC4nderung()",
                  "  s = \"Gr\xF6\xDF"
                  "e\"",
                  "  ' \xE0 \x92 \xFF", "End Sub"});
}

TEST(Layout, trailingSpacesOfACutCommentAreKept) {
    FormatOptions options;
    options.bNoAllCmnt = 1;
    EXPECT_EQ(run({"Private Sub A()", "x = 1   ' note", "End Sub ' A"}, options).lines,
              (Lines{"Private Sub A()", "  x = 1   ", "End Sub "}));
}

// A cut comment may turn a line into another kind of line.
TEST(Layout, aLabelWhoseCommentWasCutEndsInASpaceAndIsIndented) {
    FormatOptions options;
    options.bNoAllCmnt = 1;
    EXPECT_EQ(run({"Private Sub A()", "Here: ' note", "There:' note", "End Sub"}, options).lines,
              (Lines{"Private Sub A()", "  Here: ", "There:", "End Sub"}));
}

TEST(Layout, aBareEndWhoseCommentWasCutIsOnlyBareWithoutSpaces) {
    FormatOptions options;
    options.bNoAllCmnt = 1;
    const Outcome result = run({"Private Sub A()", "End ' a", "End' b", "End Sub"}, options);
    EXPECT_EQ(result.lines, (Lines{"Private Sub A()", "End ", "  End", "End Sub"}));
    EXPECT_EQ(result.errors, Lines{"Tab On Line: 2"});
}

TEST(Layout, anEmptyBufferIsOneLineOfZeroSpaces) {
    const Outcome result = run({""});
    EXPECT_EQ(result.lines, Lines{""});
    EXPECT_EQ(result.result, 0);
}

TEST(Layout, noLineAtAllIsFormattedWithoutError) {
    FormatOptions options;
    options.bNoEmpty = 1;
    const Outcome result = run({"", ""}, options);
    EXPECT_EQ(result.lines, Lines{});
    EXPECT_EQ(result.result, 0);
}

TEST(Layout, anOpenBlockAtTheEndIsNoError) {
    const Outcome result = run({"Sub A()", "If a Then"});
    EXPECT_EQ(result.result, 0);
    EXPECT_EQ(result.level, 2);
}

// Tab widths

class TabWidth : public ::testing::TestWithParam<int> {};

TEST_P(TabWidth, isTheNumberOfSpacesOfEveryLevel) {
    FormatOptions options;
    options.mTab = static_cast<std::uint8_t>(GetParam());
    const std::string tab(static_cast<std::size_t>(GetParam()), ' ');
    EXPECT_EQ(run({"\tSub A()", "If a Then", "\t", "x\ty", "End If", "End Sub"}, options).lines,
              (Lines{"Sub A()", tab + "If a Then", tab + tab, tab + tab + "xy", tab + "End If", "End Sub"}));
}

INSTANTIATE_TEST_SUITE_P(Layout, TabWidth, ::testing::Values(0, 1, 2, 4, 8, 10, 255));

TEST(TabWidthDefault, isTwo) {
    EXPECT_EQ(FormatOptions{}.mTab, 2);
}

} // namespace
} // namespace corvelle::formatter
