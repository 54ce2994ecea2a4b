// Runs the program, which is found in CORVELLE_BINARY.
#include "base/temporary_folder.h"
#include "cli/run_corvelle.h"
#include "places.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::cli {
namespace {

namespace fs = std::filesystem;
using test::Outcome;
using test::TemporaryFolder;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

const std::string mappings = "<P>frmMain</P>\r\n<C>cmdOK CommandButton IDH_AAAB</C>\r\n"
                             "<C>opt OptionButton IDH_AAAC</C>\r\n<C>opt OptionButton IDH_AAAD</C>\r\n"
                             "<C>lbl Label IDH_AAAA</C>\r\n<P>frmNone</P>\r\n"
                             "<P>frmPart</P>\r\n<C>cmdOK CommandButton IDH_AAAE</C>\r\n";
const std::string texts =
    ".topic  IDH_AAAA\r\nNothing  is known.\r\n.topic  IDH_AAAB\r\nCloses\r\nthe window.\r\n"
    ".topic  IDH_AAAD\r\n\tsecond \r\n.topic  IDH_AAAE\r\nSaves.\r\n";
// Every text of a file that was read begins with a space.
const std::string textsAsSaved =
    ".topic  IDH_AAAA\r\n Nothing is known.\r\n.topic  IDH_AAAB\r\n Closes the window.\r\n"
    ".topic  IDH_AAAC\r\n\r\n.topic  IDH_AAAD\r\n \tsecond\r\n.topic  IDH_AAAE\r\n Saves.\r\n";
const std::string saved = "File was saved successfully.\n";

std::string replaced(std::string text, const std::string& what, const std::string& with) {
    const auto at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return at == std::string::npos ? text : text.replace(at, what.size(), with);
}

class TextCommand : public testing::Test {
  protected:
    TextCommand() {
        writeProject("a.h", "a.hcnf", "a.txt");
        folder.write("a.h", "header");
        folder.write("a.hcnf", mappings);
        folder.write("a.txt", texts);
    }
    void writeProject(const std::string& header, const std::string& configuration, const std::string& text) {
        folder.write("p.icp", "Indexer project file :11/21/2026 2:43:10 AM\r\nVB Project Name= Proj\r\n"
                              "Project File= p.vbp\r\nHeader file= " +
                                  header + "\r\nConfiguration File= " + configuration +
                                  "\r\nText File= " + text + "\r\nModule Name= \r\nModule File= \r\n");
    }
    Outcome run(std::vector<std::string> arguments, const std::string& project = "p.icp") const {
        arguments.insert(arguments.begin(), {"text", project});
        test::Surroundings surroundings;
        surroundings.folder = folder.path();
        return test::runCorvelle(arguments, surroundings);
    }
    void expectSaved(const std::vector<std::string>& arguments) {
        const auto result = run(arguments);
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.out, saved);
        EXPECT_EQ(result.err, "");
    }
    // Nothing is written, and nothing printed but what is wrong.
    void expectRefused(const std::vector<std::string>& arguments, int status, const std::string& words) {
        const auto configurationBefore = folder.read("a.hcnf"), textBefore = folder.read("a.txt");
        const auto result = run(arguments);
        EXPECT_EQ(result.status, status) << words;
        EXPECT_THAT(result.err, HasSubstr(words));
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(folder.read("a.hcnf"), configurationBefore);
        EXPECT_EQ(folder.read("a.txt"), textBefore);
    }

    TemporaryFolder folder;
};

