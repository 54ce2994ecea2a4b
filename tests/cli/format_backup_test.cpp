// --backup-dir: each file that is rewritten, as it was.

#include "cli/format_fixture.h"

namespace corvelle::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

std::string inFolder(const char* folder, const char* name) {
    return (fs::path(folder) / name).string();
}

class Backups : public FormatTest {
  protected:
    Outcome formatWithBackups(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"--quiet", "--backup-dir", "bak"});
        return format(arguments);
    }
    std::vector<std::string> backups() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder.path() / "bak")) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }
};

TEST_F(Backups, HoldTheWholeFileByteForByte) {
    const std::string form =
        "\xEF\xBB\xBFVERSION 5.00\nBegin VB.Form F\nEnd\nAttribute VB_Name = \"F\"\n\tSub a() ' x\r\n"
        "Attribute a.VB_Description = \"x\"\nb  \n\r\n\xE9\n  End Sub";
    folder.write("f.frm", form);
    EXPECT_EQ(formatWithBackups({"--remove-empty-lines", "--remove-trailing-comments", "f.frm"}).status, 0);
    EXPECT_NE(folder.read("f.frm"), form);
    EXPECT_EQ(folder.read("bak/F_bak.frm"), form);
}

TEST_F(Backups, AreNamedByTheAttribute) {
    folder.write("a.vbp", "Module=InProject; file.bas\r\n");
    folder.write("file.bas", "Attribute VB_Name = \"ByAttribute\"\r\n" + std::string(untidy));
    formatWithBackups({"a.vbp"});
    EXPECT_THAT(backups(), ElementsAre("ByAttribute_bak.bas"));
}

TEST_F(Backups, AreElseNamedByTheProject) {
    folder.write("a.vbp", "Class=InProject; file.cls\r\n");
    folder.write("file.cls", "VERSION 5.00\r\nBegin VB.Form ByDesigner\r\nEnd\r\n" + std::string(untidy));
    formatWithBackups({"a.vbp"});
    EXPECT_THAT(backups(), ElementsAre("InProject_bak.cls"));
}

TEST_F(Backups, AreElseNamedByTheDesigner) {
    folder.write("a.vbp", "Form=file.frm\r\n");
    folder.write("file.frm", "VERSION 5.00\r\nBegin VB.Form ByDesigner\r\nEnd\r\n" + std::string(untidy));
    formatWithBackups({"a.vbp"});
    EXPECT_THAT(backups(), ElementsAre("ByDesigner_bak.frm"));
}

TEST_F(Backups, AreElseNamedByTheFile) {
    folder.write("by.file.bas", untidy);
    formatWithBackups({"by.file.bas"});
    EXPECT_THAT(backups(), ElementsAre("by.file_bak.bas"));
}

TEST_F(Backups, AreNotNamedByWhatLeadsElsewhere) {
    folder.write("a.bas", "Attribute VB_Name = \"../../x\"\r\n" + std::string(untidy));
    folder.write("b.bas", "Attribute VB_Name = \"..\\x\"\r\n" + std::string(untidy));
    formatWithBackups({"a.bas", "b.bas"});
    EXPECT_THAT(backups(), UnorderedElementsAre("a_bak.bas", "b_bak.bas"));
}

TEST_F(Backups, HaveTheEndingOfTheirKind) {
    const std::string mdi = "VERSION 5.00\r\nBegin VB.MDIForm M\r\nEnd\r\n";
    for (const std::string name : {"a.bas", "b.cls", "c.frm", "e.pag", "f.ctl", "g.dob", "h.dsr"}) {
        folder.write(name, untidy);
    }
    folder.write("d.frm", mdi + std::string(untidy));
    formatWithBackups({"."});
    EXPECT_THAT(backups(), UnorderedElementsAre("a_bak.bas", "b_bak.cls", "c_bak.frm", "M_bak.frm",
                                                "e_bak.pag", "f_bak.ctl", "g_bak.dob", "h_bak.Dsr"));
}

