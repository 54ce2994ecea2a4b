#include "formatter/token_check.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace corvelle::formatter {
namespace {

using namespace std::string_literals;

constexpr TokenCheckOptions commentsStay{false};
constexpr TokenCheckOptions commentsMayGo{true};

// What the check says of a single line; "" if it is safe.
std::string loss(std::string_view oldLine, std::string_view newText, TokenCheckOptions options = commentsStay,
                 std::int32_t spaces = 0) {
    TokenCheck check(options);
    return check.kept(oldLine, newText, spaces).value_or("");
}

std::string lossOfDropped(std::string_view oldLine, TokenCheckOptions options = commentsStay) {
    TokenCheck check(options);
    return check.dropped(oldLine).value_or("");
}

// What becomes of a module's line: its new text, or null for a line left out.
struct Step {
    std::string oldLine;
    const char* newText;
};

// The 0-based lines that are reported.
std::vector<std::size_t> unsafeLines(const std::vector<Step>& steps, TokenCheckOptions options) {
    TokenCheck check(options);
    std::vector<std::size_t> lines;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const auto& [oldLine, newText] = steps[i];
        const auto found = newText ? check.kept(oldLine, newText, 2) : check.dropped(oldLine);
        if (found) {
            EXPECT_FALSE(found->empty());
            lines.push_back(i);
        }
    }
    return lines;
}

using Lines = std::vector<std::size_t>;

TEST(TokenCheck, OtherIndentationIsSafe) {
    EXPECT_EQ(loss("\t  x = \"a\tb\" ' c\td", "x = \"a\tb\" ' c\td", commentsStay, 8), "");
    EXPECT_EQ(loss("", ""), "");
    EXPECT_EQ(loss(" \t ", "", commentsStay, 4), "");
}

TEST(TokenCheck, BlanksAtALinesEndMayGo) {
    EXPECT_EQ(loss("x = 1 \t ", "x = 1"), "");
    EXPECT_EQ(loss("x = \"a\"   ", "x = \"a\""), "");
    EXPECT_EQ(loss("x = [a]   ", "x = [a]"), "");
    EXPECT_EQ(loss("' note   ", "' note"), "");
    EXPECT_EQ(loss("x = 1  ", "x = 1  "), "");
    EXPECT_EQ(loss("x = 1 ' c", "x = 1 ", commentsMayGo), "");
}

TEST(TokenCheck, FindsBlanksLostAtTheEndOfAnOpenLiteral) {
    EXPECT_EQ(loss("x = \"a'b  ", "x = \"a'b"), "blanks at the end of the literal \"a'b");
    EXPECT_EQ(loss("x = \"a _  ", "x = \"a _"), "blanks at the end of the literal \"a _");
    EXPECT_EQ(loss("x = [a  ", "x = [a"), "blanks at the end of the name [a");
}

TEST(TokenCheck, BlanksThatMeanNothingMayGoInsideALine) {
    EXPECT_EQ(loss("x =\t1", "x =1"), "");
    EXPECT_EQ(loss("f\t(a,\tb)\t: y", "f(a,b): y"), "");
    EXPECT_EQ(loss("Const WM_USER\t=\t&H400", "Const WM_USER=&H400"), "");
    EXPECT_EQ(loss("s = s &\t\"a\"", "s = s &\"a\""), "");
    EXPECT_EQ(loss("x =\t.y +\t.5", "x =.y +.5"), "");
    EXPECT_EQ(loss("d =\t#1/1/2000#", "d =#1/1/2000#"), "");
    EXPECT_EQ(loss("x = 1\t' c", "x = 1' c"), "");
    EXPECT_EQ(loss("'\tc", "'c"), "");
}

TEST(TokenCheck, FindsATabLostInALiteral) {
    EXPECT_EQ(loss("x = \"a\tb\"", "x = \"ab\""), "a tab in the literal \"a?b\"");
    EXPECT_EQ(loss("x = \"a\"\"\t\"\"b\"", "x = \"a\"\"\"\"b\""), "a tab in the literal \"a\"\"?\"\"b\"");
    EXPECT_EQ(loss("x = \"a\tb\"", "x = \"ab\"", commentsMayGo), "a tab in the literal \"a?b\"");
}

TEST(TokenCheck, FindsATabLostInANameInBrackets) {
    EXPECT_EQ(loss("x = [a\tb]", "x = [ab]"), "a tab in the name [a?b]");
}