TEST_F(TextCommand, ListsTheControlsInTheOrderOfTheConfigurationFile) {
    const auto result = run({"list"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "frmMain\tcmdOK\tCommandButton\tIDH_AAAB\tCloses the window.\n"
                          "frmMain\topt\tOptionButton\tIDH_AAAC\t\n"
                          "frmMain\topt\tOptionButton\tIDH_AAAD\tsecond\n"
                          "frmMain\tlbl\tLabel\tIDH_AAAA\tNothing is known.\n"
                          "frmPart\tcmdOK\tCommandButton\tIDH_AAAE\tSaves.\n");
    EXPECT_EQ(folder.read("a.txt"), texts);
}

TEST_F(TextCommand, ListsADeletedControlAndNoneThatHasNoDesigner) {
    folder.write("a.hcnf", "<C>before Label IDH_AAAB</C>\r\n<P>f</P>\r\n<C>broken Label IDH_AAAC\r\n"
                           "<C>gone Label</C>\r\n");
    EXPECT_EQ(run({"list"}).out, "f\tgone\tLabel\t\tThis control is deleted from Index..\n");
}

TEST_F(TextCommand, KeepsFiveColumnsWhateverATextHolds) {
    expectSaved({"set", "frmMain", "cmdOK", "\ta\tb\r\n\tc\t"});
    EXPECT_THAT(run({"list"}).out, StartsWith("frmMain\tcmdOK\tCommandButton\tIDH_AAAB\ta b"));
    const auto line = run({"list"}).out.substr(0, run({"list"}).out.find('\n'));
    EXPECT_EQ(std::count(line.begin(), line.end(), '\t'), 4) << line;
    EXPECT_THAT(line, EndsWith(" c"));
}

TEST_F(TextCommand, TakesTheFirstOfTwoDesignersOfOneName) {
    folder.write("a.hcnf", "<P>f</P>\r\n<C>a Label IDH_AAAB</C>\r\n<P>f</P>\r\n<C>a Label IDH_AAAC</C>\r\n"
                           "<C>b Label IDH_AAAD</C>\r\n");
    EXPECT_EQ(run({"list"}).out, "f\ta\tLabel\tIDH_AAAB\tCloses the window.\nf\ta\tLabel\tIDH_AAAC\t\n"
                                 "f\tb\tLabel\tIDH_AAAD\tsecond\n");
    expectSaved({"set", "f", "a", "first"});
    EXPECT_THAT(folder.read("a.txt"), HasSubstr(".topic  IDH_AAAB\r\nfirst\r\n"));
    expectRefused({"set", "f", "b", "x"}, 1, "b: f has no such control");
}

TEST_F(TextCommand, SetsATextAndLeavesTheMappingsAlone) {
    expectSaved({"set", "frmMain", "cmdOK", "Closes the dialog."});
    EXPECT_EQ(folder.read("a.txt"), replaced(textsAsSaved, " Closes the window.", "Closes the dialog."));
    EXPECT_EQ(folder.read("a.hcnf"), mappings);
    EXPECT_EQ(folder.read("a.h"), "header");
    EXPECT_THAT(run({"list"}).out,
                StartsWith("frmMain\tcmdOK\tCommandButton\tIDH_AAAB\tCloses the dialog.\n"));
}

TEST_F(TextCommand, TakesATextOfAnyKind) {
    for (const std::string text : {"", "delete", "[a, b]", "a \"b\" \\ ,c", "\xE4\xF6", "a\tb"}) {
        expectSaved({"set", "frmMain", "cmdOK", text});
        EXPECT_THAT(folder.read("a.txt"),
                    HasSubstr(".topic  IDH_AAAB\r\n" + text + "\r\n.topic  IDH_AAAC\r\n"));
    }
    expectSaved({"set", "frmMain", "cmdOK", "--", "-x"});
    EXPECT_THAT(folder.read("a.txt"), HasSubstr(".topic  IDH_AAAB\r\n-x\r\n"));
    expectSaved({"set", "frmMain", "cmdOK", "one\ntwo\r\nthree"});
    EXPECT_THAT(folder.read("a.txt"), HasSubstr(".topic  IDH_AAAB\r\none\r\ntwo\r\nthree\r\n"));
    EXPECT_THAT(run({"list"}).out, HasSubstr("\tone two three\n"));
}

TEST_F(TextCommand, TellsControlsOfOneNameApart) {
    expectSaved({"set", "frmMain", "opt#2", "2nd"});
    EXPECT_EQ(folder.read("a.txt"), replaced(textsAsSaved, " \tsecond", "2nd"));
    expectSaved({"set", "FRMMAIN", "Opt", "1st"}); // names have no letter case
    EXPECT_THAT(folder.read("a.txt"), HasSubstr(".topic  IDH_AAAC\r\n1st\r\n"));
    expectSaved({"set", "frmMain", "opt#1", "first"});
    EXPECT_THAT(folder.read("a.txt"), HasSubstr(".topic  IDH_AAAC\r\nfirst\r\n"));
    for (const auto* name :
         {"opt#3", "opt#0", "opt#", "opt#2x", "opt#-1", "opt#99999999999999999999999", "#1", ""})
        expectRefused({"set", "frmMain", name, "text"}, 1,
                      std::string(name) + ": frmMain has no such control");
}

TEST_F(TextCommand, PutsAControlOnTheDefaultText) {
    expectSaved({"default", "frmPart", "cmdOK"});
    EXPECT_EQ(folder.read("a.hcnf"), replaced(mappings, "IDH_AAAE", "IDH_AAAA"));
    EXPECT_EQ(folder.read("a.txt"), replaced(textsAsSaved, ".topic  IDH_AAAE\r\n Saves.\r\n", ""));
    EXPECT_EQ(folder.read("a.h"), "header");
    EXPECT_THAT(run({"list"}).out, EndsWith("frmPart\tcmdOK\tCommandButton\tIDH_AAAA\tNothing is known.\n"));
    // Once more changes nothing.
    expectSaved({"default", "frmPart", "cmdOK"});
    EXPECT_EQ(folder.read("a.hcnf"), replaced(mappings, "IDH_AAAE", "IDH_AAAA"));
}

TEST_F(TextCommand, TakesAControlOutOfTheIndex) {
    expectSaved({"delete", "frmMain", "opt"});
    EXPECT_EQ(folder.read("a.hcnf"), replaced(mappings, "<C>opt OptionButton IDH_AAAC</C>\r\n", ""));
    EXPECT_EQ(folder.read("a.txt"), replaced(textsAsSaved, ".topic  IDH_AAAC\r\n\r\n", ""));
    EXPECT_EQ(folder.read("a.h"), "header");
    expectSaved({"delete", "frmMain", "opt"}); // the second is the first now
    expectRefused({"delete", "frmMain", "opt"}, 1, "opt: frmMain has no such control");
}

TEST_F(TextCommand, KeepsTheDefaultTextWhenNoOtherIsLeft) {
    folder.write("a.hcnf", "<P>f</P>\r\n<C>a Label IDH_AAAB</C>\r\n");
    expectSaved({"delete", "f", "a"});
    EXPECT_EQ(folder.read("a.txt"), ".topic  IDH_AAAA\r\n Nothing is known.\r\n");
    folder.write("a.hcnf", "<P>f</P>\r\n<C>a Label IDH_AAAA</C>\r\n");
    expectSaved({"default", "f", "a"});
    EXPECT_EQ(folder.read("a.txt"), ".topic  IDH_AAAA\r\n Nothing is known.\r\n");
}

TEST_F(TextCommand, RefusesATextWhereTheWindowsBoxIsDisabled) {
    expectRefused({"set", "frmMain", "lbl", "text"}, 1, "lbl: the control shows the default text");
    folder.write("a.hcnf", "<P>f</P>\r\n<C>gone Label</C>\r\n");
    expectRefused({"set", "f", "gone", "text"}, 1, "gone: the control is deleted from the index");
}

TEST_F(TextCommand, TakesADeletedControlBackIn) {
    folder.write("a.hcnf", "<P>f</P>\r\n<C>gone Label</C>\r\n");
    expectSaved({"default", "f", "gone"});
    EXPECT_EQ(folder.read("a.hcnf"), "<P>f</P>\r\n<C>gone Label IDH_AAAA</C>\r\n");
}

TEST_F(TextCommand, RefusesATextThatWouldBeginAnotherTopic) {
    for (const auto* text : {".topic", "a\n .Topic  IDH_AAAE", "a\r\n.TOPICS"})
        expectRefused({"set", "frmMain", "cmdOK", text}, 1, "begins with .topic would begin another topic");
}

TEST_F(TextCommand, RefusesAnUnknownDesignerOrControl) {
    for (const auto* command : {"default", "delete"}) {
        expectRefused({command, "frmOther", "cmdOK"}, 1, "frmOther: the index has no such designer");
        expectRefused({command, "frmNone", "cmdOK"}, 1, "cmdOK: frmNone has no such control");
    }
    expectRefused({"set", "frmOther", "cmdOK", "text"}, 1, "frmOther: the index has no such designer");
}

TEST_F(TextCommand, RefusesAnInvalidProjectFile) {
    folder.write("p.icp", replaced(folder.read("p.icp"), "Header file= ", "Header File= "));
    for (const auto& arguments : {std::vector<std::string>{"list"}, {"delete", "frmMain", "cmdOK"}}) {
        const auto result = run(arguments);
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.err, "Invalid project file..\n");
        EXPECT_EQ(result.out, "");
    }
    EXPECT_EQ(folder.read("a.hcnf"), mappings);
}

