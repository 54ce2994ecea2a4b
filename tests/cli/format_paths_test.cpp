// What PATH may be, how messages name what is found, and in which order.
#include "cli/format_fixture.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace corvelle::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr std::string_view untidyForm =
    "VERSION 5.00\r\nBegin VB.Form Form1 \r\n   Caption = \"x\"\r\nEnd\r\nAttribute VB_Name = \"Form1\"\r\n"
    "Sub a()\r\nb\r\nEnd Sub\r\n";

class Paths : public FormatTest {
  protected:
    // The paths that --check lists, one a line.
    std::string listed(std::vector<std::string> paths) {
        paths.insert(paths.begin(), {"--check", "--quiet"});
        return format(paths).out;
    }
};

TEST_F(Paths, MayBeAModuleOfEachKind) {
    for (const std::string ending : {"bas", "cls", "frm", "ctl", "pag", "dob", "dsr", "BAS", "Frm"}) {
        const std::string name = "m." + ending;
        folder.write(name, untidyForm);
        EXPECT_EQ(listed({name}), name + "\n");
    }
}

TEST_F(Paths, MayBeAProjectWithAllItsModules) {
    folder.write("sub/App.vbp", "Type=Exe\r\nModule=One; one.bas\r\nForm=..\\forms\\two.frm\r\n"
                                "Class=Three; code\\three.cls\r\nUserControl=four.ctl\r\n"
                                "PropertyPage=five.pag\r\nUserDocument=six.dob\r\nDesigner=seven.dsr\r\n"
                                "ResFile32=\"x.res\"\r\n");
    for (const char* name : {"sub/one.bas", "forms/two.frm", "sub/code/three.cls", "sub/four.ctl",
                             "sub/five.pag", "sub/six.dob", "sub/seven.dsr"}) {
        folder.write(name, untidyForm);
    }
    EXPECT_EQ(listed({"sub/App.vbp"}), "sub/one.bas\nsub/../forms/two.frm\nsub/code/three.cls\nsub/four.ctl\n"
                                       "sub/five.pag\nsub/six.dob\nsub/seven.dsr\n");
}

TEST_F(Paths, OfAProjectInTheCurrentFolderNeedNoFolder) {
    folder.write("App.VBP", "Module=One; one.bas\r\n");
    folder.write("one.bas", untidy);
    EXPECT_EQ(listed({"App.VBP"}), "one.bas\n");
    EXPECT_EQ(listed({"./App.VBP"}), "./one.bas\n");
    EXPECT_EQ(listed({(folder.path() / "App.VBP").string()}),
              (folder.path() / "one.bas").generic_string() + "\n");
}

TEST_F(Paths, MayBeAGroupWithAllItsProjects) {
    folder.write("all.vbg",
                 "VBGROUP 5.0\r\nStartupProject=b\\B.vbp\r\nProject=a\\A.vbp\r\nProject=gone.vbp\r\n");
    folder.write("a/A.vbp", "Module=M; m.bas\r\n");
    folder.write("b/B.vbp", "Module=N; n.bas\r\nModule=Shared; ..\\a\\m.bas\r\n");
    folder.write("a/m.bas", untidy);
    folder.write("b/n.bas", untidy);
    const Outcome outcome = format({"--check", "--quiet", "all.vbg"});
    EXPECT_EQ(outcome.out, "b/n.bas\nb/../a/m.bas\n");
    EXPECT_EQ(outcome.err, "gone.vbp: File not found (named in all.vbg)\n");
    EXPECT_EQ(outcome.status, 2);
}

TEST_F(Paths, MayBeAGroupWithAnEndingInAnyCase) {
    folder.write("all.VBG", "Project=a.vbp\r\n");
    folder.write("a.vbp", "Module=M; m.bas\r\n");
    folder.write("m.bas", untidy);
    EXPECT_EQ(listed({"all.VBG"}), "m.bas\n");
}