TEST(TokenCheck, FindsALiteralCutAtAnApostrophe) {
    EXPECT_EQ(loss("x = \"a\" & \"it's\"", "x = \"a\" & \"it", commentsMayGo),
              "the end of the literal \"it's\"");
    EXPECT_EQ(loss("sql = \"SELECT * FROM \" & t & \" WHERE n = '\" & n & \"'\"",
                   "sql = \"SELECT * FROM \" & t & \" WHERE n = ", commentsMayGo),
              "the end of the literal \" WHERE n = '\"");
    EXPECT_NE(loss("x = \"it's \"\"so\"\"\" 'c", "x = \"it", commentsMayGo), "");
}

TEST(TokenCheck, FindsTwoLiteralsThatBecomeOne) {
    EXPECT_EQ(loss("Print \"a\"\t\"b\"", "Print \"a\"\"b\""), "the blank between \"a\" and \"b\"");
}

TEST(TokenCheck, FindsWordsThatBecomeOne) {
    EXPECT_EQ(loss("Dim\tx As Long", "Dimx As Long"), "the blank between Dim and x As Long");
    EXPECT_EQ(loss("x = 10\tMod 3", "x = 10Mod 3"), "the blank between 10 and Mod 3");
    EXPECT_NE(loss("\xC4\t\xD6 = 1", "\xC4\xD6 = 1"), "");
    EXPECT_NE(loss("x = #10:00:00\tAM#", "x = #10:00:00AM#"), "");
}

TEST(TokenCheck, FindsMarksThatComeToBelongToTheirNeighbour) {
    EXPECT_EQ(loss("Print\t.x", "Print.x"), "the blank before .x");
    EXPECT_EQ(loss("x = a\t&b", "x = a&b"), "the blank before &b");
    EXPECT_NE(loss("x = a &\tHFF", "x = a &HFF"), "");
    EXPECT_NE(loss("Print 1\t.5", "Print 1.5"), "");
    EXPECT_NE(loss("Print f(1)\t.x", "Print f(1).x"), "");
    EXPECT_NE(loss("Print [a]\t!b", "Print [a]!b"), "");
    EXPECT_NE(loss("Print \"a\"\t.b", "Print \"a\".b"), "");
    EXPECT_NE(loss("Print a$\t.b", "Print a$.b"), "");
    EXPECT_NE(loss("x = a!\tb", "x = a!b"), "");
    for (const char mark : "%&!#@$."s) {
        const std::string apart = "f a\t"s + mark;
        EXPECT_NE(loss(apart, "f a"s + mark), "") << mark;
    }
}

TEST(TokenCheck, FindsBlanksAddedWhereTheyMatter) {
    EXPECT_EQ(loss("x = a.b", "x = a .b"), "a blank would be added before .b");
    EXPECT_EQ(loss("x = a.b", "x = a. b"), "a blank would be added before b");
}

TEST(TokenCheck, FindsCodeThatIsChangedCutOrAdded) {
    EXPECT_EQ(loss("x = 1: y = 2", "x = 1"), "the code : y = 2");
    EXPECT_EQ(loss("x = 1", "x = 2"), "the code 1");
    EXPECT_EQ(loss("x = 1", "X = 1"), "the code x = 1");
    EXPECT_EQ(loss("x = 1", "x = 1: y"), "code would be added: : y");
    EXPECT_EQ(loss("x = 1", ""), "the code x = 1");
    EXPECT_EQ(lossOfDropped("  x = 1"), "the code x = 1");
    EXPECT_EQ(lossOfDropped("\"a\""), "the literal \"a\"");
    EXPECT_EQ(lossOfDropped("x = 1 ' c", commentsMayGo), "the code x = 1 ' c");
}

TEST(TokenCheck, CommentsGoOnlyWhereTheyMay) {
    EXPECT_EQ(loss("x = 1 ' c", "x = 1 ", commentsMayGo), "");
    EXPECT_EQ(loss("x = 1 ' c", "x = 1 "), "the comment ' c");
    EXPECT_EQ(loss("x = 1: Rem c", "x = 1:", commentsMayGo), "");
    EXPECT_EQ(loss("x = 1: Rem c", "x = 1:"), "the comment Rem c");
    EXPECT_EQ(lossOfDropped("\t' c", commentsMayGo), "");
    EXPECT_EQ(lossOfDropped("\t' c"), "the comment ' c");
    EXPECT_EQ(lossOfDropped("Rem", commentsMayGo), "");
    EXPECT_EQ(lossOfDropped("Rem"), "the comment Rem");
    EXPECT_EQ(loss("x", "x ' c"), "a comment would be added: ' c");
}

