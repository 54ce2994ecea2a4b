// What is printed where, which files are left alone, and the exit status.
#include "base/file_descriptor.h"
#include "cli/format_fixture.h"

namespace corvelle::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::string_view broken = "a\r\nEnd Sub\r\n";

class Results : public FormatTest {
  protected:
    // Whether the run leaves the file as it is: the same bytes, in the same place, written at the same time.
    void expectUntouched(const std::vector<std::string>& arguments) {
        const std::string before = folder.read("a.bas");
        base::FileStamp was, is;
        EXPECT_TRUE(base::stampOf(folder.path() / "a.bas", was));
        format(arguments);
        EXPECT_TRUE(base::stampOf(folder.path() / "a.bas", is));
        EXPECT_EQ(folder.read("a.bas"), before);
        EXPECT_EQ(is, was);
        EXPECT_THAT(folder.names(), ElementsAre("a.bas"));
    }
};

TEST_F(Results, AreWrittenIntoTheFile) {
    folder.write("a.bas", untidy);
    const Outcome outcome = format({"a.bas"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, summary("a.bas", 5, 5));
    EXPECT_EQ(folder.read("a.bas"), tidy);
    EXPECT_THAT(folder.names(), ElementsAre("a.bas"));
}

TEST_F(Results, DoNotChangeWhenTheyAreFormattedAgain) {
    folder.write("a.bas", tidy);
    EXPECT_EQ(format({"--check", "a.bas"}).status, 0);
    expectUntouched({"a.bas"});
}

TEST_F(Results, OfAChangedLineEndAloneAreWritten) {
    folder.write("a.bas", "Sub a()\r\nEnd Sub");
    EXPECT_EQ(format({"--check", "--quiet", "a.bas"}).out, "a.bas\n");
    format({"a.bas"});
    EXPECT_EQ(folder.read("a.bas"), "Sub a()\r\nEnd Sub\r\n");
}

TEST_F(Results, OfARemovedLineAloneAreWritten) {
    folder.write("a.bas", "Sub a()\r\n\r\nEnd Sub\r\n");
    EXPECT_EQ(format({"--remove-empty-lines", "a.bas"}).err, summary("a.bas", 3, 2));
    EXPECT_EQ(folder.read("a.bas"), "Sub a()\r\nEnd Sub\r\n");
}

TEST_F(Results, OfRemovedCommentsFollowTheThreeOptions) {
    const std::string module = "Option Explicit\r\n' alone\r\n\r\na = 1 ' behind\r\n";
    EXPECT_EQ(pass(module).out, "Option Explicit\r\n' alone\r\n\r\na = 1 ' behind\r\n");
    EXPECT_EQ(pass(module, {"--remove-empty-lines"}).out, "Option Explicit\r\n' alone\r\na = 1 ' behind\r\n");
    EXPECT_EQ(pass(module, {"--remove-comment-lines"}).out, "Option Explicit\r\n\r\na = 1 ' behind\r\n");
    EXPECT_EQ(pass(module, {"--remove-trailing-comments"}).out,
              "Option Explicit\r\n' alone\r\n\r\na = 1 \r\n");
    EXPECT_EQ(
        pass(module, {"--remove-empty-lines", "--remove-comment-lines", "--remove-trailing-comments"}).out,
        "Option Explicit\r\na = 1 \r\n");
}

TEST_F(Results, OfCheckAreThePathsThatWouldChange) {
    folder.write("a.bas", untidy);
    folder.write("b.bas", tidy);
    folder.write("c.bas", broken);
    const Outcome outcome = format({"--check", "."});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "./a.bas\n");
    EXPECT_EQ(outcome.err, summary("./a.bas", 5, 5) + summary("./b.bas", 5, 5) +
                               tabError("./c.bas:2", 1, "End Sub") + summary("./c.bas", 2, 2) +
                               "1 would be rewritten, 1 left unchanged, 1 refused\n");
}

TEST_F(Results, OfCheckAreStatusOneOnlyForFilesThatWouldChange) {
    folder.write("a.bas", tidy);
    EXPECT_EQ(format({"--check", "a.bas"}).status, 0);
    folder.write("b.bas", untidy);
    EXPECT_EQ(format({"--check", "a.bas", "b.bas"}).status, 1);
    EXPECT_EQ(format({"--check", "a.bas", "b.bas", "gone.bas"}).status, 2);
}