TEST_F(Paths, MayBeADirectoryWithEveryModuleBelowIt) {
    for (const char* name : {"d/b.bas", "d/a/z.cls", "d/a/b/y.FRM", "d/c.bas", "d/B1.bas"}) {
        folder.write(name, untidyForm);
    }
    folder.write("d/readme.txt", untidy);
    folder.write("d/App.vbp", "Module=Gone; gone.bas\r\n");
    EXPECT_EQ(listed({"d"}), "d/B1.bas\nd/a/b/y.FRM\nd/a/z.cls\nd/b.bas\nd/c.bas\n");
    EXPECT_EQ(listed({"d/"}), "d/B1.bas\nd/a/b/y.FRM\nd/a/z.cls\nd/b.bas\nd/c.bas\n");
}

TEST_F(Paths, MayBeADirectoryWithAModulesEnding) {
    folder.write("d.bas/m.cls", untidy);
    EXPECT_EQ(listed({"d.bas"}), "d.bas/m.cls\n");
    EXPECT_EQ(listed({"."}), "./d.bas/m.cls\n");
}

TEST_F(Paths, AreWorkedOnInTheOrderOfTheArguments) {
    for (const char* name : {"z.bas", "a.bas", "d/m.bas"}) folder.write(name, untidy);
    EXPECT_EQ(listed({"z.bas", "d", "a.bas"}), "z.bas\nd/m.bas\na.bas\n");
}

TEST_F(Paths, OfProjectsThatAreReachedTwiceReportTheirMissingModulesOnce) {
    folder.write("all.vbg", "Project=a.vbp\r\n");
    folder.write("a.vbp", "Module=M; gone.bas\r\n");
    EXPECT_EQ(format({"a.vbp", "all.vbg"}).err, "gone.bas: File not found (named in a.vbp)\n");
}