TEST_F(Backups, OfOneNameAreNumberedInTheModulesOrder) {
    for (const std::string number : {"1", "2", "3"}) {
        folder.write(number + "/m.bas", "Sub a" + number + "()\r\nb\r\nEnd Sub\r\n");
    }
    folder.write("0/m.bas", tidy); // not rewritten, so that it takes no number
    folder.write("4/n.cls", "Attribute VB_Name = \"M\"\r\nSub a4()\r\nb\r\nEnd Sub\r\n");
    EXPECT_EQ(formatWithBackups({"--jobs", "8", "0", "1", "3", "2", "4"}).status, 0);
    EXPECT_THAT(backups(), UnorderedElementsAre("m_bak.bas", "m_bak2.bas", "m_bak3.bas", "M_bak4.cls"));
    EXPECT_EQ(folder.read("bak/m_bak.bas"), "Sub a1()\r\nb\r\nEnd Sub\r\n");
    EXPECT_EQ(folder.read("bak/m_bak2.bas"), "Sub a3()\r\nb\r\nEnd Sub\r\n");
    EXPECT_EQ(folder.read("bak/m_bak3.bas"), "Sub a2()\r\nb\r\nEnd Sub\r\n");
}

TEST_F(Backups, AreMadeOfRewrittenFilesOnly) {
    folder.write("tidy.bas", tidy);
    folder.write("broken.bas", "End Sub\r\n  a\r\n");
    folder.write("empty.bas", "");
    EXPECT_EQ(formatWithBackups({"."}).status, 1);
    folder.write("untidy.bas", untidy);
    for (const char* mode : {"--check", "--diff"}) formatWithBackups({mode, "--force", "."});
    EXPECT_EQ(formatWithBackups({"--stdout", "untidy.bas"}).out, tidy);
    EXPECT_FALSE(fs::exists(folder.path() / "bak"));
    formatWithBackups({"--force", "broken.bas"});
    EXPECT_THAT(backups(), ElementsAre("broken_bak.bas"));
}

