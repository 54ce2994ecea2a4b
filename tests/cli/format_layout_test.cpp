// The structured layout and the settings, through the program.

#include "base/temporary_folder.h"
#include "cli/run_corvelle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace corvelle::test {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class LayoutTest : public testing::Test {
  protected:
    LayoutTest() { folder.write(".editorconfig", "root = true\n"); }

    Outcome format(std::vector<std::string> arguments, std::string_view input = {}) const {
        arguments.insert(arguments.begin(), "format");
        Surroundings surroundings;
        surroundings.folder = folder.path();
        surroundings.input = input;
        return runCorvelle(arguments, surroundings);
    }
    // What becomes of the module named a.bas.
    std::string formatted(std::string_view module, std::vector<std::string> options = {}) const {
        options.insert(options.end(), {"--quiet", "--stdin-name", "a.bas", "-"});
        return format(std::move(options), module).out;
    }
    void say(std::string_view lines) const {
        folder.write(".editorconfig", "root = true\n[*.bas]\n" + std::string(lines));
    }

    TemporaryFolder folder;
};

constexpr std::string_view select = "Sub A()\n  Select Case b\n  Case 1\n  c\n  End Select\nEnd Sub\n";

TEST_F(LayoutTest, StructuredIsTheDefaultAndKnowsDirectives) {
    EXPECT_EQ(
        formatted("#If a Then\nSub A()\n#Else\nSub A(b)\n#End If\nIf c Then\nd\nEnd If\nEnd Sub\n"),
        "#If a Then\nSub A()\n#Else\nSub A(b)\n#End If\n    If c Then\n        d\n    End If\nEnd Sub\n");
}

TEST_F(LayoutTest, ChangesNothingBehindALinesLeadingBlanks) {
    EXPECT_EQ(
        formatted("Sub A()\r\nIf b Then  \r\n\t\r\nc\nEnd If\r\nEnd Sub", {"--style", "procedure=indent"}),
        "Sub A()\r\n    If b Then  \r\n\t\r\n        c\n    End If\r\nEnd Sub");
}

TEST_F(LayoutTest, TrimsAndFoldsWhereThatIsSaid) {
    constexpr std::string_view module = "Dim a  \n\t\n\n\n\nDim b\n";
    EXPECT_EQ(formatted(module, {"--trim"}), "Dim a\n\n\n\n\nDim b\n");
    EXPECT_EQ(formatted(module, {"--trim", "--max-empty-lines", "1"}), "Dim a\n\nDim b\n");
    say("trim_trailing_whitespace = true\n");
    EXPECT_EQ(formatted(module), "Dim a\n\n\n\n\nDim b\n");
}

TEST_F(LayoutTest, TakesTheStyleFromTheOptionsThenFromTheFile) {
    say("indent_size = 2\ncorvelle_case = flush\n");
    EXPECT_EQ(formatted(select), "Sub A()\n  Select Case b\n  Case 1\n    c\n  End Select\nEnd Sub\n");
    EXPECT_EQ(formatted(select, {"--tab-width", "3", "--style", "case=indent"}),
              "Sub A()\n   Select Case b\n      Case 1\n         c\n   End Select\nEnd Sub\n");
    EXPECT_EQ(formatted(select, {"--style", "case=indent", "--style", "unit=tab"}),
              "Sub A()\n\tSelect Case b\n\t\tCase 1\n\t\t\tc\n\tEnd Select\nEnd Sub\n");
}