TEST_F(Results, OfCheckAndDiffTouchNoFile) {
    folder.write("a.bas", untidy);
    expectUntouched({"--check", "a.bas"});
    expectUntouched({"--diff", "a.bas"});
    expectUntouched({"--check", "--diff", "--force", "a.bas"});
    expectUntouched({"--stdout", "a.bas"});
    expectUntouched({"--check", "--backup-dir", "backups", "a.bas"});
}

TEST_F(Results, OfDiffAreShownWithStatusZero) {
    folder.write("a.bas", untidy);
    folder.write("b.bas", tidy);
    const Outcome outcome = format({"--diff", "--quiet", "a.bas", "b.bas"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              "--- a.bas\n+++ a.bas\n@@ -1,5 +1,5 @@\n Sub Greet()\r\n-If a Then\r\n-b\r\n-End If\r\n"
              "+  If a Then\r\n+    b\r\n+  End If\r\n End Sub\r\n");
    EXPECT_EQ(outcome.err, "");
}

TEST_F(Results, OfDiffAndCheckAreShownWithStatusOne) {
    folder.write("a.bas", untidy);
    const Outcome outcome = format({"--diff", "--check", "--quiet", "a.bas"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, testing::StartsWith("a.bas\n--- a.bas\n"));
    EXPECT_EQ(folder.read("a.bas"), untidy);
}

TEST_F(Results, OfDiffAndCheckOnATidyModuleAreStatusZero) {
    folder.write("a.bas", tidy);
    EXPECT_EQ(format({"--diff", "--check", "a.bas"}).status, 0);
}

TEST_F(Results, OnStandardOutputAreTheFormattedFile) {
    folder.write("a.bas", untidy);
    const Outcome outcome = format({"--stdout", "a.bas"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, tidy);
    EXPECT_EQ(outcome.err, summary("a.bas", 5, 5));
    EXPECT_EQ(folder.read("a.bas"), untidy);
}

TEST_F(Results, OnStandardOutputAreTheFileAsItIsWhenNothingChanges) {
    folder.write("a.bas", tidy);
    EXPECT_EQ(format({"--stdout", "a.bas"}).out, tidy);
}

TEST_F(Results, OfARefusedModuleAreNeitherWrittenNorListedNorShown) {
    folder.write("a.bas", broken);
    for (const char* mode : {"--quiet", "--check", "--diff", "--stdout"}) {
        const Outcome outcome = format({mode, "a.bas"});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_THAT(outcome.err, HasSubstr(tabError("a.bas:2", 1, "End Sub")));
        EXPECT_EQ(folder.read("a.bas"), broken);
    }
}

TEST_F(Results, OfARefusedModuleAreForcedWithTheSameStatus) {
    const std::string module = "Sub a()\r\nb\r\nEnd Sub\r\nEnd Sub\r\n";
    const std::string formatted = "Sub a()\r\n  b\r\nEnd Sub\r\nEnd Sub\r\n";
    folder.write("a.bas", module);
    Outcome outcome = format({"--force", "--check", "--quiet", "a.bas"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "a.bas\n");
    outcome = format({"--force", "--stdout", "a.bas"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, formatted);
    outcome = format({"--force", "a.bas"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, tabError("a.bas:4", 3, "End Sub") + summary("a.bas", 4, 4));
    EXPECT_EQ(folder.read("a.bas"), formatted);
}

TEST_F(Results, OfASingleModuleHaveNoTotals) {
    folder.write("a.bas", untidy);
    EXPECT_EQ(format({"a.bas", "gone.bas"}).err, summary("a.bas", 5, 5) + "gone.bas: File not found\n");
}

TEST_F(Results, OfSeveralModulesAreCountedLast) {
    folder.write("a.bas", untidy);
    folder.write("b.bas", tidy);
    folder.write("c.bas", broken);
    folder.write("d.bas", "");
    const Outcome outcome = format({"a.bas", "b.bas", "c.bas", "d.bas"});
    EXPECT_THAT(outcome.err, testing::EndsWith("\n1 rewritten, 2 left unchanged, 1 refused\n"));
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(Results, AreQuietButForErrors) {
    folder.write("a.bas", untidy);
    folder.write("b.bas", broken);
    folder.write("c.bas", "Sub a()\r\n");
    folder.write("d.bas", "");
    const Outcome outcome = format({"--quiet", "."});
    EXPECT_EQ(outcome.err, tabError("./b.bas:2", 1, "End Sub"));
    EXPECT_EQ(outcome.out, "");
}

TEST_F(Results, TellOfALevelThatIsLeftOpen) {
    folder.write("a.bas", "Sub a()\r\n  If b Then\r\n");
    const Outcome outcome = format({"a.bas"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "a.bas: the level ends at 2\n" + summary("a.bas", 2, 2));
}

TEST_F(Results, GoOnWhenNobodyReadsTheMessages) {
    folder.write("a.bas", untidy);
    folder.write("b.bas", untidy);
    Surroundings alone;
    alone.errorsHaveReader = false;
    EXPECT_EQ(format({"a.bas", "b.bas"}, alone).status, 0);
    EXPECT_EQ(folder.read("a.bas"), tidy);
    EXPECT_EQ(folder.read("b.bas"), tidy);
    EXPECT_THAT(folder.names(), testing::UnorderedElementsAre("a.bas", "b.bas"));
}

TEST_F(Results, OfStandardInputGoNowhereWhenTheirReaderIsGone) {
    folder.write("a.bas", untidy);
    Surroundings alone;
    alone.input = untidy;
    alone.outputHasReader = false;
    EXPECT_EQ(format({"-", "a.bas"}, alone).status, 2);
    EXPECT_EQ(folder.read("a.bas"), tidy);
}

#ifndef _WIN32

TEST_F(Results, AreForeseenByALineOnATerminal) {
    for (const char* name : {"a.bas", "b.bas", "c.bas"}) folder.write(name, tidy);
    Surroundings terminal;
    terminal.errorsAreTerminal = true;
    const std::string gone = "\r     \r"; // no terminal sequence, which not every console takes
    EXPECT_EQ(format({"a.bas", "b.bas", "c.bas"}, terminal).err,
              summary("a.bas", 5, 5) + "[1/3]" + gone + summary("b.bas", 5, 5) + "[2/3]" + gone +
                  summary("c.bas", 5, 5) + "0 rewritten, 3 left unchanged, 0 refused\n");
    EXPECT_EQ(format({"a.bas"}, terminal).err, summary("a.bas", 5, 5));
    EXPECT_EQ(format({"--quiet", "a.bas", "b.bas", "c.bas"}, terminal).err, "");
}

TEST_F(Results, ThatCannotBePrintedAreStatusTwo) {
    folder.write("a.bas", untidy);
    folder.write("b.bas", untidy);
    Surroundings full;
    full.outputTo = "/dev/full";
    for (const char* mode : {"--check", "--diff"}) {
        const Outcome outcome = format({mode, "--quiet", "a.bas", "b.bas"}, full);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err, "standard output: Disk full\n");
    }
    EXPECT_EQ(format({"--stdout", "a.bas"}, full).status, 2);
    EXPECT_EQ(format({"a.bas", "b.bas"}, full).status, 0); // nothing was to be printed
    EXPECT_EQ(folder.read("b.bas"), tidy);
}

TEST_F(Results, NeverGoIntoAModuleInPlaceOfAStandardStream) {
    // A file that is opened takes the number of the stream that is missing.
    std::vector<std::string> names(40);
    for (std::size_t i = 0; i < names.size(); ++i) names[i] = std::to_string(i) + ".bas";
    for (const std::string& name : names) folder.write(name, untidy);
    Surroundings closed;
    closed.closed = {0, 1, 2};
    EXPECT_EQ(format({"--jobs", "8", "."}, closed).status, 0);
    for (const std::string& name : names) EXPECT_EQ(folder.read(name), tidy);
}

TEST_F(Results, ThatHaveNoStreamAreStatusTwo) {
    folder.write("a.bas", untidy);
    Surroundings closed;
    closed.closed = {1};
    EXPECT_EQ(format({"--check", "a.bas"}, closed).status, 2);
}

#endif

} // namespace
} // namespace corvelle::test
