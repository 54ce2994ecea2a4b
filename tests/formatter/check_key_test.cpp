#include "formatter/scanner.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string>

namespace corvelle::formatter {
namespace {

// A line and what CheckKey makes of it. `index` is a start key's or an end key's, by `key`.
struct KeyCase {
    const char* name;
    std::string line;
    Key key;
    int index;
};

void PrintTo(const KeyCase& c, std::ostream* out) {
    *out << '"' << c.line << '"';
}

std::string nameOf(const ::testing::TestParamInfo<KeyCase>& info) {
    return info.param.name;
}

constexpr int none = -1; // no index is recorded

class CheckKey : public ::testing::TestWithParam<KeyCase> {};

TEST_P(CheckKey, classifiesTheLineAndRecordsTheIndexOfThatKindAlone) {
    Scanner scanner;
    scanner.startKeyIndex = 99;
    scanner.endKeyIndex = 99;
    EXPECT_EQ(scanner.CheckKey(GetParam().line), GetParam().key);
    EXPECT_EQ(scanner.startKeyIndex, GetParam().key == KeyStart ? GetParam().index : 99);
    EXPECT_EQ(scanner.endKeyIndex, GetParam().key == KeyEnd ? GetParam().index : 99);
}

const KeyCase startRows[]{
    {"Sub_0", "Sub Main()", KeyStart, 0},
    {"Function_1", "Function Total(a) As Long", KeyStart, 1},
    {"Property_2", "Property Get Name() As String", KeyStart, 2},
    {"PrivateSub_3", "Private Sub Form_Load()", KeyStart, 3},
    {"PrivateFunction_4", "Private Function Ask() As Boolean", KeyStart, 4},
    {"PublicSub_6", "Public Sub Show()", KeyStart, 6},
    {"PublicFunction_7", "Public Function Area() As Double", KeyStart, 7},
    {"PublicProperty_8", "Public Property Let Name(v As String)", KeyStart, 8},
    {"FriendSub_9", "Friend Sub Notify()", KeyStart, 9},
    {"FriendFunction_10", "Friend Function Peek() As Long", KeyStart, 10},
    {"FriendProperty_11", "Friend Property Set Owner(v As Object)", KeyStart, 11},
    {"For_12", "For i = 1 To 10", KeyStart, 12},
    {"ForEach_12", "For Each c In Controls", KeyStart, 12},
    {"Do_13", "Do Until x", KeyStart, 13},
    {"DoWhileIsShadowedByDo_13", "Do While x", KeyStart, 13},
    {"While_14", "While Not rs.EOF", KeyStart, 14},
    {"Select_15", "Select Case x", KeyStart, 15},
    {"Case_16", "Case 1 To 5", KeyStart, 16},
    {"With_17", "With Me.Font", KeyStart, 17},
    {"Begin_19", "Begin Child1", KeyStart, 19},
    {"BeginProperty_20", "BeginProperty Font", KeyStart, 20},
    {"Enum_21", "Enum Colors", KeyStart, 21},
    {"PrivateEnum_22", "Private Enum Colors", KeyStart, 22},
    {"PublicEnum_23", "Public Enum Colors", KeyStart, 23},
    {"Type_24", "Type Point", KeyStart, 24},
    {"PrivateType_25", "Private Type Point", KeyStart, 25},
    {"PublicType_26", "Public Type Point", KeyStart, 26},
    {"BlockIf_27", "If a Then", KeyStart, 27},
};
INSTANTIATE_TEST_SUITE_P(startKey, CheckKey, ::testing::ValuesIn(startRows), nameOf);

const KeyCase endRows[]{
    {"EndSub_0", "End Sub", KeyEnd, 0},
    {"EndFunction_1", "End Function", KeyEnd, 1},
    {"EndProperty_2", "End Property", KeyEnd, 2},
    {"Else_3", "Else", KeyEnd, 3},
    {"Next_4", "Next i", KeyEnd, 4},
    {"Loop_5", "Loop Until x", KeyEnd, 5},
    {"Wend_6", "Wend", KeyEnd, 6},
    {"EndIf_7", "End If", KeyEnd, 7},
    {"EndSelect_8", "End Select", KeyEnd, 8},
    {"EndWith_9", "End With", KeyEnd, 9},
    {"EndPropertyInOneWord_10", "EndProperty", KeyEnd, 10},
    {"End_11", "End", KeyEnd, 11},
    {"EndEnum_11", "End Enum", KeyEnd, 11},
    {"EndType_11", "End Type", KeyEnd, 11},
    {"ElseIf_12", "ElseIf a Then", KeyEnd, 12},
};
INSTANTIATE_TEST_SUITE_P(endKey, CheckKey, ::testing::ValuesIn(endRows), nameOf);

const KeyCase noKeys[]{
    {"emptyLine", "", KeyNone, none},
    {"lineOfSpaces", "     ", KeyNone, none},
    {"commentLine", "' Sub Main()", KeyNone, none},
    {"commentLineAfterSpaces", "   ' Sub Main()", KeyNone, none},
    {"remLine", "Rem Sub Main()", KeyNone, none},
    {"remAlone", "Rem", KeyNone, none},
    {"assignment", "x = 1", KeyNone, none},
    {"call", "Call Refresh", KeyNone, none},
    {"declaration", "Dim a As Long", KeyNone, none},
};
INSTANTIATE_TEST_SUITE_P(noKey, CheckKey, ::testing::ValuesIn(noKeys), nameOf);

const KeyCase aKeyIsAWholeWord[]{
    {"subAlone", "Sub", KeyStart, 0},
    {"loopAlone", "Loop", KeyEnd, 5},
    {"wendAlone", "Wend", KeyEnd, 6},
    {"doAlone", "Do", KeyStart, 13},
    {"nextAlone", "Next", KeyEnd, 4},
    {"subtotal", "Subtotal = 1", KeyNone, none},
    {"nextval", "Nextval = 2", KeyNone, none},
    {"double", "Double1 = 2", KeyNone, none},
    {"form", "Form.Caption = s", KeyNone, none},
    {"caseColon", "Case: x = 1", KeyNone, none},
    {"endColon", "End: x = 1", KeyNone, none},
    {"doColon", "Do: Loop", KeyNone, none},
    {"nextColon", "Next: x = 1", KeyNone, none},
    {"endSubColon", "End Sub: x", KeyEnd, 11}, // "End" and a space
    {"wendTab", "Wend\tx", KeyNone, none},     // a tab is no space
    {"typeAssigned", "Type = 5", KeyStart, 24},
    {"forFollowedByTwoSpaces", "For  i = 1 To 2", KeyStart, 12},
    {"privateSubWithTwoSpaces", "Private  Sub A()", KeyNone, none},
    {"endIfWithTwoSpaces", "End  If", KeyEnd, 11},
    {"keyInTheMiddle", "x = Next", KeyNone, none},
};
INSTANTIATE_TEST_SUITE_P(wholeWord, CheckKey, ::testing::ValuesIn(aKeyIsAWholeWord), nameOf);

const KeyCase surroundings[]{
    {"upperCase", "PRIVATE SUB A()", KeyStart, 3},
    {"lowerCase", "private sub a()", KeyStart, 3},
    {"endIfInAnyCase", "eNd iF", KeyEnd, 7},
    {"thenInAnyCase", "if a tHEN", KeyStart, 27},
    {"leadingSpaces", "    Next", KeyEnd, 4},
    {"trailingSpaces", "Next    ", KeyEnd, 4},
    {"leadingTabHidesTheKey", "\tNext", KeyNone, none},
    {"trailingComment", "Next ' item", KeyEnd, 4},
    {"commentRightAfterTheKey", "Next' item", KeyEnd, 4},
    {"endSelectBeforeAComment", "End Select 'x", KeyEnd, 8},
    {"keyAfterALiteralWithAnApostrophe", "s = \"it's\" ' Next", KeyNone, none},
    {"caseWithAQuotedApostrophe", "Case \"'\"", KeyStart, 16},
    {"noBreakSpaceIsNoSpace", "Next\xA0i", KeyNone, none},
    {"nonAsciiName", "For \xFC = 1 To 2", KeyStart, 12},
};
INSTANTIATE_TEST_SUITE_P(aroundTheKey, CheckKey, ::testing::ValuesIn(surroundings), nameOf);

const KeyCase missingEntries[]{
    {"privatePropertyGet", "Private Property Get Name() As String", KeyNone, none},
    {"privatePropertyLet", "Private Property Let X(v)", KeyNone, none},
    {"privatePropertySet", "Private Property Set X(v)", KeyNone, none},
    {"staticSub", "Static Sub Count()", KeyNone, none},
    {"staticFunction", "Static Function Count()", KeyNone, none},
    {"publicStaticFunction", "Public Static Function Count()", KeyNone, none},
    {"privateStaticSub", "Private Static Sub Count()", KeyNone, none},
    {"hashElse", "#Else", KeyNone, none},
    {"hashEndIf", "#End If", KeyNone, none},
    {"thenEntryIsNeverSearched", "Then", KeyNone, none},
};
INSTANTIATE_TEST_SUITE_P(noEntryFor, CheckKey, ::testing::ValuesIn(missingEntries), nameOf);

const KeyCase plainWordKeys[]{
    {"beginWithClassAndName", "Begin VB.Form Form1", KeyNone, none},
    {"beginAlone", "Begin", KeyNone, none},
    {"beginPropertyAlone", "BeginProperty", KeyNone, none},
    {"beginPropertyWithTwoWords", "BeginProperty Font {0BE35203}", KeyNone, none},
    {"enumAlone", "Enum", KeyNone, none},
    {"enumAssigned", "Enum = 3", KeyNone, none},
    {"privateEnumAlone", "Private Enum", KeyNone, none},
    {"publicEnumAlone", "Public Enum", KeyNone, none},
    {"enumBeforeAComment", "Enum Colors ' all of them", KeyStart, 21},
    {"enumAloneBeforeAComment", "Enum ' all of them", KeyNone, none},
    // The failed condition ends the search: the later tests never see the line.
    {"failedConditionEndsTheSearch", "Enum Colors Then", KeyNone, none},
    {"failedConditionEndsTheSearchForBegin", "Begin a Then", KeyNone, none},
};
INSTANTIATE_TEST_SUITE_P(beforeAPlainWord, CheckKey, ::testing::ValuesIn(plainWordKeys), nameOf);

const KeyCase elseForms[]{
    {"elseColon", "Else: x = 1", KeyNone, none},       {"elseSpaceColon", "Else : x = 1", KeyEnd, 3},
    {"elseAndAStatement", "Else x = 1", KeyEnd, 3},    {"elseSpaceIf", "Else If a Then", KeyEnd, 3},
    {"caseElse", "Case Else", KeyStart, 16},           {"elseIfOneLine", "ElseIf a Then b = 1", KeyEnd, 12},
    {"elseIfContinued", "ElseIf a And _", KeyEnd, 12},
};
INSTANTIATE_TEST_SUITE_P(elseForm, CheckKey, ::testing::ValuesIn(elseForms), nameOf);

const KeyCase ifForms[]{
    {"oneLine", "If a Then b = 1", KeyNone, none},
    {"continued", "If a Then _", KeyNone, none},
    {"trailingComment", "If a Then ' why", KeyStart, 27},
    {"trailingCommentWithoutSpace", "If a Then' why", KeyStart, 27},
    {"thenInTheCommentOnly", "x = 1 ' or Then", KeyNone, none},
    {"thenInTheCommentToo", "If a Then ' and Then", KeyStart, 27},
    {"oneLineWithThenInTheComment", "If a Then b = 1 ' or Then", KeyNone, none},
    {"conditionalCompilation", "#If DEBUG Then", KeyStart, 27},
    {"conditionalCompilationElseIf", "#ElseIf DEBUG Then", KeyStart, 27},
    {"secondLineOfACondition", "b Then", KeyStart, 27},
    {"thenFollowedByColon", "If a Then: b", KeyNone, none},
    {"thenAsPartOfAWord", "If a Thenx", KeyNone, none},
    {"withoutSpaceBeforeThen", "If (a)Then", KeyNone, none},
    {"lineNumber", "10 If a Then", KeyStart, 27},
    {"literalWithThen", "If a = \" Then\" Then", KeyStart, 27},
    {"twoOfThem", "If a Then If b Then", KeyStart, 27},
};
INSTANTIATE_TEST_SUITE_P(ifForm, CheckKey, ::testing::ValuesIn(ifForms), nameOf);

TEST(CheckKeyState, bothIndicesStartAtZero) {
    const Scanner scanner;
    EXPECT_EQ(scanner.startKeyIndex, 0);
    EXPECT_EQ(scanner.endKeyIndex, 0);
}

TEST(CheckKeyState, startKeyIndexKeepsItsValueUntilTheNextBlockStart) {
    Scanner scanner;
    scanner.CheckKey("Select Case x");
    scanner.CheckKey("End If");
    scanner.CheckKey("x = 1");
    scanner.CheckKey("");
    EXPECT_EQ(scanner.startKeyIndex, 15);
    scanner.CheckKey("If a Then");
    EXPECT_EQ(scanner.startKeyIndex, 27);
}

TEST(CheckKeyState, endKeyIndexKeepsItsValueUntilTheNextBlockEnd) {
    Scanner scanner;
    scanner.CheckKey("End Select");
    scanner.CheckKey("If a Then");
    scanner.CheckKey("x = 1");
    EXPECT_EQ(scanner.endKeyIndex, 8);
    scanner.CheckKey("Wend");
    EXPECT_EQ(scanner.endKeyIndex, 6);
}

TEST(CheckKeyState, aKeyThatFailsItsConditionRecordsNothing) {
    Scanner scanner;
    scanner.CheckKey("For i = 1 To 2");
    scanner.CheckKey("Enum = 3");
    EXPECT_EQ(scanner.startKeyIndex, 12);
}

TEST(CheckKeyState, loadingTheTablesAgainChangesNothing) {
    Scanner scanner;
    scanner.LoadKeys_VB();
    EXPECT_EQ(scanner.CheckKey("Private Sub A()"), KeyStart);
    EXPECT_EQ(scanner.startKeyIndex, 3);
}

TEST(CheckKeyResult, hasTheNumbersThatTheRulesGiveIt) {
    EXPECT_EQ(static_cast<int>(KeyNone), 0);
    EXPECT_EQ(static_cast<int>(KeyStart), 1);
    EXPECT_EQ(static_cast<int>(KeyEnd), 2);
}

} // namespace
} // namespace corvelle::formatter