TEST(TokenCheck, ATabInACommentMayGoOnlyWhereTheCommentMay) {
    EXPECT_EQ(loss("x = 1 ' a\tb", "x = 1 ' ab"), "a tab in the comment ' a?b");
    EXPECT_EQ(loss("x = 1 ' a\tb", "x = 1 ' ab", commentsMayGo), "");
    EXPECT_EQ(loss("Rem a\tb", "Rem ab"), "a tab in the comment Rem a?b");
    EXPECT_EQ(loss("' abc", "' ab"), "the end of the comment ' abc");
    EXPECT_EQ(loss("' abc", "' abd"), "the comment ' abc");
}

TEST(TokenCheck, FindsCommentsThatBecomeCodeAndCodeThatBecomesAComment) {
    EXPECT_EQ(loss("Rem\tc", "Remc"), "the comment Rem?c would become code");
    EXPECT_EQ(loss("Rem\tc", "Remc", commentsMayGo), "code would be added: Remc");
    EXPECT_EQ(loss("' x = 1", "x = 1", commentsMayGo), "code would be added: x = 1");
    EXPECT_EQ(loss("x = 1", "' x = 1"), "the code x = 1 would become a comment");
    EXPECT_EQ(loss("x = 1", "' x = 1", commentsMayGo), "the code x = 1");
    EXPECT_EQ(loss("x = \"a'b\"", "x = a'b\""), "the literal \"a'b\"");
}

TEST(TokenCheck, AnApostropheOrRemInsideSomethingElseIsNoComment) {
    EXPECT_NE(loss("[a'b] = 1", "[a", commentsMayGo), "");
    EXPECT_NE(loss("x = \"a'b", "x = \"a", commentsMayGo), "");
    EXPECT_NE(loss("x.Rem y", "x.", commentsMayGo), "");
    EXPECT_NE(lossOfDropped("Remark 1", commentsMayGo), "");
    EXPECT_NE(lossOfDropped("x! _", commentsMayGo), "");
    EXPECT_EQ(unsafeLines({{"x. _", "x. _"}, {"Rem y", nullptr}}, commentsMayGo), Lines{1});
}

TEST(TokenCheck, FindsAJoiningMarkThatIsLost) {
    EXPECT_EQ(loss("x = 1\t_", "x = 1_"), "the code 1?_");
    EXPECT_EQ(loss("x = a +\t_", "x = a +_"), "code would be added: _");
    EXPECT_EQ(loss("x = a + _", "x = a +"), "the mark that joins the next line");
    EXPECT_EQ(loss("' a _", "' a"), "the mark that carries the comment on to the next line");
    EXPECT_EQ(loss("'\t_", "'_"), "the comment '?_");
}

TEST(TokenCheck, FindsANextLineThatWouldComeToMeanSomethingElse) {
    EXPECT_EQ(loss("x ' a", "x ' a _", commentsMayGo),
              "the end of the comment: the next line would become part of it");
    EXPECT_EQ(loss("x ' a _", "x _", commentsMayGo),
              "the comment that goes on: the next line would become code");
    EXPECT_EQ(loss("x", "x _", commentsMayGo),
              "the end of the statement: the next line would be joined to it");
}

TEST(TokenCheck, BlanksBehindAJoiningMarkMayGo) {
    EXPECT_EQ(unsafeLines({{"x = a + _ \t", "x = a + _"}, {"b", "b"}, {"", nullptr}}, commentsStay), Lines{});
}

TEST(TokenCheck, FindsAnEmptyLineDroppedBehindAJoiningMark) {
    EXPECT_EQ(unsafeLines({{"x = a _ ", "x = a _ "}, {"", nullptr}, {"y = 1", "y = 1"}}, commentsStay),
              Lines{1});
    EXPECT_EQ(
        unsafeLines({{"x = a _", "x = a _"}, {"", nullptr}, {"y = 1", "y = 1"}, {"", nullptr}}, commentsStay),
        Lines{1});
    EXPECT_EQ(unsafeLines({{"' a _", "' a _"}, {" ", nullptr}, {"y = 1", "y = 1"}}, commentsMayGo), Lines{1});
    EXPECT_EQ(unsafeLines({{"x = a _", "x = a _"}, {" ", ""}, {"y = 1", "y = 1"}}, commentsStay), Lines{});
}

TEST(TokenCheck, FindsACommentLineDroppedBehindAJoiningMark) {
    EXPECT_EQ(unsafeLines({{"x = a _", "x = a _"}, {"' c", nullptr}, {"y = 1", "y = 1"}}, commentsMayGo),
              Lines{1});
}