TEST_F(LayoutTest, TellsEachFaultAndWritesTheRest) {
    folder.write("a.bas", "Sub A()\nIf b Then\nEnd Sub\nSub B()\nIf c Then\nd\nEnd If\nEnd Sub\nEnd If\n");
    const auto outcome = format({"--quiet", "--style", "procedure=indent", "a.bas"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "a.bas:2: CV202 the If that begins here is not closed before End Sub in line 3\n"
                           "a.bas:9: CV201 End If without If\n");
    EXPECT_EQ(
        folder.read("a.bas"),
        "Sub A()\nIf b Then\nEnd Sub\nSub B()\n    If c Then\n        d\n    End If\nEnd Sub\nEnd If\n");
}

TEST_F(LayoutTest, ClassicWritesWhatItAlwaysWrote) {
    EXPECT_EQ(formatted(select, {"--layout", "classic"}),
              "Sub A()\n  Select Case b\n    Case 1\n      c\n  End Select\nEnd Sub\n");
    say("corvelle_layout = classic\n");
    EXPECT_EQ(formatted(select), "Sub A()\n  Select Case b\n    Case 1\n      c\n  End Select\nEnd Sub\n");
    EXPECT_THAT(formatted("Sub A()\n    b\nEnd Sub \n", {"--layout", "structured"}), HasSubstr("End Sub \n"));
}

TEST_F(LayoutTest, ClassicTellsWhereItsLinesDoNotStandByTheirBlocksAndWritesOnlyByForce) {
    folder.write("a.bas", "#If a Then\nConst b = 1\n#End If\nSub A()\nEnd Sub\nSub B()\nEnd Sub\n");
    const std::string before = folder.read("a.bas");
    const auto outcome = format({"--layout", "classic", "--quiet", "a.bas"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "a.bas:3: CV301 from here on lines do not stand by their blocks: classic does not know #If; "
              "--layout structured does\n");
    EXPECT_EQ(folder.read("a.bas"), before);
    EXPECT_EQ(format({"--layout", "classic", "--quiet", "--force", "a.bas"}).status, 1);
    EXPECT_NE(folder.read("a.bas"), before);
    EXPECT_EQ(
        format({"--layout", "classic", "--quiet", "-"}, "Sub A()\nIf b Then\nc\nEnd If\nEnd Sub\n").status,
        0);
}

TEST_F(LayoutTest, LeavesAFileAloneThatSaysOff) {
    say("corvelle_layout = off\n");
    folder.write("a.bas", select);
    const auto outcome = format({"a.bas"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err, HasSubstr("a.bas: left alone, as "));
    EXPECT_EQ(folder.read("a.bas"), select);
    EXPECT_EQ(formatted(select), select);
    EXPECT_NE(formatted(select, {"--layout", "classic"}), select);
}

TEST_F(LayoutTest, RefusesAWrongSettingOfAModuleItWorksOnAndTellsItOnce) {
    say("corvelle_case = left\n");
    folder.write("a.bas", select);
    folder.write("b.bas", select);
    folder.write("c.cls", select);
    const auto outcome = format({"--quiet", "a.bas", "b.bas", "c.cls"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, (folder.path() / ".editorconfig").generic_string() +
                               ":3: corvelle_case = left: the value must be one of auto, indent, flush\n");
    EXPECT_EQ(folder.read("a.bas"), select);
    EXPECT_NE(folder.read("c.cls"), select);
    EXPECT_EQ(format({"--quiet", "c.cls"}).status, 0);
}

TEST_F(LayoutTest, LeavesAModuleAloneThatHasASettingsFileWhichIsNone) {
    folder.write(".editorconfig", std::string("root\0", 5));
    folder.write("a.bas", select);
    const auto outcome = format({"--quiet", "a.bas"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr(".editorconfig: this is a binary file, not a settings file\n"));
    EXPECT_EQ(folder.read("a.bas"), select);
}

TEST_F(LayoutTest, TakesTheNearestFilesOfEachModule) {
    say("indent_size = 2\ncorvelle_procedure = indent\n");
    folder.write("sub/.editorconfig", "[*.bas]\nindent_size = 3\n");
    folder.write("a.bas", "Sub A()\nIf b Then\nc\nEnd If\nEnd Sub\n");
    folder.write("sub/b.bas", "Sub A()\nIf b Then\nc\nEnd If\nEnd Sub\n");
    EXPECT_EQ(format({"--quiet", "."}).status, 0);
    EXPECT_EQ(folder.read("a.bas"), "Sub A()\n  If b Then\n    c\n  End If\nEnd Sub\n");
    EXPECT_EQ(folder.read("sub/b.bas"), "Sub A()\n   If b Then\n      c\n   End If\nEnd Sub\n");
}

TEST_F(LayoutTest, ShowsWhatHoldsAndWritesNothing) {
    say("indent_size = 2\nend_of_line = lf\n");
    folder.write("a.bas", select);
    const auto outcome = format({"--show-settings", "--trim", "a.bas"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const std::string file = (folder.path() / ".editorconfig").generic_string();
    EXPECT_THAT(outcome.out, StartsWith("a.bas\n  layout = structured               default\n"));
    EXPECT_THAT(outcome.out, HasSubstr("  unit = 2                          " + file + ":3\n"));
    EXPECT_THAT(outcome.out, HasSubstr("  trim_trailing_whitespace = true   option --trim\n"));
    EXPECT_THAT(outcome.out, HasSubstr("  not followed: end_of_line = lf (" + file + ":4)\n"));
    EXPECT_EQ(folder.read("a.bas"), select);
    EXPECT_THAT(format({"--show-settings", "--layout", "classic", "a.bas"}).out, Not(HasSubstr("procedure")));
}

TEST_F(LayoutTest, RefusesWrongOptions) {
    folder.write("a.bas", select);
    for (const std::vector<std::string>& options :
         std::vector<std::vector<std::string>>{{"--layout", "best"},
                                               {"--layout", "off"},
                                               {"--style", "case"},
                                               {"--style", "case=left"},
                                               {"--style", "cases=flush"},
                                               {"--max-empty-lines", "x"},
                                               {"--show-settings", "--check"}}) {
        auto arguments = options;
        arguments.emplace_back("a.bas");
        EXPECT_EQ(format(arguments).status, 2) << options[0] << " " << options[1];
    }
    EXPECT_EQ(folder.read("a.bas"), select);
}

} // namespace
} // namespace corvelle::test
