// One module from standard input to standard output.

#include "cli/format_fixture.h"

namespace corvelle::test {
namespace {

using testing::HasSubstr;

using StandardInput = FormatTest;

constexpr std::string_view header = "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\n"
                                    "Attribute VB_Name = \"C\"\r\n";

TEST_F(StandardInput, IsFormattedToStandardOutput) {
    const Outcome outcome = pass(untidy);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, tidy);
    EXPECT_EQ(outcome.err, summary("<stdin>", 5, 5));
}

TEST_F(StandardInput, NeedsNoOptionForStandardOutput) {
    EXPECT_EQ(pass(untidy, {"--stdout"}).out, tidy);
}

TEST_F(StandardInput, MayBeASingleLine) {
    EXPECT_EQ(pass("\tx = 1").out, "x = 1\r\n");
}

TEST_F(StandardInput, IsNamedByTheOption) {
    const Outcome outcome = pass(untidy, {"--check", "--stdin-name", "src/Main.bas"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "src/Main.bas\n");
    EXPECT_EQ(outcome.err, summary("src/Main.bas", 5, 5));
}

TEST_F(StandardInput, IsDiffed) {
    EXPECT_EQ(pass("\tx = 1\r\n", {"--diff"}).out,
              "--- <stdin>\n+++ <stdin>\n@@ -1 +1 @@\n-\tx = 1\r\n+x = 1\r\n");
}

TEST_F(StandardInput, WithAVersionLineHasAHeader) {
    EXPECT_EQ(pass(std::string(header) += untidy).out, std::string(header) += tidy);
    EXPECT_EQ(pass("\xEF\xBB\xBF" + (std::string(header) += untidy)).out,
              "\xEF\xBB\xBF" + (std::string(header) += tidy));
    EXPECT_EQ(pass("version 5.00\nBegin VB.Form F\nEnd\nSub a()\nb\nEnd Sub\n").out,
              "version 5.00\nBegin VB.Form F\nEnd\nSub a()\n  b\nEnd Sub\n");
}

// A designer section without a VERSION line in front of it is code in a standard module, not in a form.
constexpr std::string_view bareSection = "Begin VB.Form F\r\nCaption = 1\r\nEnd\r\nb\r\n";

TEST_F(StandardInput, WithoutAVersionLineIsAStandardModule) {
    EXPECT_THAT(pass(bareSection).err, HasSubstr(summary("<stdin>", 4, 4)));
}

TEST_F(StandardInput, WithANameIsOfTheKindThatTheNameTells) {
    EXPECT_EQ(pass(bareSection, {"--stdin-name", "f.FRM"}).err, summary("f.FRM", 1, 1));
    EXPECT_THAT(pass(bareSection, {"--stdin-name", "f.bas"}).err, HasSubstr(summary("f.bas", 4, 4)));
}

TEST_F(StandardInput, ThatIsRefusedGivesNothing) {
    const Outcome outcome = pass("b\r\nEnd Sub\r\n");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(pass("b\r\nEnd Sub\r\n", {"--force"}).out, "b\r\nEnd Sub\r\n");
}

TEST_F(StandardInput, WithAnUnsafeLineGivesNothing) {
    EXPECT_EQ(pass("a = \"b\tc\"\r\n").out, "");
}

TEST_F(StandardInput, WhoseHeaderNeverEndsGivesNothing) {
    const Outcome outcome = pass("VERSION 5.00\r\nBegin VB.Form F\r\n");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "<stdin>:2: the header that begins here never ends\n");
}

TEST_F(StandardInput, OfWhichNoLineIsKeptComesOutAsItWentIn) {
    for (const std::string_view module : {"", "\r\n \r\n\t", "Attribute VB_Name = \"x\""}) {
        const Outcome outcome = pass(module, {"--remove-empty-lines"});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out, module);
        EXPECT_EQ(outcome.err, "<stdin>: no line would be kept; left as it is\n");
    }
}

TEST_F(StandardInput, IsNeverBackedUp) {
    EXPECT_EQ(pass(untidy, {"--backup-dir", "backups"}).out, tidy);
    EXPECT_THAT(folder.names(), testing::IsEmpty());
}

TEST_F(StandardInput, StandsAmongFilesInItsPlace) {
    folder.write("a.bas", untidy);
    folder.write("z.bas", untidy);
    Surroundings surroundings;
    surroundings.input = untidy;
    const Outcome outcome = format({"z.bas", "-", "a.bas"}, surroundings);
    EXPECT_EQ(outcome.out, tidy);
    EXPECT_EQ(outcome.err, summary("z.bas", 5, 5) + summary("<stdin>", 5, 5) + summary("a.bas", 5, 5) +
                               "3 rewritten, 0 left unchanged, 0 refused\n");
}

#ifndef _WIN32
TEST_F(StandardInput, ThatCannotBeReadIsReported) {
    Surroundings directory;
    directory.inputFrom = "/";
    Outcome outcome = format({"-"}, directory);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("<stdin>: "));
    Surroundings closed;
    closed.closed = {0};
    outcome = format({"-"}, closed);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("<stdin>: "));
    EXPECT_EQ(outcome.out, "");
}
#endif

TEST_F(StandardInput, ThatIsBinaryIsRefused) {
    const Outcome outcome = pass(std::string(100, '\1'));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "<stdin>: this is a binary file, not a module\n");
}

} // namespace
} // namespace corvelle::test
