#include "formatter/vb_lexer.h"

#include <gtest/gtest.h>
#include <string>

namespace corvelle::formatter {
namespace {

using namespace std::string_view_literals;

// The tokens one after the other, each as a letter for its kind, `+` if it is glued, and its text:
// `W(x) M(=) L("a")`.
std::string tokens(std::string_view line, VbLineState before = VbLineState::Fresh) {
    VbLexer lexer(line, before);
    std::string result;
    for (VbToken token = lexer.next(); token.kind != VbTokenKind::End; token = lexer.next()) {
        if (!result.empty()) result += ' ';
        result += "EWMLNCV"[static_cast<std::size_t>(token.kind)];
        if (token.glued) result += '+';
        result += '(' + std::string(token.text) + ')';
    }
    return result;
}

VbLineState after(std::string_view line, VbLineState before = VbLineState::Fresh) {
    return VbLexer(line, before).stateAfter();
}

TEST(VbLexer, AnEmptyLineAndBlanksHoldNoToken) {
    EXPECT_EQ(tokens(""), "");
    EXPECT_EQ(tokens(" \t "), "");
    EXPECT_EQ(after(""), VbLineState::Fresh);
}

TEST(VbLexer, EndIsHandedOutAgainAndAgain) {
    VbLexer lexer("x", VbLineState::Fresh);
    EXPECT_EQ(lexer.next().kind, VbTokenKind::Word);
    EXPECT_EQ(lexer.next().kind, VbTokenKind::End);
    EXPECT_EQ(lexer.next().kind, VbTokenKind::End);
}

TEST(VbLexer, WordsAreLettersDigitsUnderscoresAndBytesAbove127) {
    EXPECT_EQ(tokens("Dim my_Var2 As\tLong"), "W(Dim) W(my_Var2) W(As) W(Long)");
    EXPECT_EQ(tokens("\xC4nderung=\xFF\x80z"), "W(\xC4nderung) M(=) W(\xFF\x80z)");
}

TEST(VbLexer, AWordEndsWithItsLineWhateverFollowsInMemory) {
    EXPECT_EQ(tokens("abc"sv.substr(0, 2)), "W(ab)");
}

TEST(VbLexer, EveryOtherByteIsAMarkOfItsOwn) {
    EXPECT_EQ(tokens("a<>(b):=c\\d"), "W(a) M(<) M(>) M(() W(b) M()) M(:) M(=) W(c) M(\\) W(d)");
    EXPECT_EQ(tokens("a\0\x01"sv), "W(a) M(\0) M(\x01)"sv);
}

TEST(VbLexer, ALiteralRunsToItsClosingQuoteAndDoubledQuotesStandForOne) {
    EXPECT_EQ(tokens(R"(x = "a" & "it's")"), R"(W(x) M(=) L("a") M(&) L("it's"))");
    EXPECT_EQ(tokens(R"("say ""hi"" 'now" 'c)"), R"(L("say ""hi"" 'now") C(c))");
    EXPECT_EQ(tokens(R"("" """" "a" "b")"), R"(L("") L("""") L("a") L("b"))");
}

TEST(VbLexer, AnOpenLiteralRunsToTheLinesEndTrailingBlanksIncluded) {
    EXPECT_EQ(tokens("x = \"a'b \t"), "W(x) M(=) L(\"a'b \t)");
    EXPECT_EQ(tokens("x = \""), "W(x) M(=) L(\")");
    EXPECT_EQ(tokens("\"a\"\""), "L(\"a\"\")");
}

TEST(VbLexer, AnOpenLiteralTakesInTheJoiningMarkAndTheNextLineIsJoined) {
    EXPECT_EQ(tokens("x = \"a _ "), "W(x) M(=) L(\"a _ )");
    EXPECT_EQ(after("x = \"a _ "), VbLineState::Statement);
    EXPECT_EQ(after("x = \"a_"), VbLineState::Fresh);
}

TEST(VbLexer, ANameInBracketsMayHoldQuotesAndApostrophes) {
    EXPECT_EQ(tokens("[a'b] = [c\"d] 'e"), "N([a'b]) M(=) N([c\"d]) C(e)");
    EXPECT_EQ(tokens("x = [a 'b "), "W(x) M(=) N([a 'b )");
    EXPECT_EQ(tokens("[]x]"), "N([]) W(x) M(])");
    EXPECT_EQ(tokens("x.[y][z]"), "W(x) M+(.) N+([y]) N([z])");
}

TEST(VbLexer, ABracketByteBehindAByteAbove127IsPartOfTheLetter) {
    EXPECT_EQ(tokens("\x83[\x83\x5E'b]"), "W(\x83[\x83) M(^) C(b])");
    EXPECT_EQ(tokens("\x83 [a'b]"), "W(\x83) N([a'b])");
}

TEST(VbLexer, AnApostropheBeginsAComment) {
    EXPECT_EQ(tokens("x = 1 '  a \"b\" 'c \t"), "W(x) M(=) W(1) C(a \"b\" 'c)");
    EXPECT_EQ(tokens("'"), "C()");
    EXPECT_EQ(after("x = 1 ' note"), VbLineState::Fresh);
}

TEST(VbLexer, RemAsAWordBeginsAComment) {
    EXPECT_EQ(tokens("Rem it's \"so\""), "C(it's \"so\")");
    EXPECT_EQ(tokens("rEM\ta"), "C(a)");
    EXPECT_EQ(tokens("REM"), "C()");
    EXPECT_EQ(tokens("x = 1: Rem a"), "W(x) M(=) W(1) M(:) C(a)");
    EXPECT_EQ(tokens("If a Then Rem b"), "W(If) W(a) W(Then) C(b)");
    EXPECT_EQ(tokens("Else Rem b"), "W(Else) C(b)");
    EXPECT_EQ(tokens("10 Rem b"), "W(10) C(b)");
    EXPECT_EQ(tokens("x =:Rem b"), "W(x) M(=) M(:) C(b)");
}

TEST(VbLexer, RemWhereNoStatementBeginsIsNoComment) {
    EXPECT_EQ(tokens("x = 1 Rem a"), "W(x) M(=) W(1) W(Rem) W(a)");
    EXPECT_EQ(tokens("x 10 Rem a"), "W(x) W(10) W(Rem) W(a)");
    EXPECT_EQ(tokens("10 20 Rem a"), "W(10) W(20) W(Rem) W(a)");
    EXPECT_EQ(tokens("f a:=Rem b"), "W(f) W(a) M(:) M(=) W(Rem) W(b)");
    EXPECT_EQ(tokens("x.Then Rem a"), "W(x) M+(.) W+(Then) W(Rem) W(a)");
    EXPECT_EQ(tokens("\"a\" Rem b"), "L(\"a\") W(Rem) W(b)");
}

TEST(VbLexer, AStatementMayBeginInTheNextLine) {
    const auto after = [](std::string_view line) { return VbLexer(line, VbLineState::Fresh).stateAfter(); };
    EXPECT_EQ(after("If a Then _"), VbLineState::Begin);
    EXPECT_EQ(after("x = 1: _"), VbLineState::Begin);
    EXPECT_EQ(after("x = 1 _"), VbLineState::Statement);
    EXPECT_EQ(tokens("Rem b", VbLineState::Begin), "C(b)");
}

TEST(VbLexer, RemInsideAWordOrBeforeAnotherByteOrAsAMemberIsNoComment) {
    EXPECT_EQ(tokens("Remark = 1"), "W(Remark) M(=) W(1)");
    EXPECT_EQ(tokens("Rem_ b"), "W(Rem_) W(b)");
    EXPECT_EQ(tokens("aRem b"), "W(aRem) W(b)");
    EXPECT_EQ(tokens("Rem\xE9 b"), "W(Rem\xE9) W(b)");
    EXPECT_EQ(tokens("Rem: b"), "W(Rem) M(:) W(b)");
    EXPECT_EQ(tokens("x.Rem b"), "W(x) M+(.) W+(Rem) W(b)");
    EXPECT_EQ(tokens("x.y Rem b"), "W(x) M+(.) W+(y) W(Rem) W(b)");
    EXPECT_EQ(tokens("x! Rem b"), "W(x) M+(!) W(Rem) W(b)");
    EXPECT_EQ(tokens("[Rem] b"), "N([Rem]) W(b)");
    EXPECT_EQ(tokens("\"Rem b\""), "L(\"Rem b\")");
}

TEST(VbLexer, ACommentIsPlacedByItsMark) {
    VbLexer apostrophe("x  ' a", VbLineState::Fresh);
    apostrophe.next();
    EXPECT_EQ(apostrophe.next().position, 3u);
    VbLexer rem(" Rem a", VbLineState::Fresh);
    EXPECT_EQ(rem.next().position, 1u);
}

TEST(VbLexer, ABlankAndAnUnderscoreAtTheEndJoinTheNextLine) {
    EXPECT_EQ(tokens("x = a + _"), "W(x) M(=) W(a) M(+)");
    EXPECT_EQ(after("x = a + _"), VbLineState::Statement);
    EXPECT_EQ(after("x = a +\t_"), VbLineState::Statement);
    EXPECT_EQ(after("x = a + _ \t"), VbLineState::Statement);
    EXPECT_EQ(after("_"), VbLineState::Begin);
    EXPECT_EQ(tokens("\t_ "), "");
    EXPECT_EQ(after("\t_ "), VbLineState::Begin);
}

TEST(VbLexer, AnUnderscoreThatIsPartOfSomethingElseJoinsNothing) {
    EXPECT_EQ(tokens("x = a_"), "W(x) M(=) W(a_)");
    EXPECT_EQ(after("x = a_"), VbLineState::Fresh);
    EXPECT_EQ(after("x = a +_"), VbLineState::Fresh);
    EXPECT_EQ(after("x = _ 1"), VbLineState::Fresh);
    EXPECT_EQ(after("x = \"a _\""), VbLineState::Fresh);
    EXPECT_EQ(after("'_"), VbLineState::Fresh);
}

TEST(VbLexer, ACommentIsCarriedOnToTheNextLine) {
    EXPECT_EQ(tokens("x = 1 ' a _"), "W(x) M(=) W(1) C(a)");
    EXPECT_EQ(after("x = 1 ' a _"), VbLineState::Comment);
    EXPECT_EQ(after("Rem _"), VbLineState::Comment);
    EXPECT_EQ(tokens(" y = \"2  ", VbLineState::Comment), "C(y = \"2)");
    EXPECT_EQ(after("y = 2", VbLineState::Comment), VbLineState::Fresh);
    EXPECT_EQ(after("y = 2 _", VbLineState::Comment), VbLineState::Comment);
    EXPECT_EQ(tokens("", VbLineState::Comment), "C()");
    EXPECT_EQ(after("", VbLineState::Comment), VbLineState::Fresh);
}

TEST(VbLexer, AMemberNamedRemMayStandInTheNextLine) {
    EXPECT_EQ(after("x. _"), VbLineState::Member);
    EXPECT_EQ(tokens("Rem b", VbLineState::Member), "W(Rem) W(b)");
    EXPECT_EQ(tokens("Rem b", VbLineState::Statement), "W(Rem) W(b)");
    EXPECT_EQ(after(" _", VbLineState::Member), VbLineState::Member);
}

TEST(VbLexer, TellsWhatTouchesTheEndOfAnOperand) {
    EXPECT_EQ(tokens("a&b"), "W(a) M+(&) W+(b)");
    EXPECT_EQ(tokens("a &b"), "W(a) M(&) W+(b)");
    EXPECT_EQ(tokens("a& b"), "W(a) M+(&) W(b)");
    EXPECT_EQ(tokens("a & b"), "W(a) M(&) W(b)");
    EXPECT_EQ(tokens("1.5"), "W(1) M+(.) W+(5)");
    EXPECT_EQ(tokens("1 .5"), "W(1) M(.) W+(5)");
    EXPECT_EQ(tokens("f(x).y"), "W(f) M(() W(x) M()) M+(.) W+(y)");
    EXPECT_EQ(tokens("a$.b"), "W(a) M+($) M+(.) W+(b)");
    EXPECT_EQ(tokens("rs![a b]"), "W(rs) M+(!) N+([a b])");
}

TEST(VbLexer, TakesNoNoticeOfBlanksThatMeanNothing) {
    EXPECT_EQ(tokens("x=(1)"), tokens("x = ( 1 )"));
    EXPECT_EQ(tokens("x =&H10"), tokens("x = &H10"));
    EXPECT_EQ(tokens("x =.5+.y"), tokens("x = .5 + .y"));
    EXPECT_EQ(tokens("s = s &.y&\"z\""), tokens("s = s & .y& \"z\""));
}

TEST(VbLexer, ReadsDatesHexadecimalNumbersAndDirectives) {
    EXPECT_EQ(tokens("d = #1/1/2000#"), "W(d) M(=) M(#) W+(1) M(/) W(1) M(/) W(2000) M+(#)");
    EXPECT_EQ(tokens("&H10&"), "M(&) W+(H10) M+(&)");
    EXPECT_EQ(tokens("#If a Then"), "M(#) W+(If) W(a) W(Then)");
}

TEST(VbLexer, ALineWithALoneCarriageReturnIsOneToken) {
    EXPECT_EQ(tokens("  x = 1 ' a\ry = 2 "), "V(x = 1 ' a\ry = 2 )");
    EXPECT_EQ(tokens("\r"), "V(\r)");
    EXPECT_EQ(after("x\ry"), VbLineState::Fresh);
    EXPECT_EQ(after("x\ry _"), VbLineState::Verbatim);
    EXPECT_EQ(tokens(" z 'a", VbLineState::Verbatim), "V(z 'a)");
    EXPECT_EQ(tokens("a\rb", VbLineState::Comment), "V(a\rb)");
}

} // namespace
} // namespace corvelle::formatter