TEST_F(TextCommand, NeedsTheConfigurationFileAndTheTextFile) {
    const std::string message =
        "Either Text  file or configuration file is invalid.You need to re generate them \n";
    for (const auto* missing : {"a.hcnf", "a.txt"}) {
        fs::rename(folder.path() / missing, folder.path() / "away");
        const auto result = run({"list"});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.err, message);
        EXPECT_EQ(result.out, "");
        fs::rename(folder.path() / "away", folder.path() / missing);
    }
    fs::remove(folder.path() / "a.h"); // which is not looked at
    EXPECT_EQ(run({"list"}).status, 0);
}

TEST_F(TextCommand, TellsWhatCannotBeRead) {
    auto result = run({"list"}, "none.icp");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "none.icp: File not found\n");
    result = run({"list"}, ".");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, ".: Path/File access error\n");
    // Its texts would be lost.
    folder.write("a.txt", std::string("\xFF\xFE.\0t\0o\0p\0i\0c\0 \0", 16));
    expectRefused({"set", "frmMain", "cmdOK", "text"}, 2, "a.txt: this is UTF-16 text");
}

TEST_F(TextCommand, LosesNothingWhenItCannotSave) {
    const auto lock = [&](const char* name, bool locked) {
        fs::permissions(folder.path() / name, locked ? fs::perms(0444) : fs::perms(0644));
    };
    lock("a.txt", true);
    expectRefused({"set", "frmMain", "cmdOK", "text"}, 2, "a.txt: Errors occured while saving file ..");
    expectRefused({"delete", "frmMain", "cmdOK"}, 2, "a.txt: Errors occured while saving file ..");
    lock("a.txt", false);
    lock("a.hcnf", true);
    const auto result = run({"delete", "frmMain", "cmdOK"});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "a.hcnf: the configuration file could not be written; the texts were saved\n");
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(folder.read("a.hcnf"), mappings);
    EXPECT_EQ(folder.read("a.txt"),
              replaced(textsAsSaved, ".topic  IDH_AAAB\r\n Closes the window.\r\n", ""));
    lock("a.hcnf", false);
}