TEST_F(Paths, ThatAreMissingDoNotKeepTheOthersFromBeingFormatted) {
    folder.write("a.vbp", "Module=Gone; gone.bas\r\nModule=M; m.bas\r\n");
    folder.write("m.bas", untidy);
    folder.write("n.bas", untidy);
    const Outcome outcome = format({"nowhere/x.bas", "a.vbp", "gone.vbp", "gone.vbg", "n.bas"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err,
              "nowhere/x.bas: Path not found: nowhere\n"
              "gone.bas: File not found (named in a.vbp)\n" +
                  summary("m.bas", 5, 5) + "gone.vbp: File not found\ngone.vbg: File not found\n" +
                  summary("n.bas", 5, 5) + "2 rewritten, 0 left unchanged, 0 refused, 4 failed\n");
    EXPECT_EQ(folder.read("m.bas"), tidy);
    EXPECT_EQ(folder.read("n.bas"), tidy);
}

TEST_F(Paths, OfOtherFilesAreRefused) {
    folder.write("readme.txt", untidy);
    const Outcome outcome = format({"readme.txt"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "readme.txt: not a module, a project, a project group or a directory\n");
    EXPECT_EQ(folder.read("readme.txt"), untidy);
}

TEST_F(Paths, MayNotBeEmpty) {
    const Outcome outcome = format({""});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, ": the path is empty\n");
}

TEST_F(Paths, ThatHoldNoModulesAreNotedInTheirPlace) {
    fs::create_directory(folder.path() / "d");
    folder.write("a.vbp", "Type=Exe\r\n");
    folder.write("a.vbg", "VBGROUP 5.0\r\n");
    folder.write("m.bas", untidy);
    const Outcome outcome = format({"d", "m.bas", "a.vbp", "a.vbg"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "d: no modules in this directory\n" + summary("m.bas", 5, 5) +
                               "a.vbp: no modules in this project\na.vbg: no projects in this group\n");
    EXPECT_EQ(format({"--quiet", "d"}).err, "");
    folder.write("n.bas", tidy);
    EXPECT_THAT(format({"d", "m.bas", "n.bas"}).err,
                testing::EndsWith("\n0 rewritten, 2 left unchanged, 0 refused\n"));
}

TEST_F(Paths, WhoseModulesWereAllReachedBeforeAreNotCalledEmpty) {
    folder.write("d/m.bas", tidy);
    EXPECT_THAT(format({"d/m.bas", "d"}).err, Not(HasSubstr("no modules")));
}

TEST_F(Paths, OfProjectsMayNotLeadToBinaryFiles) {
    folder.write("a.vbp", std::string("MZ\0\1\2\3\0\0\0\0", 10) + std::string(10, '\1'));
    const Outcome outcome = format({"a.vbp"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "a.vbp: this is a binary file, not a project or a group\n");
}

#ifndef _WIN32

TEST_F(Paths, ThatLeadToOneFileFormatItOnce) {
    folder.write("a.vbp", "Module=M; shared.bas\r\nModule=M2; SHARED.BAS\r\n");
    folder.write("b/b.vbp", "Module=M; ..\\Shared.bas\r\n");
    folder.write("shared.bas", untidy);
    fs::create_symlink("shared.bas", folder.path() / "link.bas");
    const Outcome outcome =
        format({"--check", "link.bas", "shared.bas", "./shared.bas", "a.vbp", "b/b.vbp", ".", "-", "-"});
    EXPECT_EQ(outcome.out, "link.bas\n");
    EXPECT_THAT(outcome.err, HasSubstr("1 would be rewritten, 1 left unchanged, 0 refused\n"));
}

TEST_F(Paths, InsideProjectsAreFoundWhateverTheirLetterCase) {
    folder.write("a.vbp", "Module=M; Code\\Main.BAS\r\nModule=N; exact.bas\r\nModule=O; Twice.bas\r\n");
    folder.write("code/main.bas", untidy);
    folder.write("exact.bas", untidy);
    folder.write("Exact.bas", untidy);
    folder.write("twice.bas", untidy);
    folder.write("TWICE.bas", untidy);
    const Outcome outcome = format({"--check", "--quiet", "a.vbp"});
    EXPECT_EQ(outcome.out, "code/main.bas\nexact.bas\n");
    EXPECT_EQ(outcome.err, "Twice.bas: File not found (named in a.vbp)\n");
    EXPECT_EQ(outcome.status, 2);
}

TEST_F(Paths, DoNotFollowLinksToDirectories) {
    folder.write("d/m.bas", untidy);
    fs::create_directory_symlink(".", folder.path() / "d/again");
    fs::create_directory_symlink("d", folder.path() / "link");
    EXPECT_EQ(listed({"d"}), "d/m.bas\n");
    EXPECT_EQ(listed({"link"}), "link/m.bas\n"); // the argument itself may be one
}

TEST_F(Paths, ThatCannotBeReadAreReported) {
    folder.write("a.bas", untidy);
    folder.write("d/b.bas", untidy);
    folder.write("m.bas", untidy);
    fs::create_symlink("nowhere", folder.path() / "dangling.bas");
    chmod((folder.path() / "a.bas").c_str(), 0);
    chmod((folder.path() / "d").c_str(), 0);
    Surroundings nobody;
    nobody.asNobody = true;
    const Outcome outcome = format({"--check", "--quiet", "a.bas", "d", "dangling.bas", "m.bas"}, nobody);
    chmod((folder.path() / "d").c_str(), 0700);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "a.bas: Permission denied\nd: Permission denied\n"
                           "dangling.bas: File not found\n");
    EXPECT_EQ(outcome.out, "m.bas\n");
}

TEST_F(Paths, MayBeALoopOfLinks) {
    fs::create_symlink("loop.bas", folder.path() / "loop.bas");
    const Outcome outcome = format({"loop.bas"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("loop.bas: "));
}

#endif

} // namespace
} // namespace corvelle::test
