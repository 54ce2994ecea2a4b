#include "formatter/scanner.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::formatter {
namespace {

// What a function that takes one line makes of it.
template <class Result>
struct LineCase {
    const char* name;
    std::string line;
    Result result;
};

template <class Result>
void PrintTo(const LineCase<Result>& c, std::ostream* out) {
    *out << '"' << c.line << '"';
}

template <class Result>
std::string nameOf(const ::testing::TestParamInfo<LineCase<Result>>& info) {
    return info.param.name;
}

// myTrim

class MyTrim : public ::testing::TestWithParam<LineCase<std::string>> {};

TEST_P(MyTrim, removesEveryTabAndTheSpacesAtBothEnds) {
    std::string room;
    EXPECT_EQ(Scanner::myTrim(GetParam().line, room), GetParam().result);
}

const LineCase<std::string> trimmed[]{
    {"empty", "", ""},
    {"nothingToRemove", "x = 1", "x = 1"},
    {"leadingSpaces", "    x = 1", "x = 1"},
    {"trailingSpaces", "x = 1   ", "x = 1"},
    {"leadingTabs", "\t\tx = 1", "x = 1"},
    {"trailingTabs", "x = 1\t\t", "x = 1"},
    {"spacesAndTabsMixed", " \t \tx = 1\t \t ", "x = 1"},
    {"onlySpaces", "    ", ""},
    {"onlyTabs", "\t\t", ""},
    {"onlyBlanks", " \t \t ", ""},
    {"tabBetweenWords", "x\t=\t1", "x=1"},
    {"tabBetweenSpaces", "x \t = 1", "x  = 1"},
    {"tabInALiteral", "s = \"a\tb\"", "s = \"ab\""},
    {"tabInAComment", "x = 1 '\tnote", "x = 1 'note"},
    {"innerSpacesStay", " x   =   1 ", "x   =   1"},
    {"otherBlanksStay", "\xA0x\v", "\xA0x\v"},
    {"carriageReturnStays", "x\r", "x\r"},
    {"nulStays", std::string("\0 x \0", 5), std::string("\0 x \0", 5)},
};
INSTANTIATE_TEST_SUITE_P(line, MyTrim, ::testing::ValuesIn(trimmed), nameOf<std::string>);

TEST(MyTrimRoom, isUsedAgainForTheNextLine) {
    std::string room;
    EXPECT_EQ(Scanner::myTrim("a\tlong\tline", room), "alongline");
    EXPECT_EQ(Scanner::myTrim("b\tc", room), "bc");
}

// isOnlySpace

class IsOnlySpace : public ::testing::TestWithParam<LineCase<bool>> {};

TEST_P(IsOnlySpace, holdsIfEveryCharacterIsASpace) {
    EXPECT_EQ(Scanner::isOnlySpace(GetParam().line), GetParam().result);
}

const LineCase<bool> spaces[]{
    {"empty", "", true},          {"oneSpace", " ", true},         {"someSpaces", "     ", true},
    {"tab", "\t", false},         {"spacesAndTab", "  \t", false}, {"letterAtTheEnd", "  x", false},
    {"letterFirst", "x ", false},
};
INSTANTIATE_TEST_SUITE_P(text, IsOnlySpace, ::testing::ValuesIn(spaces), nameOf<bool>);

// CheckChar

TEST(CheckChar, tellsWhetherTheCharacterAtThePositionHasTheCode) {
    EXPECT_TRUE(Scanner::CheckChar("a b", 2, 32));
    EXPECT_FALSE(Scanner::CheckChar("a b", 1, 32));
    EXPECT_FALSE(Scanner::CheckChar("a b", 3, 32));
    EXPECT_TRUE(Scanner::CheckChar("a b", 3, 'b'));
}

TEST(CheckChar, isTrueBeyondTheEndByDefault) {
    EXPECT_TRUE(Scanner::CheckChar("ab", 3, 32));
    EXPECT_TRUE(Scanner::CheckChar("ab", 1000, 32));
    EXPECT_TRUE(Scanner::CheckChar("", 1, 32));
}

TEST(CheckChar, isFalseBeyondTheEndIfTheCharacterMustBeThere) {
    EXPECT_FALSE(Scanner::CheckChar("ab", 3, 32, true));
    EXPECT_FALSE(Scanner::CheckChar("", 1, 32, true));
}

TEST(CheckChar, looksAtTheCharacterWithinTheTextWhateverMustBe) {
    EXPECT_TRUE(Scanner::CheckChar("a ", 2, 32, true));
    EXPECT_FALSE(Scanner::CheckChar("ab", 2, 32, true));
}

TEST(CheckChar, isFalseBeforeTheText) {
    EXPECT_FALSE(Scanner::CheckChar(" a", 0, 32));
    EXPECT_FALSE(Scanner::CheckChar(" a", -1, 32));
}

TEST(CheckChar, comparesCodesAbove127) {
    EXPECT_TRUE(Scanner::CheckChar("\xE4", 1, 0xE4));
    EXPECT_FALSE(Scanner::CheckChar("\xE4", 1, 0xC4));
}

// isCommentLine

class IsCommentLine : public ::testing::TestWithParam<LineCase<bool>> {};

TEST_P(IsCommentLine, tellsCommentsByTheFirstApostropheOrRem) {
    EXPECT_EQ(Scanner::isCommentLine(GetParam().line), GetParam().result);
}

const LineCase<bool> comments[]{
    {"apostropheFirst", "' note", true},
    {"apostropheAlone", "'", true},
    {"codeBeforeTheApostrophe", "x = 1 ' note", false},
    {"spaceBeforeTheApostrophe", " ' note", false},
    {"rem", "Rem note", true},
    {"remInAnyCase", "rEM note", true},
    {"remAlone", "Rem", true},
    {"remWithSpace", "Rem ", true},
    {"remark", "Remark = 1", false},
    {"remColon", "Rem: x", false},
    {"remTab", "Rem\tx", false},
    {"remWithAnApostrophe", "Rem it's done", false},
    {"remDont", "Rem don't", false},
    {"remAtTheEnd", "x Rem", false},
    {"re", "Re", false},
    {"code", "x = 1", false},
    {"empty", "", false},
    {"spaces", "   ", false},
};
INSTANTIATE_TEST_SUITE_P(line, IsCommentLine, ::testing::ValuesIn(comments), nameOf<bool>);

// SafeUncomment

class SafeUncomment : public ::testing::TestWithParam<LineCase<std::string>> {};

TEST_P(SafeUncomment, cutsTheTrailingComment) {
    EXPECT_EQ(Scanner::SafeUncomment(GetParam().line), GetParam().result);
}

const LineCase<std::string> uncommented[]{
    // Comment lines and lines without one.
    {"commentLine", "' note", ""},
    {"remLine", "Rem note", ""},
    {"remAlone", "Rem", ""},
    {"empty", "", ""},
    {"noApostrophe", "x = \"a\" & \"b\"", "x = \"a\" & \"b\""},
    {"trailingSpacesWithoutAComment", "x = 1  ", "x = 1  "},
    // Without literals the first apostrophe cuts; what stands before it stays as it is.
    {"noLiterals", "x = 1 ' note", "x = 1 "},
    {"noSpaceBeforeTheComment", "x = 1' note", "x = 1"},
    {"spacesBeforeTheCommentStay", "x = 1    ' note", "x = 1    "},
    {"spacesOnly", "   ' note", "   "},
    {"secondApostropheInTheComment", "x = 1 ' it's", "x = 1 "},
    {"remWithAnApostrophe", "Rem it's done", "Rem it"},
    {"remTrailing", "x = 1: Rem note", "x = 1: Rem note"},
    // Pairs of quotes.
    {"apostropheInTheLiteral", "s = \"it's\" ' note", "s = \"it's\" "},
    {"apostropheInTheLiteralWithoutAComment", "s = \"it's\"", "s = \"it's\""},
    {"firstOfTwoLiterals", "s = \"a'b\" & \"c\"", "s = \"a'b\" & \"c\""},
    {"quotesInTheComment", "s = \"a\" ' say \"hi\"", "s = \"a\" "},
    {"quotesInTheCommentAlone", "x = 1 ' say \"hi\"", "x = 1 "},
    {"literalBeforeTheComment", "s = \"a\" ' note", "s = \"a\" "},
    {"twoApostrophesInTheLiteral", "s = \"a'b'c\" ' note", "s = \"a'b'c\" "},
    {"literalOfAnApostrophe", "s = \"'\"", "s = \"'\""},
    {"twoLiteralsWithApostrophes", "s = \"a'b\" & \"c'd\" ' note", "s = \"a'b\" & \"c'd\" "},
    {"twoLiteralsBeforeTheComment", "s = \"a\" & \"b\" ' note", "s = \"a\" & \"b\" "},
    // One quote.
    {"openLiteralBeforeTheApostrophe", "s = \"a ' note", "s = \"a "},
    {"oneQuoteInTheComment", "x = 1 ' 3\" pipe", "x = 1 "},
    {"oneQuoteOnEachSide", "s = \"a ' b\"", "s = \"a ' b\""},
    // Where the rule cuts inside a literal.
    {"laterLiteralIsCut", "x = \"a\" & \"it's\"", "x = \"a\" & \"it"},
    {"sqlIsCut", "q = \"a\" & \"where n='\" & s & \"'\"", "q = \"a\" & \"where n="},
    {"emptyLiteralBeforeIsCut", "x = \"\" & \"it's\"", "x = \"\" & \"it"},
    {"doubledQuoteIsCut", "x = \"say \"\"it's\"\"\"", "x = \"say \"\"it"},
    {"literalAfterASkippedOneIsCut", "x = \"a'b\" & \"c\" & \"it's\"", "x = \"a'b\" & \"c\" & \"it"},
    // Bytes above 127 are ordinary characters.
    {"typographicApostrophe", "x = 1 \x92 note", "x = 1 \x92 note"},
    {"umlauts", "s = \"\xFC's\" ' \xE4", "s = \"\xFC's\" "},
};
INSTANTIATE_TEST_SUITE_P(line, SafeUncomment, ::testing::ValuesIn(uncommented), nameOf<std::string>);

TEST(SafeUncommentView, pointsIntoTheArgument) {
    const std::string_view line = "x = 1 ' note";
    EXPECT_EQ(Scanner::SafeUncomment(line).data(), line.data());
}

TEST(SafeUncommentTime, isLinearInTheNumberOfLiterals) {
    std::string line = "s = \"a'b\"";
    while (line.size() < 4'000'000) line += " & \"a'b\"";
    EXPECT_EQ(Scanner::SafeUncomment(line).size(), line.size());
}

// Check_Enum_Type

class CheckEnumType : public ::testing::TestWithParam<LineCase<bool>> {};

TEST_P(CheckEnumType, holdsBeforeASinglePlainWord) {
    const std::string& line = GetParam().line;
    const std::string_view key = line.substr(0, 5) == "Begin" ? "Begin" : "Enum";
    EXPECT_EQ(Scanner::Check_Enum_Type(line, key), GetParam().result);
}

const LineCase<bool> words[]{
    {"word", "Enum Colors", true},
    {"wordAndTrailingComment", "Enum Colors ' all", true},
    {"wordAndTrailingSpaces", "Enum Colors   ", true},
    {"spacesBeforeTheWord", "Enum   Colors", true},
    {"beginChild", "Begin Child1", true},
    {"keywordAlone", "Enum", false},
    {"keywordAndASpace", "Enum ", true},
    {"keywordAndAComment", "Enum ' all", true},
    {"noCharacterAtAll", "", false},
    {"underscoreAndDigits", "Enum my_Colors2", true},
    {"nonAsciiWord",
     "Enum Gr\xF6\xDF"
     "e",
     true},
    {"otherPunctuation", "Enum Colors;", true},
    {"twoWords", "Begin VB.Form Form1", false},
    {"oneDottedWord", "Begin VB.Form", true},
    {"plus", "Enum a+b", false},
    {"minus", "Enum a-b", false},
    {"slash", "Enum a/b", false},
    {"backslash", "Enum a\\b", false},
    {"asterisk", "Enum a*b", false},
    {"ampersand", "Enum a&", false},
    {"equalsSign", "Enum=3", false},
    {"assignment", "Enum = 3", false},
    {"openingParenthesis", "Enum(1", false},
    {"closingParenthesis", "Enum 1)", false},
};
INSTANTIATE_TEST_SUITE_P(text, CheckEnumType, ::testing::ValuesIn(words), nameOf<bool>);

TEST(CheckEnumTypeKeyword, isSkippedByItsLengthAlone) {
    EXPECT_TRUE(Scanner::Check_Enum_Type("Public Enum Colors", "Public Enum"));
    EXPECT_TRUE(Scanner::Check_Enum_Type("BeginProperty Font", "BeginProperty"));
    EXPECT_FALSE(Scanner::Check_Enum_Type("Public Enum Colors", "Public"));
    EXPECT_TRUE(Scanner::Check_Enum_Type("xxxx Colors", "Enum"));
}

TEST(CheckEnumTypeRest, isACommentOfItsOwnIfItBeginsWithRem) {
    EXPECT_TRUE(Scanner::Check_Enum_Type("EnumRem a b", "Enum"));
}

// Check_IF_THEN_

class CheckIfThen : public ::testing::TestWithParam<LineCase<int>> {};

TEST_P(CheckIfThen, tellsTheFormOfTheIf) {
    EXPECT_EQ(Scanner::Check_IF_THEN_(GetParam().line), GetParam().result);
}

const LineCase<int> ifs[]{
    // 0: no usable " Then"
    {"noThen", "If a", 0},
    {"empty", "", 0},
    {"commentLineWithoutThen", "' note", 0},
    {"thenWithoutSpaceBefore", "If (a)Then", 0},
    {"thenAtTheLinesBegin", "Then", 0},
    {"tabBeforeThen", "If a\tThen", 0},
    {"colonAfterThen", "If a Then: b", 0},
    {"letterAfterThen", "If a Thenx", 0},
    {"lastThenIsPartOfAWord", "If a Then b = Thenx", 0},
    // 1: block
    {"block", "If a Then", 1},
    {"blockInAnyCase", "iF a tHEN", 1},
    {"blockWithTrailingSpaces", "If a Then  ", 1},
    {"blockWithIndentation", "    If a Then", 1},
    {"blockBeforeAComment", "If a Then ' why", 1},
    {"blockRightBeforeAComment", "If a Then' why", 1},
    {"blockWithoutIf", "b Then", 1},
    {"elseIf", "ElseIf a Then", 1},
    {"thenOnly", " Then", 1},
    {"nestedThen", "If a Then If b Then", 1},
    {"thenInTheCommentAfterABlock", "ElseIf a Then ' Then b", 1},
    // 2: continued
    {"continued", "If a Then _", 2},
    {"continuedBeforeAComment", "If a Then _ ' why", 2},
    {"thenInTheCommentOfAContinuedLine", "x = 1 + _ ' Then", 2},
    {"underscoreEndsAName", "If a Then b_", 2},
    // 3: one line
    {"oneLine", "If a Then b = 1", 3},
    {"oneLineElse", "If a Then b = 1 Else b = 2", 3},
    {"thenInTheCommentOnly", "x = 1 ' or Then", 3},
    {"thenInTheCommentOfAOneLineIf", "If a Then b = 1 ' or Then", 3},
    {"commentLineWithThen", "' if a Then", 3},
    {"remLineWithThen", "Rem if a Then", 3},
    {"thenEndsAWordOfTheCode", "If a Then b = aThen", 1},
};
INSTANTIATE_TEST_SUITE_P(line, CheckIfThen, ::testing::ValuesIn(ifs), nameOf<int>);

// codeStarted

class CodeStarted : public ::testing::TestWithParam<LineCase<bool>> {};

TEST_P(CodeStarted, holdsForTheFirstDeclarations) {
    EXPECT_EQ(Scanner::codeStarted(GetParam().line), GetParam().result);
}

const LineCase<bool> starts[]{
    {"optionExplicit", "Option Explicit", true},
    {"optionExplicitInAnyCase", "OPTION explicit", true},
    {"optionExplicitInAComment", "' needs Option Explicit", true},
    {"optionExplicitInAWord", "xOption Explicity", true},
    {"optionExplicitWithTwoSpaces", "Option  Explicit", false},
    {"optionBase", "Option Base 1", false},
    {"dim", "Dim a As Long", true},
    {"public", "Public a As Long", true},
    {"private", "Private Sub A()", true},
    {"const", "Const a = 1", true},
    {"friend", "Friend Sub A()", true},
    {"dimInAnyCase", "dIM a", true},
    {"dimAlone", "Dim", false},
    {"dimension", "Dimension a", false},
    {"publicAlone", "Public", false},
    {"privateAlone", "Private", false},
    {"constAlone", "Const", false},
    {"friendAlone", "Friend", false},
    {"dimNotFirst", "x Dim a", false},
    {"dimTab", "Dim\ta", false},
    {"enumWord", "Enum Colors", true},
    {"enumWordBeforeAComment", "Enum Colors ' all", true},
    {"enumAlone", "Enum", false},
    {"enumAssigned", "Enum = 3", false},
    {"typeWord", "Type Point", true},
    {"typeInAnyCase", "TYPE Point", true},
    {"typeAssigned", "Type = 5", false},
    {"typeAlone", "Type", false},
    {"sub", "Sub Main()", false},
    {"static", "Static a", false},
    {"global", "Global a As Long", false},
    {"declare", "Declare Sub Sleep Lib \"kernel32\" ()", false},
    {"comment", "' Dim a", false},
    {"empty", "", false},
};
INSTANTIATE_TEST_SUITE_P(line, CodeStarted, ::testing::ValuesIn(starts), nameOf<bool>);

// getArrByteCount

TEST(GetArrByteCount, countsEveryLineAndTwoForItsEnd) {
    EXPECT_EQ(Scanner::getArrByteCount({"abc", "", "de"}), 3 + 2 + 0 + 2 + 2 + 2);
}

TEST(GetArrByteCount, isZeroForNoLine) {
    EXPECT_EQ(Scanner::getArrByteCount({}), 0);
}

} // namespace
} // namespace corvelle::formatter
