// Runs the program, which is found in CORVELLE_BINARY.
#include "base/folder_lock.h"
#include "base/temporary_folder.h"
#include "cli/run_corvelle.h"
#include "cli/text_command.h"
#include "cli/text_settings.h"
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
    EXPECT_EQ(folder.read("a.txt"), replaced(texts, "Closes\r\nthe window.", "Closes the dialog."));
    EXPECT_EQ(folder.read("a.hcnf"), mappings);
    EXPECT_EQ(folder.read("a.h"), "header");
    EXPECT_THAT(run({"list"}).out,
                StartsWith("frmMain\tcmdOK\tCommandButton\tIDH_AAAB\tCloses the dialog.\n"));
}

TEST_F(TextCommand, TakesATextOfAnyKind) {
    for (const std::string text : {"", "delete", "[a, b]", "a \"b\" \\ ,c", "\xE4\xF6", "a\tb"}) {
        expectSaved({"set", "frmMain", "cmdOK", text});
        EXPECT_THAT(folder.read("a.txt"),
                    HasSubstr(".topic  IDH_AAAB\r\n" + text + "\r\n.topic  IDH_AAAD\r\n"));
    }
    expectSaved({"set", "frmMain", "cmdOK", "--", "-x"});
    EXPECT_THAT(folder.read("a.txt"), HasSubstr(".topic  IDH_AAAB\r\n-x\r\n"));
    expectSaved({"set", "frmMain", "cmdOK", "one\ntwo\r\nthree"});
    EXPECT_THAT(folder.read("a.txt"), HasSubstr(".topic  IDH_AAAB\r\none\r\ntwo\r\nthree\r\n"));
    EXPECT_THAT(run({"list"}).out, HasSubstr("\tone two three\n"));
}

TEST_F(TextCommand, TellsControlsOfOneNameApart) {
    expectSaved({"set", "frmMain", "opt#2", "2nd"});
    EXPECT_EQ(folder.read("a.txt"), replaced(texts, "\tsecond ", "2nd"));
    expectSaved({"set", "FRMMAIN", "Opt", "1st"}); // names have no letter case
    EXPECT_THAT(folder.read("a.txt"), EndsWith("Saves.\r\n.topic  IDH_AAAC\r\n1st\r\n"));
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
    EXPECT_EQ(folder.read("a.txt"), replaced(texts, ".topic  IDH_AAAE\r\nSaves.\r\n", ""));
    EXPECT_EQ(folder.read("a.h"), "header");
    EXPECT_THAT(run({"list"}).out, EndsWith("frmPart\tcmdOK\tCommandButton\tIDH_AAAA\tNothing is known.\n"));
    // Once more changes nothing.
    expectSaved({"default", "frmPart", "cmdOK"});
    EXPECT_EQ(folder.read("a.hcnf"), replaced(mappings, "IDH_AAAE", "IDH_AAAA"));
}

TEST_F(TextCommand, TakesAControlOutOfTheIndex) {
    expectSaved({"delete", "frmMain", "opt"});
    EXPECT_EQ(folder.read("a.hcnf"), replaced(mappings, "<C>opt OptionButton IDH_AAAC</C>\r\n", ""));
    EXPECT_EQ(folder.read("a.txt"), texts); // it had no topic
    EXPECT_EQ(folder.read("a.h"), "header");
    expectSaved({"delete", "frmMain", "opt"}); // the second is the first now
    EXPECT_EQ(folder.read("a.txt"), replaced(texts, ".topic  IDH_AAAD\r\n\tsecond \r\n", ""));
    expectRefused({"delete", "frmMain", "opt"}, 1, "opt: frmMain has no such control");
}