TEST(TokenCheck, FindsTheRestOfARemovedCommentThatBecomesCode) {
    EXPECT_EQ(unsafeLines({{"' a _", nullptr}, {"b", "b"}, {"y", "y"}}, commentsMayGo), Lines{1});
    EXPECT_EQ(unsafeLines({{"x = 1 ' a _", "x = 1 "}, {"b", "b"}, {"y", "y"}}, commentsMayGo), Lines{1});
    EXPECT_EQ(unsafeLines({{"Rem a _", nullptr}, {"b _", "b _"}, {"c", "c"}}, commentsMayGo), Lines{1});
    EXPECT_EQ(unsafeLines({{"' a _", nullptr}, {"_", "_"}, {"c", "c"}}, commentsMayGo), Lines{1});

    TokenCheck check(commentsMayGo);
    check.dropped("' a _");
    EXPECT_EQ(check.kept("  b = 1", "b = 1", 0), "the comment b = 1 would become code");
}

TEST(TokenCheck, ACommentOverSeveralLinesMayGoAsAWhole) {
    EXPECT_EQ(unsafeLines({{"' f(a, _", nullptr}, {"'   b)", nullptr}, {"y", "y"}}, commentsMayGo), Lines{});
    EXPECT_EQ(
        unsafeLines({{"x ' a _", "x "}, {"' b _", nullptr}, {"' c", nullptr}, {"y", "y"}}, commentsMayGo),
        Lines{});
    EXPECT_EQ(unsafeLines({{"' a _", nullptr}, {"'b", "'b"}, {"", nullptr}}, commentsMayGo), Lines{});
    EXPECT_EQ(unsafeLines({{"' a _", nullptr}, {"", ""}, {"y", "y"}}, commentsMayGo), Lines{});
    EXPECT_EQ(unsafeLines({{"' a _", nullptr}, {"'b _", "'b _"}, {"c", "c"}, {"y", "y"}}, commentsMayGo),
              Lines{});
}

TEST(TokenCheck, ACommentOverSeveralLinesThatStaysIsComparedLineByLine) {
    EXPECT_EQ(
        unsafeLines({{"' a _", "' a _"}, {"\tx = \"b\tc _", "x = \"b\tc _"}, {"it's", "it's"}}, commentsStay),
        Lines{});
    EXPECT_EQ(unsafeLines({{"' a _", "' a _"}, {"b\tc", "bc"}, {"x\ty", "xy"}}, commentsStay), (Lines{1, 2}));
    EXPECT_EQ(unsafeLines({{"' a _", "' a _"}, {"b\tc", "bc"}, {"x\ty", "xy"}}, commentsMayGo), (Lines{2}));
    EXPECT_EQ(unsafeLines({{"' a _", nullptr}, {"b", "b"}}, commentsStay), Lines{0});
}

TEST(TokenCheck, OneFaultIsOneReport) {
    EXPECT_EQ(unsafeLines({{"x = a +\t_", "x = a +_"}, {"b\"c", "b\"c"}, {"", nullptr}}, commentsStay),
              Lines{0});
    EXPECT_EQ(unsafeLines({{"x = a _", nullptr}, {"b", "b"}, {"y", "y"}}, commentsStay), Lines{0});
    EXPECT_EQ(unsafeLines({{"x = 1", "x = 1 _"}, {"' c", "' c"}, {"y", "y"}}, commentsStay), Lines{0});
    EXPECT_EQ(unsafeLines({{"x = a _", "x = a _"}, {"", nullptr}, {"", nullptr}}, commentsStay), Lines{1});
}

TEST(TokenCheck, ALineMayNotNewlyBeLongerThanTheIdeTakes) {
    const std::string code(1000, 'x');
    EXPECT_EQ(loss(code, code, commentsStay, 23), "");
    EXPECT_EQ(loss(code, code, commentsStay, 24),
              "the end of the line: it would have 1024 bytes, the IDE takes 1023");
    EXPECT_EQ(loss("  " + code + "\t", code, commentsStay, 24),
              "the end of the line: it would have 1024 bytes, the IDE takes 1023");
    EXPECT_NE(loss(code + " _", code + " _", commentsStay, 24), "");

    const std::string longer(1024, 'x');
    EXPECT_EQ(loss(longer, longer, commentsStay, 0), "");
    EXPECT_EQ(loss(longer, longer, commentsStay, 30000), "");
    EXPECT_EQ(loss(std::string(24, ' ') + code, code, commentsStay, 100), "");
    EXPECT_NE(loss(std::string(23, ' ') + code, code, commentsStay, 100), "");
}