TEST_F(TextCommand, TakesPathsFromTheCurrentFolderElseFromTheProjectFiles) {
    folder.write("other/here.txt", "");
    test::Surroundings elsewhere;
    elsewhere.folder = folder.path() / "other";
    EXPECT_EQ(test::runCorvelle({"text", "../p.icp", "set", "frmMain", "cmdOK", "new"}, elsewhere).status, 0);
    EXPECT_EQ(folder.read("a.txt"), replaced(textsAsSaved, " Closes the window.", "new"));
    // One in the current folder comes first.
    folder.write("other/a.txt", ".topic  IDH_AAAE\r\nfrom here\r\n");
    EXPECT_THAT(test::runCorvelle({"text", "../p.icp", "list"}, elsewhere).out, EndsWith("\tfrom here\n"));
    const auto full = [&](const char* name) { return (folder.path() / name).string(); };
    writeProject(full("a.h"), full("a.hcnf"), full("a.txt"));
    EXPECT_THAT(test::runCorvelle({"text", "../p.icp", "list"}, elsewhere).out, EndsWith("\tSaves.\n"));
}

TEST_F(TextCommand, IsStrictAboutItsUsage) {
    const auto status = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "text");
        test::Surroundings surroundings;
        surroundings.folder = folder.path();
        const auto result = test::runCorvelle(arguments, surroundings);
        EXPECT_EQ(result.out, "");
        EXPECT_NE(result.err, "");
        return result.status;
    };
    EXPECT_EQ(status({}), 2);
    EXPECT_EQ(status({"p.icp"}), 2);
    EXPECT_EQ(status({"p.icp", "show"}), 2);
    EXPECT_EQ(status({"p.icp", "list", "frmMain"}), 2);
    EXPECT_EQ(status({"p.icp", "list", "list"}), 2);
    EXPECT_EQ(status({"p.icp", "set", "frmMain", "cmdOK"}), 2);
    EXPECT_EQ(status({"p.icp", "set", "frmMain", "cmdOK", "a", "b"}), 2);
    EXPECT_EQ(status({"p.icp", "set", "frmMain", "cmdOK", "-x"}), 2);
    EXPECT_EQ(status({"p.icp", "delete", "frmMain"}), 2);
    EXPECT_EQ(status({"p.icp", "default", "frmMain", "cmdOK", "x"}), 2);
    EXPECT_EQ(folder.read("a.txt"), texts);
}

TEST_F(TextCommand, HasHelpForEachCommand) {
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{}, {"list"}, {"set"}, {"default"}, {"delete"}}) {
        std::vector<std::string> arguments{"text"};
        if (!command.empty()) arguments.insert(arguments.end(), {"p.icp", command.front()});
        arguments.emplace_back("--help");
        const auto result = test::runCorvelle(arguments);
        EXPECT_EQ(result.status, 0);
        EXPECT_THAT(result.out, HasSubstr("Usage: corvelle text"));
    }
}

#ifdef __linux__
TEST_F(TextCommand, TellsThatItsListCouldNotBePrinted) {
    test::Surroundings full;
    full.folder = folder.path();
    full.outputTo = "/dev/full";
    const auto result = test::runCorvelle({"text", "p.icp", "list"}, full);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "standard output: could not be written\n");
}
#endif

} // namespace
} // namespace corvelle::cli