TEST_F(TextCommand, KeepsTheDefaultTopicAndTheTopicOfAnotherControl) {
    folder.write("a.hcnf", "<P>f</P>\r\n<C>a Label IDH_AAAA</C>\r\n<C>b Label IDH_AAAB</C>\r\n"
                           "<C>c Label IDH_AAAB</C>\r\n");
    expectSaved({"default", "f", "a"});
    expectSaved({"delete", "f", "a"});
    expectSaved({"delete", "f", "b"});
    EXPECT_EQ(folder.read("a.txt"), texts);
    expectSaved({"delete", "f", "c"}); // the last one that shows it
    EXPECT_EQ(folder.read("a.txt"), replaced(texts, ".topic  IDH_AAAB\r\nCloses\r\nthe window.\r\n", ""));
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

TEST_F(TextCommand, WritesNothingWhenItCannotWriteAll) {
    const auto lock = [&](const char* name, bool locked) {
        fs::permissions(folder.path() / name, locked ? fs::perms(0444) : fs::perms(0644));
    };
    lock("a.txt", true);
    expectRefused({"set", "frmMain", "cmdOK", "text"}, 2, "a.txt: Errors occured while saving file ..");
    expectRefused({"delete", "frmMain", "cmdOK"}, 2, "a.txt: Errors occured while saving file ..");
    lock("a.txt", false);
    lock("a.hcnf", true);
    expectRefused({"delete", "frmMain", "cmdOK"}, 2, "a.hcnf: the configuration file could not be written");
    lock("a.hcnf", false);
}

TEST_F(TextCommand, ShowsNoControlCharacterOfAFile) {
    folder.write("a.hcnf", "<P>f\x1B[2J</P>\r\n<C>a\tb Label\x7F IDH_AAAB</C>\r\n");
    folder.write("a.txt", ".topic  IDH_AAAA\r\n.topic  IDH_AAAB\r\na\x1B]0;b\tc\x07\r\n");
    EXPECT_EQ(run({"list"}).out, "f\\x1B[2J\ta\\x09b\tLabel\\x7F\tIDH_AAAB\ta\\x1B]0;b c\\x07\n");
    expectRefused({"delete", "f\x1B[2J", "c\n\x1B"}, 1, "c\\x0A\\x1B: f\\x1B[2J has no such control\n");
    expectRefused({"delete", "\x1B", "c"}, 1, "\\x1B: the index has no such designer\n");
#ifndef _WIN32 // which has no such names
    writeProject("a.h", "a.hcnf", "\x1B.txt");
    folder.write("\x1B.txt", std::string("\xFF\xFE.\0t\0o\0p\0i\0c\0 \0", 16));
    EXPECT_THAT(run({"list"}).err, StartsWith("\\x1B.txt: this is UTF-16 text"));
#endif
}

TEST_F(TextCommand, KeepsEveryByteThatIsNotTheTopics) {
    const std::string byHand = "; by hand\n.topic  IDH_AAAA\nNothing  is\n\n known. \n\n.TOPIC IDH_AAAB\r\n"
                               "Closes\r\n\r\n \r\n.topic  Other.Program\n\ta   b\n.topic\nx\n"
                               ".topic  IDH_AAAB\nlater\n\n.topic  IDH_AAAE\nno end";
    folder.write("a.txt", byHand);
    expectSaved({"set", "frmMain", "cmdOK", "new\nlines"});
    const auto edited = replaced(byHand, "later", "new\nlines"); // the one of two that counts
    EXPECT_EQ(folder.read("a.txt"), edited);
    expectSaved({"set", "frmPart", "cmdOK", "end"});
    EXPECT_EQ(folder.read("a.txt"), replaced(edited, "no end", "end"));
    expectSaved({"set", "frmMain", "opt", "more"});
    EXPECT_EQ(folder.read("a.txt"), replaced(edited, "no end", "end\n.topic  IDH_AAAC\nmore\n"));
    folder.write("a.txt", byHand);
    expectSaved({"delete", "frmMain", "cmdOK"});
    EXPECT_EQ(folder.read("a.txt"), replaced(replaced(byHand, ".topic  IDH_AAAB\nlater\n\n", ""),
                                             ".TOPIC IDH_AAAB\r\nCloses\r\n\r\n \r\n", ""));
}

TEST_F(TextCommand, KeepsEveryByteOfTheOtherControls) {
    const std::string byHand =
        "\n <p>frmMain</p> \n<C>cmdOK  CommandButton</C>\r\n\n<c>a Label IDH_AAAB</c> \n"
        "<C>b Label IDH_AAAC more</C>\r\n<C>c Label IDH_AAAE</C>";
    folder.write("a.hcnf", byHand);
    expectSaved({"default", "frmMain", "a"});
    EXPECT_EQ(folder.read("a.hcnf"), replaced(byHand, "IDH_AAAB", "IDH_AAAA"));
    expectSaved({"delete", "frmMain", "b"});
    EXPECT_EQ(folder.read("a.hcnf"),
              replaced(replaced(byHand, "IDH_AAAB", "IDH_AAAA"), "<C>b Label IDH_AAAC more</C>\r\n", ""));
}

TEST_F(TextCommand, BeginsAnEmptyTextFile) {
    folder.write("a.txt", "");
    expectSaved({"set", "frmMain", "cmdOK", "first"});
    EXPECT_EQ(folder.read("a.txt"), ".topic  IDH_AAAA\r\n\r\n.topic  IDH_AAAB\r\nfirst\r\n");
    expectSaved({"set", "frmMain", "opt", "second"});
    EXPECT_EQ(folder.read("a.txt"), ".topic  IDH_AAAA\r\n\r\n.topic  IDH_AAAB\r\nfirst\r\n"
                                    ".topic  IDH_AAAC\r\nsecond\r\n");
}

TEST_F(TextCommand, WritesNoFileThatIsNotWhatTheProjectFileSays) {
    const std::string code = "Attribute VB_Name = \"modMain\"\r\nSub Main()\r\nEnd Sub\r\n";
    for (const auto& foreign : {code, std::string(".topic  IDH_AAAB\r\na\r\n.topic  IDH_AAAA\r\n")}) {
        folder.write("a.txt", foreign);
        for (const auto& edit :
             {std::vector<std::string>{"set", "frmMain", "cmdOK", "x"}, {"delete", "frmMain", "opt#2"}}) {
            if (edit[0] == "delete" && foreign == code) continue; // it has no topic to delete
            if (edit[0] == "delete") folder.write("a.txt", foreign + ".topic  IDH_AAAD\r\n");
            expectRefused(edit, 2, "a.txt: this is no text file of an index");
        }
    }
    folder.write("a.txt", texts);
    folder.write("a.hcnf", mappings + "Notes\r\n");
    for (const auto* command : {"default", "delete"})
        expectRefused({command, "frmMain", "cmdOK"}, 2, "a.hcnf: this is no configuration file");
    expectSaved({"set", "frmMain", "cmdOK", "x"}); // which does not write it
}

TEST_F(TextCommand, WritesNoFileThatHasTwoPartsInTheIndex) {
    folder.write("sub/b", "");
    const auto expectOneFile = [&](const std::string& words) {
        for (const auto& edit :
             {std::vector<std::string>{"set", "frmMain", "cmdOK", "x"}, {"delete", "frmMain", "cmdOK"}})
            expectRefused(edit, 2, words);
    };
    writeProject("a.h", "a.hcnf", "sub/../a.hcnf");
    expectOneFile("p.icp: Configuration File and Text File are one file, sub/../a.hcnf");
    writeProject("a.txt", "a.hcnf", "a.txt");
    expectOneFile("p.icp: Header file and Text File are one file, a.txt");
    writeProject("a.h", "a.hcnf", "p.icp");
    expectOneFile("p.icp: the project file and Text File are one file, p.icp");
}

TEST_F(TextCommand, WaitsABoundedTimeForAnotherRun) {
    for (const auto* name : {"one/a.h", "two/a.hcnf", "three/a.txt"}) {
        const auto path = [&](const char* file) { return (folder.path() / file).string(); };
        folder.write("one/a.h", "header");
        folder.write("two/a.hcnf", mappings);
        folder.write("three/a.txt", texts);
        writeProject(path("one/a.h"), path("two/a.hcnf"), path("three/a.txt"));
        const base::FolderLock other({path(name)});
        TextSettings settings;
        settings.project = path("p.icp");
        settings.action = TextAction::Set;
        settings.designer = "frmMain";
        settings.control = "cmdOK";
        settings.longestWait = std::chrono::milliseconds(20);
        testing::internal::CaptureStderr();
        EXPECT_EQ(runText(settings), 2);
        EXPECT_THAT(testing::internal::GetCapturedStderr(),
                    HasSubstr("another run of corvelle is at work in "));
        EXPECT_EQ(folder.read("three/a.txt"), texts);
        EXPECT_THAT(run({"list"}).out, StartsWith("frmMain\tcmdOK")) << "reading needs no turn";
    }
}

TEST_F(TextCommand, TakesPathsFromTheCurrentFolderElseFromTheProjectFiles) {
    folder.write("other/here.txt", "");
    test::Surroundings elsewhere;
    elsewhere.folder = folder.path() / "other";
    EXPECT_EQ(test::runCorvelle({"text", "../p.icp", "set", "frmMain", "cmdOK", "new"}, elsewhere).status, 0);
    EXPECT_EQ(folder.read("a.txt"), replaced(texts, "Closes\r\nthe window.", "new"));
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