TEST(TokenCheck, ALongLineLeavesTheNextOnesAlone) {
    const std::string code = std::string(1020, 'x') + " _";
    EXPECT_EQ(unsafeLines({{code, code.c_str()}, {"y _", "y _"}, {"", nullptr}, {"z", "z"}}, commentsStay),
              (Lines{0, 2}));
}

TEST(TokenCheck, NothingOfALineWithALoneCarriageReturnMayGo) {
    EXPECT_EQ(loss("  x = 1 ' a\ry = 2", "x = 1 ' a\ry = 2", commentsMayGo), "");
    EXPECT_EQ(loss("x = 1 ' a\ry = 2", "x = 1 ", commentsMayGo),
              "the line with a lone carriage return x = 1 ' a?y = 2");
    EXPECT_NE(loss("x = 1 ' a\ry = 2", "x = 1 ' a\r", commentsMayGo), "");
    EXPECT_NE(lossOfDropped("' a\ry = 2", commentsMayGo), "");
    EXPECT_NE(lossOfDropped("\r", commentsMayGo), "");
    EXPECT_EQ(loss("x = 1\r", "x = 1\r"), "");
    EXPECT_EQ(loss("x = 1\r  ", "x = 1\r"), "");
    EXPECT_NE(loss("x\r\"a  ", "x\r\"a"), "");
    EXPECT_EQ(unsafeLines({{"' a\rx _", "' a\rx _"}, {"' b", nullptr}, {"y\tz", "yz"}}, commentsMayGo),
              (Lines{1, 2}));
    EXPECT_EQ(unsafeLines({{"' a _", nullptr}, {"' b\rx", "' b\rx"}}, commentsMayGo), Lines{1});
    EXPECT_EQ(unsafeLines({{"' a _", nullptr}, {"' b\rx", nullptr}}, commentsMayGo), Lines{1});
}

TEST(TokenCheck, BytesOfAnyValuePassThrough) {
    std::string line;
    for (int c = 1; c < 256; ++c) {
        if (c != '\n' && c != '\r') line += static_cast<char>(c);
    }
    line += "\0\0x"s;
    EXPECT_EQ(loss("\t" + line, line), "");
    EXPECT_NE(loss("a\0"s, "a"), "");
    EXPECT_NE(lossOfDropped("\0"s), "");
    EXPECT_NE(loss("x = \"\x83\t\"", "x = \"\x83\""), "");
}

TEST(TokenCheck, AMessageIsShortAndOneLine) {
    const std::string longest(60, 'a');
    EXPECT_EQ(lossOfDropped(longest), "the code " + longest);
    EXPECT_EQ(lossOfDropped(longest + "b"), "the code " + longest + "...");
    const std::string code = "f \"" + std::string(5000, 'a') + "\"";
    for (const char* start : {"", "' ", "[", "\r\x07", "\x01\x02\x1F\x7F", "\"a\" ", "x _ '"}) {
        const std::string line = start + code;
        const std::string message = lossOfDropped(line);
        EXPECT_LT(message.size(), 120u);
        EXPECT_EQ(message.find_first_of("\x01\x02\x07\x1F\x7F\r\n\t"), std::string::npos) << message;
    }
    EXPECT_EQ(loss("x\x01\t= \"a\x02\tb\"", "x\x01= \"a\x02\x62\""), "a tab in the literal \"a??b\"");
}

std::string repeated(std::string_view piece, std::size_t size) {
    std::string text;
    while (text.size() < size) text += piece;
    return text;
}

// A quadratic reading of these lines would not end within the test's time.
TEST(TokenCheck, VeryLongLinesTakeLinearTime) {
    const std::string code = repeated("\"a\tb\" & [c'd] ", 10'000'000);
    EXPECT_EQ(loss(code + "\"a\tb\"", code + "\"ab\""), "a tab in the literal \"a?b\"");
    EXPECT_EQ(loss("\t" + code, code), "");
    for (const char* piece : {"\"", "[", "a.", "'", "_ ", " _", "\t", "a\t'\"", "\x83[", "\r "}) {
        const std::string line = repeated(piece, 1'000'000);
        EXPECT_EQ(loss(line + ".", line + "."), "") << piece;
        EXPECT_NE(loss(line + "x", line + "y"), "") << piece;
        EXPECT_NE(lossOfDropped(line + "x"), "") << piece;
    }
    EXPECT_EQ(loss("x = \"" + repeated("a\t", 1'000'000) + "\"", "x = \"" + std::string(500'000, 'a') + "\""),
              "a tab in the literal \"a" + repeated("?a", 58) + "...");
}

} // namespace
} // namespace corvelle::formatter
