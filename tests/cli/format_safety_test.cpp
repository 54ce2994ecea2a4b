// Lines that the formatter's rules would harm: reported, and their modules left alone.

#include "cli/format_fixture.h"

namespace corvelle::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class Safety : public FormatTest {
  protected:
    // The module is refused for one line: reported there, neither written nor listed nor shown, unless
    // forced.
    void expectUnsafe(const std::string& module, int line, const std::string& loss,
                      const std::vector<std::string>& options = {}) {
        for (const char* mode : {"--quiet", "--check", "--diff", "--stdout"}) {
            folder.write("a.bas", module);
            std::vector<std::string> arguments{"--quiet", mode, "a.bas"};
            arguments.insert(arguments.end(), options.begin(), options.end());
            const Outcome outcome = format(arguments);
            EXPECT_EQ(outcome.status, 1) << mode;
            EXPECT_THAT(outcome.err, StartsWith("a.bas:" + std::to_string(line) + ": unsafe: " + loss))
                << mode;
            EXPECT_EQ(outcome.out, "") << mode;
            EXPECT_EQ(folder.read("a.bas"), module) << mode;
            arguments.push_back("--force");
            EXPECT_EQ(format(arguments).status, 1) << mode;
        }
    }

    void expectSafe(const std::string& module, const std::vector<std::string>& options = {}) {
        folder.write("a.bas", module);
        std::vector<std::string> arguments{"--quiet", "a.bas"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const Outcome outcome = format(arguments);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
    }
};

TEST_F(Safety, IsInDangerByATabInALiteral) {
    expectUnsafe("x\r\ns = \"a\tb\"\r\n", 2, "a tab in the literal \"a?b\"");
}

TEST_F(Safety, IsInDangerByACarriageReturnThatWouldJoinALineEnd) {
    constexpr auto loss = "the carriage return in front of the line's end";
    expectUnsafe("Sub a()\n' b\r \nEnd Sub\n", 2, loss);
    expectUnsafe("Sub a()\nEnd Sub\n' b\r", 3, loss);
    expectUnsafe("Dim a\nAttribute a.VB_VarHelpID = -1\r", 2, loss);
    expectSafe("Sub a()\r\n' b\r \r\nEnd Sub\r\n");
}

TEST_F(Safety, IsInDangerByATabBetweenTwoWords) {
    expectUnsafe("Dim\tx\r\n", 1, "the blank between Dim and x");
}

TEST_F(Safety, IsInDangerByATrailingCommentCutInsideALiteral) {
    expectUnsafe("Option Explicit\r\nq = \"SELECT * FROM \" & t & \" WHERE a = 'x'\"\r\n", 2,
                 "the end of the literal", {"--remove-trailing-comments"});
}

TEST_F(Safety, IsInDangerByACommentThatGoesOn) {
    // Without its first line the second one would be code.
    expectUnsafe("' a comment _\r\nthat goes on\r\n", 2, "the comment that goes on would become code",
                 {"--remove-comment-lines"});
}

TEST_F(Safety, IsInDangerByCodeThatWouldBecomeComment) {
    // The line between comment and code goes: what follows would belong to the comment.
    expectUnsafe("' a _\r\n\r\nx = 1\r\n", 2, "the end of the comment: the next line would become part of it",
                 {"--remove-empty-lines"});
}

TEST_F(Safety, IsInDangerByALineThatBecomesTooLong) {
    const std::string line = "s = \"" + std::string(1017, 'x') + "\"\r\n"; // 1,023 bytes
    expectUnsafe("Sub a()\r\n" + line + "End Sub\r\n", 2, "the end of the line: it would have 1025 bytes");
    expectSafe("Sub a()\r\n" + line + "End Sub\r\n", {"--tab-width", "0"});
}

TEST_F(Safety, IsReportedForEveryLineInOrder) {
    const Outcome outcome = pass("Dim\ta\r\nEnd Sub\r\nDim\tb\r\n", {"--quiet"});
    EXPECT_EQ(outcome.err, tabError("<stdin>:2", 1, "End Sub") +
                               unsafe("<stdin>:1", "the blank between Dim and a", "Dim\\x09a") +
                               unsafe("<stdin>:3", "the blank between Dim and b", "Dim\\x09b"));
}

TEST_F(Safety, ShowsTheLineBehindTheLastLineEnd) {
    constexpr auto loss = "the carriage return in front of the line's end";
    EXPECT_EQ(pass("Sub a()\nEnd Sub\n  ' b\r", {"--quiet"}).err, unsafe("<stdin>:3", loss, "' b\\x0D"));
    EXPECT_EQ(pass("Dim a\nAttribute a.VB_VarHelpID = -1\r", {"--quiet"}).err,
              unsafe("<stdin>:2", loss, "Attribute a.VB_VarHelpID = -1\\x0D"));
}

TEST_F(Safety, CountsTheHeaderAndHiddenLines) {
    const Outcome outcome = pass("Attribute VB_Name = \"a\"\r\nDim x\r\nAttribute x.VB_VarHelpID = -1\r\n\r\n"
                                 "Dim\tb\r\n",
                                 {"--quiet", "--remove-empty-lines"});
    EXPECT_THAT(outcome.err, StartsWith("<stdin>:5: unsafe: "));
}

TEST_F(Safety, IsGivenUpByForce) {
    folder.write("a.bas", "s = \"a\tb\"\r\n");
    const Outcome outcome = format({"--force", "a.bas"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("a.bas:1: unsafe: "));
    EXPECT_EQ(folder.read("a.bas"), "s = \"ab\"\r\n");
}

TEST_F(Safety, IsNotInDangerByCommentsThatAreToGo) {
    expectSafe("Option Explicit\r\n' alone\r\nRem alone\r\nx = \"it's\" ' behind\r\n",
               {"--remove-comment-lines", "--remove-trailing-comments"});
    EXPECT_EQ(folder.read("a.bas"), "Option Explicit\r\nx = \"it's\" \r\n");
}

TEST_F(Safety, IsNotInDangerByOldIndentation) {
    expectSafe("\tSub a()\t\r\n \t x = 1 \t\r\n\tEnd Sub  \r\n\t' note\t\r\n");
}

TEST_F(Safety, HoldsForEveryCodePage) {
    expectUnsafe("s = \"\x83\x5B\t\x83\x5C\"\r\n", 1, "a tab in the literal ");
}

} // namespace
} // namespace corvelle::test