TEST_F(Backups, UseUpNoNameForAModuleThatFails) {
    std::string tooDeep; // for the 16 bits of its spaces
    for (int i = 0; i < 3300; ++i) tooDeep += "Do\r\n";
    folder.write("1/m.bas", tooDeep);
    folder.write("2/m.bas", untidy);
    const Outcome outcome = formatWithBackups({"--tab-width", "10", "1", "2"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "1/m.bas:3278: Overflow\n1/m.bas:3278: CV103 the blocks that are open here need more than "
              "32767 blanks: Do\n");
    EXPECT_THAT(backups(), ElementsAre("m_bak.bas"));
    EXPECT_EQ(folder.read("bak/m_bak.bas"), untidy);
    EXPECT_EQ(folder.read("1/m.bas"), tooDeep);
}

TEST_F(Backups, LeaveThoseOfEarlierRunsAsTheyAre) {
    folder.write("bak/a_bak.bas", "older text");
    folder.write("bak/a_bak3.bas", "other text");
    for (const std::string run : {"1", "2", "3"}) {
        folder.write("a.bas", "Sub a" + run + "()\r\nb\r\nEnd Sub\r\n");
        EXPECT_EQ(formatWithBackups({"a.bas"}).status, 0);
    }
    EXPECT_EQ(folder.read("bak/a_bak.bas"), "older text");
    EXPECT_EQ(folder.read("bak/a_bak2.bas"), "Sub a1()\r\nb\r\nEnd Sub\r\n");
    EXPECT_EQ(folder.read("bak/a_bak3.bas"), "other text");
    EXPECT_EQ(folder.read("bak/a_bak4.bas"), "Sub a2()\r\nb\r\nEnd Sub\r\n");
    EXPECT_EQ(folder.read("bak/a_bak5.bas"), "Sub a3()\r\nb\r\nEnd Sub\r\n");
}

TEST_F(Backups, OfAnotherProjectsModuleOfThatNameAreLeftAsTheyAre) {
    for (const std::string project : {"one", "two"}) {
        folder.write(project + "/p.vbp", "Module=Main; main.bas\r\n");
        folder.write(project + "/main.bas",
                     "Attribute VB_Name = \"Main\"\r\nSub " + project + "()\r\nb\r\nEnd Sub\r\n");
        EXPECT_EQ(formatWithBackups({project + "/p.vbp"}).status, 0);
    }
    EXPECT_THAT(folder.read("bak/Main_bak.bas"), testing::HasSubstr("Sub one()"));
    EXPECT_THAT(folder.read("bak/Main_bak2.bas"), testing::HasSubstr("Sub two()"));
}

TEST_F(Backups, AreNotFormattedWithTheDirectoryThatTheyStandIn) {
    folder.write("d/a.bas", untidy);
    EXPECT_EQ(format({"--quiet", "--backup-dir", "d/bak", "d"}).status, 0);
    folder.write("d/a.bas", untidy);
    EXPECT_EQ(format({"--quiet", "--backup-dir", "d/bak", "d"}).status, 0);
    EXPECT_EQ(folder.read("d/bak/a_bak.bas"), untidy);
    EXPECT_EQ(folder.read("d/bak/a_bak2.bas"), untidy);
    EXPECT_FALSE(fs::exists(folder.path() / "d/bak/a_bak_bak.bas"));
}

TEST_F(Backups, GoIntoAFolderThatIsMade) {
    folder.write("a.bas", untidy);
    EXPECT_EQ(format({"--backup-dir", "x/y/z", "a.bas"}).status, 0);
    EXPECT_EQ(folder.read("x/y/z/a_bak.bas"), untidy);
}

TEST_F(Backups, ThatCannotBeSavedLeaveTheFileAlone) {
    folder.write("a.bas", untidy);
    folder.write("b.bas", untidy);
    folder.write("bak", "a file where the folder should be");
    const Outcome outcome = formatWithBackups({"a.bas"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, testing::StartsWith("a.bas: not rewritten, its backup " +
                                                 inFolder("bak", "a_bak.bas") + " could not be saved: "));
    EXPECT_EQ(folder.read("a.bas"), untidy);
}

#ifndef _WIN32
TEST_F(Backups, OnAFullDiskLeaveTheFileAlone) {
    std::string large = "Sub a()\r\n";
    while (large.size() < 200'000) large += "b\r\n";
    folder.write("a.bas", large);
    Surroundings full;
    full.largestFile = 100'000;
    const Outcome outcome = format({"--quiet", "--backup-dir", "bak", "a.bas"}, full);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(
        outcome.err,
        "a.bas: not rewritten, its backup bak/a_bak.bas could not be saved: the file would be too large\n");
    EXPECT_EQ(folder.read("a.bas"), large);
    EXPECT_THAT(backups(), IsEmpty());
}
#endif

#ifndef _WIN32
TEST_F(Backups, FollowNoLinkThatStandsInTheirPlace) {
    folder.write("a.bas", untidy);
    folder.write("notes.txt", "notes");
    fs::create_directory(folder.path() / "bak");
    fs::create_symlink("../notes.txt", folder.path() / "bak/a_bak.bas");
    fs::create_symlink("../nowhere.txt", folder.path() / "bak/a_bak2.bas");
    EXPECT_EQ(formatWithBackups({"a.bas"}).status, 0);
    EXPECT_EQ(folder.read("notes.txt"), "notes");
    EXPECT_FALSE(fs::exists(folder.path() / "nowhere.txt"));
    EXPECT_EQ(folder.read("bak/a_bak3.bas"), untidy);
}

TEST_F(Backups, AreReadableForNobodyElseThanTheModules) {
    for (const auto mode : {0600U, 0640U, 0666U}) {
        const auto path = folder.write("a.bas", untidy);
        fs::permissions(path, fs::perms(mode));
        EXPECT_EQ(formatWithBackups({"a.bas"}).status, 0);
        EXPECT_EQ(fs::status(folder.path() / "bak/a_bak.bas").permissions(), fs::perms(mode));
        fs::remove(folder.path() / "bak/a_bak.bas");
    }
}
#endif

TEST_F(Backups, NeverTakeThePlaceOfAModuleOfTheRun) {
    const std::string other = "Attribute VB_Name = \"Other\"\r\n" + std::string(untidy);
    for (const char* jobs : {"1", "8"}) {
        folder.write("a.bas", untidy);
        folder.write("a_bak.bas", other);
        EXPECT_EQ(format({"--quiet", "--jobs", jobs, "--backup-dir", ".", "a.bas", "a_bak.bas"}).status, 0);
        EXPECT_EQ(folder.read("a.bas"), tidy);
        EXPECT_EQ(folder.read("a_bak.bas"), "Attribute VB_Name = \"Other\"\r\n" + std::string(tidy));
        EXPECT_EQ(folder.read("a_bak2.bas"), untidy);
        EXPECT_EQ(folder.read("Other_bak.bas"), other);
        fs::remove(folder.path() / "a_bak2.bas");
        fs::remove(folder.path() / "Other_bak.bas");
    }
}

} // namespace
} // namespace corvelle::test
