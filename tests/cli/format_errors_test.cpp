// Structural errors, run-time errors and files that are no modules: the lines they are reported for.

#include "cli/format_fixture.h"

namespace corvelle::test {
namespace {

using testing::HasSubstr;

class Errors : public FormatTest {
  protected:
    Outcome formatModule(std::string_view module, std::vector<std::string> options = {}) {
        folder.write("a.bas", module);
        options.push_back("a.bas");
        return format(options);
    }
    // What is said of an If that the counter has no room for.
    static std::string overflow(const std::string& place) {
        return place + ": Overflow\n" + place +
               ": CV103 the blocks that are open here need more than 32767 blanks: If a Then\n";
    }
    std::string repeated(std::string_view line, int times) {
        std::string result;
        for (int i = 0; i < times; ++i) result += line;
        return result;
    }
};

TEST_F(Errors, StandAtTheirLineInTheFile) {
    EXPECT_EQ(formatModule("a\r\nEnd Sub\r\nb\r\nEnd Sub\r\n", {"--quiet"}).err,
              tabError("a.bas:2", 1, "End Sub") + tabError("a.bas:4", 3, "End Sub"));
}

TEST_F(Errors, OfBothKindsAreNamedAsInTheErrorList) {
    EXPECT_EQ(formatModule("Case 1\r\nEnd Sub\r\nEnd Select\r\n", {"--quiet"}).err,
              tabError("a.bas:3", 2, "End Select") + selectError("a.bas:3", 2));
}

TEST_F(Errors, CountTheHeaderAndTheHiddenLines) {
    const std::string form = "VERSION 5.00\r\nBegin VB.Form F \r\n   Caption = \"x\"\r\nEnd\r\n" // 1 to 4
                             "Attribute VB_Name = \"F\"\r\nAttribute VB_Exposed = False\r\n"     // 5, 6
                             "End Sub\r\n"                                                       // 7
                             "Sub a()\r\nAttribute a.VB_Description = \"x\"\r\n"                 // 8, 9
                             "End Sub\r\nEnd Sub\r\n";                                           // 10, 11
    folder.write("f.frm", form);
    EXPECT_EQ(format({"--quiet", "f.frm"}).err,
              tabError("f.frm:7", 0, "End Sub") + tabError("f.frm:11", 3, "End Sub"));
}

TEST_F(Errors, CountTheLinesThatAreRemoved) {
    EXPECT_EQ(formatModule("\r\n' x\r\n\r\nEnd Sub\r\n\r\nEnd Sub\r\n",
                           {"--quiet", "--remove-empty-lines", "--remove-comment-lines"})
                  .err,
              tabError("a.bas:4", 0, "End Sub") + tabError("a.bas:6", 1, "End Sub"));
}

TEST_F(Errors, ShowTheirLineWithoutItsOuterBlanksAndWithoutWhatATerminalObeys) {
    EXPECT_EQ(formatModule(" \tEnd Sub '\x1B[2Jx\xE4 \t\n", {"--quiet"}).err,
              tabError("a.bas:1", 0, "End Sub '\\x1B[2Jx\xE4"));
}

TEST_F(Errors, ShowTheBeginningOfALineThatTheIDECouldNotTake) {
    const std::string line = "End Sub '" + std::string(2000, 'x');
    EXPECT_EQ(formatModule(line, {"--quiet"}).err, tabError("a.bas:1", 0, line.substr(0, 1023) + "..."));
}

TEST_F(Errors, NameStandardInput) {
    EXPECT_EQ(pass("End Sub\n", {"--quiet"}).err, tabError("<stdin>:1", 0, "End Sub"));
    EXPECT_EQ(pass("End Sub\n", {"--quiet", "--stdin-name", "x/y.cls"}).err,
              tabError("x/y.cls:1", 0, "End Sub"));
}

TEST_F(Errors, AtRunTimeStandAlone) {
    // The End Sub is an error of its own, but the pass does not get to its end.
    const std::string module = "End Sub\n" + repeated("If a Then\n", 4000);
    const Outcome outcome = formatModule(module, {"--tab-width", "10"});
    EXPECT_EQ(outcome.err, overflow("a.bas:3279"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(folder.read("a.bas"), module);
}

TEST_F(Errors, AtRunTimeCountTheLinesThatAreHiddenOrRemoved) {
    const std::string module = "Attribute VB_Name = \"x\"\n\nDim a\nAttribute a.VB_VarHelpID = -1\n\n" +
                               repeated("If a Then\n", 4000);
    const Outcome outcome = formatModule(module, {"--tab-width", "10", "--remove-empty-lines"});
    EXPECT_EQ(outcome.err, overflow("a.bas:3283"));
}

TEST_F(Errors, AtRunTimeCanBeANegativeLevel) {
    const std::string module = "Select Case a\nCase 1\nEnd Sub\nEnd Sub\nCase 2\n";
    const Outcome outcome = formatModule(module, {"--force"});
    EXPECT_EQ(outcome.err,
              "a.bas:5: Invalid procedure call or argument\n"
              "a.bas:5: CV104 more blocks were closed than were open before this Case: Case 2\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(Errors, AtRunTimeAreNotForced) {
    const std::string module = repeated("If a Then\n", 4000);
    for (const char* mode : {"--force", "--check", "--diff", "--stdout"}) {
        const Outcome outcome = formatModule(module, {"--force", mode, "--tab-width", "10"});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, overflow("a.bas:3278"));
        EXPECT_EQ(folder.read("a.bas"), module);
    }
}

TEST_F(Errors, AtRunTimeDoNotKeepOtherModulesFromBeingFormatted) {
    folder.write("b.bas", untidy);
    const Outcome outcome = formatModule(repeated("If a Then\n", 4000), {"--tab-width", "10", "b.bas"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(folder.read("b.bas"), "Sub Greet()\r\n          If a Then\r\n                    b\r\n"
                                    "          End If\r\nEnd Sub\r\n");
    EXPECT_THAT(outcome.err, testing::EndsWith("\n1 rewritten, 0 left unchanged, 1 refused\n"));
}

TEST_F(Errors, AreHeadersThatNeverEnd) {
    const std::string form =
        "VERSION 5.00\r\nObject = \"{x}\"; \"y\"\r\nBegin VB.Form F \r\n   Begin VB.Label L \r\n"
        "   End\r\nSub a()\r\nb\r\nEnd Sub\r\n";
    folder.write("f.frm", form);
    folder.write("z.bas", untidy);
    for (const char* mode : {"--quiet", "--force"}) {
        const Outcome outcome = format({mode, "f.frm", "z.bas"});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.err, testing::StartsWith("f.frm:3: the header that begins here never ends\n"));
        EXPECT_EQ(folder.read("f.frm"), form);
        EXPECT_EQ(folder.read("z.bas"), tidy);
    }
}

TEST_F(Errors, AreNotModulesOfWhichNothingWouldBeKept) {
    for (const std::string module :
         {"", "\r\n\r\n", "' only\r\n' comments", "Attribute VB_Name = \"a\"\r\n"}) {
        const Outcome outcome = formatModule(module, {"--remove-empty-lines", "--remove-comment-lines"});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, "a.bas: no line would be kept; left as it is\n");
        EXPECT_EQ(folder.read("a.bas"), module);
        EXPECT_EQ(
            format({"--check", "--diff", "--remove-empty-lines", "--remove-comment-lines", "a.bas"}).out, "");
    }
}

TEST_F(Errors, AreBinaryFilesWithAModulesEnding) {
    const std::string bytes =
        std::string("\xD0\xCF\x11\xE0\0\0\0\0\1\2\3\4\5\6\7\0\0\0\0\0", 20) + "Sub a()\r\n";
    const Outcome outcome = formatModule(bytes);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "a.bas: this is a binary file, not a module\n");
    EXPECT_EQ(folder.read("a.bas"), bytes);
    folder.write("b.bas", tidy);
    EXPECT_THAT(format({"a.bas", "b.bas"}).err,
                testing::EndsWith("\n0 rewritten, 1 left unchanged, 0 refused, 1 failed\n"));
}

TEST_F(Errors, AreFilesInUtf16) {
    const std::string bytes("\xFF\xFES\0u\0b\0 \0a\0(\0)\0\r\0\n\0", 20);
    const Outcome outcome = formatModule(bytes);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "a.bas: this is UTF-16 text, not a module\n");
    EXPECT_EQ(folder.read("a.bas"), bytes);
}

TEST_F(Errors, AreWeighedByTheWorst) {
    folder.write("error.bas", "End Sub\r\n");
    folder.write("fine.bas", tidy);
    EXPECT_EQ(format({"fine.bas"}).status, 0);
    EXPECT_EQ(format({"fine.bas", "error.bas"}).status, 1);
    EXPECT_EQ(format({"gone.bas", "error.bas", "fine.bas"}).status, 2);
}

TEST_F(Errors, InGreatNumberAreFoundInOneWalk) {
    // Each of them looked for from the module's first line on would take minutes.
    const Outcome outcome = formatModule(repeated("End Sub\n", 200'000), {"--quiet"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, testing::EndsWith("\n" + tabError("a.bas:200000", 199999, "End Sub")));
}

} // namespace
} // namespace corvelle::test
