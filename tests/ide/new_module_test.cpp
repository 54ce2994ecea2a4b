#include "base/error_of.h"
#include "base/temporary_folder.h"
#include "ide/workspace/project_file.h"
#include "ide/workspace/workspace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::workspace {
namespace {

namespace fs = std::filesystem;
using ide::ComponentType;
using test::errorNumberOf;
using test::TemporaryFolder;

const std::string module1 = "Attribute VB_Name = \"Module1\"\r\nSub Main()\r\nEnd Sub\r\n";
const std::string project = "Type=Exe\r\nModule=Module1; a.bas\r\nName=\"Proj\"\r\n";

class NewModule : public testing::Test {
  protected:
    NewModule() { folder.write("a.bas", module1); }

    void open(const std::string& bytes = project) {
        workspace = Workspace::open(folder.write("p.vbp", bytes));
        components = workspace->ActiveVBProject()->VBComponents();
    }
    std::shared_ptr<ide::VBComponent> add() { return components->Add(ComponentType::StdModule); }

    TemporaryFolder folder;
    std::shared_ptr<Workspace> workspace;
    std::shared_ptr<ide::VBComponents> components;
};

TEST_F(NewModule, IsEmptyAndHasTheNextFreeName) {
    open();
    const auto module = add();
    EXPECT_EQ(module->Name(), "Module2");
    EXPECT_EQ(add()->Name(), "Module3");
    EXPECT_EQ(module->Type(), ComponentType::StdModule);
    EXPECT_EQ(module->CodeModule()->CountOfLines(), 0);
    EXPECT_TRUE(module->IsDirty());
    EXPECT_EQ(module->Designer(), nullptr);
    EXPECT_EQ(components->Count(), 3);
    EXPECT_EQ(components->Item("module2"), module);
    EXPECT_EQ(folder.read("p.vbp"), project);
}

TEST_F(NewModule, IsSavedWithItsNameAndEntersTheProject) {
    open();
    const auto module = add();
    module->setName("modHelp");
    module->CodeModule()->InsertLines(1, "b");
    module->CodeModule()->InsertLines(1, "a\t");
    module->SaveAs((folder.path() / "modHelp.bas").string());
    EXPECT_EQ(folder.read("modHelp.bas"), "Attribute VB_Name = \"modHelp\"\r\na\t\r\nb\r\n");
    EXPECT_EQ(folder.read("p.vbp"),
              "Type=Exe\r\nModule=Module1; a.bas\r\nModule=modHelp; modHelp.bas\r\nName=\"Proj\"\r\n");
    EXPECT_FALSE(module->IsDirty());
    EXPECT_EQ(module->CodeModule()->Lines(1, 2), "a\t\r\nb");
    // The project on disk is what the workspace holds.
    const auto again = Workspace::open(folder.path() / "p.vbp");
    EXPECT_EQ(again->ActiveVBProject()->VBComponents()->Item(2)->Name(), "modHelp");
    EXPECT_EQ(again->ActiveVBProject()->VBComponents()->Item(2)->CodeModule()->Lines(1, 2), "a\t\r\nb");
    EXPECT_TRUE(again->problems().empty());
}

TEST_F(NewModule, IsAModuleLikeAnyOtherOnceSaved) {
    open();
    const auto module = add();
    module->SaveAs((folder.path() / "m.bas").string());
    EXPECT_EQ(errorNumberOf([&] { module->setName("x"); }), 438);
    EXPECT_EQ(errorNumberOf([&] { module->SaveAs("x"); }), 438);
    module->CodeModule()->InsertLines(1, "later");
    workspace->projects()[0]->components().back()->Save();
    EXPECT_EQ(folder.read("m.bas"), "Attribute VB_Name = \"Module2\"\r\nlater\r\n");
}

TEST_F(NewModule, CannotBeSavedWithoutAFile) {
    open();
    add();
    EXPECT_EQ(errorNumberOf([&] { workspace->projects()[0]->components().back()->Save(); }), 52);
}

TEST_F(NewModule, RefusesWhatIsNoName) {
    open();
    const auto module = add();
    for (const std::string name : {"", "a b", "1a", "_a", "a.b", "a-b", "a\"b"})
        EXPECT_EQ(errorNumberOf([&] { module->setName(name); }), 380) << name;
    EXPECT_EQ(errorNumberOf([&] { module->setName(std::string(41, 'a')); }), 380);
    module->setName(std::string(40, 'a'));
    module->setName("M\xFCller_1");
    EXPECT_EQ(module->Name(), "M\xFCller_1");
}

TEST_F(NewModule, RefusesANameThatIsTaken) {
    open("Type=Exe\r\nModule=Module1; a.bas\r\nModule=Gone; gone.bas\r\nName=\"Proj\"\r\n");
    const auto module = add();
    for (const std::string name : {"MODULE1", "proj", "gone"})
        EXPECT_EQ(errorNumberOf([&] { module->setName(name); }), 32813) << name;
    module->setName("MODULE2"); // its own
    EXPECT_EQ(module->Name(), "MODULE2");
}

TEST_F(NewModule, LeavesTheProjectAloneWhenItCannotBeSaved) {
    open();
    const auto module = add();
    EXPECT_EQ(errorNumberOf([&] { module->SaveAs((folder.path() / "none" / "m.bas").string()); }), 76);
    EXPECT_EQ(errorNumberOf([&] { module->SaveAs(folder.path().string()); }), 75);
    EXPECT_EQ(folder.read("p.vbp"), project);
    EXPECT_EQ(folder.names().size(), 2U);
    module->SaveAs((folder.path() / "m.bas").string());
    EXPECT_NE(folder.read("p.vbp"), project);
}

TEST_F(NewModule, DoesNotWriteOverSomebodyElsesChangeOfTheProject) {
    open();
    const auto module = add();
    folder.write("p.vbp", project + "Other=1\r\n");
    EXPECT_EQ(errorNumberOf([&] { module->SaveAs((folder.path() / "m.bas").string()); }), 70);
    EXPECT_EQ(folder.read("p.vbp"), project + "Other=1\r\n");
}

TEST_F(NewModule, EntersAfterAnotherOne) {
    open();
    add()->SaveAs((folder.path() / "m.bas").string());
    const auto second = add();
    second->SaveAs((folder.path() / "n.bas").string());
    EXPECT_EQ(folder.read("p.vbp"), "Type=Exe\r\nModule=Module1; a.bas\r\nModule=Module2; m.bas\r\n"
                                    "Module=Module3; n.bas\r\nName=\"Proj\"\r\n");
}

TEST_F(NewModule, HasNoProjectFileToEnterWhenAModuleWasOpenedAlone) {
    workspace = Workspace::open(folder.path() / "a.bas");
    components = workspace->ActiveVBProject()->VBComponents();
    add()->SaveAs((folder.path() / "m.bas").string());
    EXPECT_EQ(folder.names().size(), 2U);
}

TEST_F(NewModule, TakesThePlaceOfTheOneThatWasRemoved) {
    open();
    auto& held = *workspace->projects()[0];
    EXPECT_FALSE(held.removeModule("Module1", folder.path() / "b.bas"));
    EXPECT_FALSE(held.removeModule("Other", folder.path() / "a.bas"));
    EXPECT_TRUE(held.removeModule("module1", folder.path() / "." / "a.bas"));
    const auto module = add();
    module->setName("Module1");
    module->CodeModule()->InsertLines(1, "new");
    module->SaveAs((folder.path() / "a.bas").string());
    EXPECT_EQ(folder.read("a.bas"), "Attribute VB_Name = \"Module1\"\r\nnew\r\n");
    EXPECT_EQ(folder.read("p.vbp"), project);
}

TEST_F(NewModule, TakesThePlaceOfOneThatIsMissing) {
    fs::remove(folder.path() / "a.bas");
    open();
    EXPECT_TRUE(workspace->projects()[0]->removeModule("MODULE1", folder.path() / "a.bas"));
    const auto module = add();
    module->setName("Module1");
    module->SaveAs((folder.path() / "a.bas").string());
    EXPECT_EQ(folder.read("p.vbp"), project);
}

// Where the line goes

std::string withM(const std::string& bytes) {
    const TemporaryFolder folder;
    return withModule(bytes, folder.path(), "M", folder.write("m.bas", ""));
}

TEST(WithModule, PutsTheLineBehindTheLastModule) {
    EXPECT_EQ(
        withM("Type=Exe\r\nModule=A; a.bas\r\nForm=f.frm\r\n module = B; b.bas\r\nClass=C; c.cls\r\n"),
        "Type=Exe\r\nModule=A; a.bas\r\nForm=f.frm\r\n module = B; b.bas\r\nModule=M; m.bas\r\nClass=C; c.cls\r\n");
}

TEST(WithModule, PutsTheLineBehindTheLastMemberWhereThereIsNoModule) {
    EXPECT_EQ(withM("Type=Exe\r\nForm=f.frm\r\nUserControl=u.ctl\r\nName=\"x\"\r\n"),
              "Type=Exe\r\nForm=f.frm\r\nUserControl=u.ctl\r\nModule=M; m.bas\r\nName=\"x\"\r\n");
}

TEST(WithModule, PutsTheLineBehindTheReferencesWhereThereIsNoMember) {
    EXPECT_EQ(withM("Type=Exe\r\nReference=*\\G{0}\r\nObject={1}; a.ocx\r\nName=\"x\"\r\n"),
              "Type=Exe\r\nReference=*\\G{0}\r\nObject={1}; a.ocx\r\nModule=M; m.bas\r\nName=\"x\"\r\n");
    EXPECT_EQ(withM("Name=\"x\"\r\n"), "Module=M; m.bas\r\nName=\"x\"\r\n");
    EXPECT_EQ(withM("\xEF\xBB\xBFName=\"x\"\r\n"), "\xEF\xBB\xBFModule=M; m.bas\r\nName=\"x\"\r\n");
    EXPECT_EQ(withM(""), "Module=M; m.bas\r\n");
}

TEST(WithModule, LooksAtNoForeignSection) {
    EXPECT_EQ(withM("Type=Exe\r\n\r\n[Other]\r\nModule=X; x.bas\r\n"),
              "Type=Exe\r\nModule=M; m.bas\r\n\r\n[Other]\r\nModule=X; x.bas\r\n");
}

TEST(WithModule, EndsTheLastLine) {
    EXPECT_EQ(withM("Type=Exe\r\nModule=A; a.bas"), "Type=Exe\r\nModule=A; a.bas\r\nModule=M; m.bas\r\n");
    EXPECT_EQ(withM("Module=A; a.bas\r\nForm=f.frm"), "Module=A; a.bas\r\nModule=M; m.bas\r\nForm=f.frm\r\n");
}

TEST(WithModule, EndsItsLineAsTheFileDoes) {
    EXPECT_EQ(withM("Type=Exe\nModule=A; a.bas\n"), "Type=Exe\nModule=A; a.bas\nModule=M; m.bas\n");
    EXPECT_EQ(withM("Type=Exe\nModule=A; a.bas\r\n"), "Type=Exe\nModule=A; a.bas\r\nModule=M; m.bas\r\n");
}

TEST(WithModule, RewritesTheLineOfTheSameFile) {
    EXPECT_EQ(withM("Module=Old; M.BAS\r\nModule=A; a.bas\r\n"), "Module=M; m.bas\r\nModule=A; a.bas\r\n");
    EXPECT_EQ(withM("Module=M; m.bas\r\n"), "Module=M; m.bas\r\n");
    EXPECT_EQ(withM("\xEF\xBB\xBFModule=Old; m.bas\r\n"), "\xEF\xBB\xBFModule=M; m.bas\r\n");
}

TEST(WithHelpFile, ReplacesTheNameInItsLine) {
    EXPECT_EQ(withHelpFile("Startup=\"f\"\r\nHelpFile=\"\"\r\nTitle=\"x\"\r\n", "Help\\a b.chm"),
              "Startup=\"f\"\r\nHelpFile=\"Help\\a b.chm\"\r\nTitle=\"x\"\r\n");
    EXPECT_EQ(withHelpFile("Type=Exe\n helpfile = old.hlp \nTitle=\"x\"", "a.chm"),
              "Type=Exe\n helpfile = \"a.chm\" \nTitle=\"x\"");
    EXPECT_EQ(withHelpFile("HelpFile=", "a.chm"), "HelpFile=\"a.chm\"");
    EXPECT_EQ(withHelpFile("HelpFile=\"a.chm\"\r\n", "a.chm"), "HelpFile=\"a.chm\"\r\n");
}

TEST(WithHelpFile, AddsTheLineWhereThereIsNone) {
    EXPECT_EQ(withHelpFile("Type=Exe\r\nStartup=\"f\"\r\nName=\"x\"\r\n", "a.chm"),
              "Type=Exe\r\nStartup=\"f\"\r\nHelpFile=\"a.chm\"\r\nName=\"x\"\r\n");
    EXPECT_EQ(withHelpFile("Type=Exe\nName=\"x\"\n\n[Other]\nHelpFile=1\n", "a.chm"),
              "Type=Exe\nName=\"x\"\nHelpFile=\"a.chm\"\n\n[Other]\nHelpFile=1\n");
    EXPECT_EQ(withHelpFile("Type=Exe", "a.chm"), "Type=Exe\r\nHelpFile=\"a.chm\"\r\n");
    EXPECT_EQ(withHelpFile("\xEF\xBB\xBF", "a.chm"), "\xEF\xBB\xBFHelpFile=\"a.chm\"\r\n");
}

TEST(WrittenPath, IsRelativeWithBackslashes) {
    const TemporaryFolder folder;
    const auto inside = folder.write("p/sub/m.bas", "");
    const auto beside = folder.write("other dir/m.bas", "");
    EXPECT_EQ(writtenPath(folder.path() / "p", inside), "sub\\m.bas");
    EXPECT_EQ(writtenPath(folder.path() / "p", beside), "..\\other dir\\m.bas");
    EXPECT_EQ(writtenPath(folder.path() / "p" / ".." / "p", folder.path() / "p" / "m.bas"), "m.bas");
}

#ifndef _WIN32
TEST(WrittenPath, LeadsOutOfALinkedFolder) {
    const TemporaryFolder folder;
    folder.write("real/deep/p.vbp", "");
    fs::create_directory_symlink(folder.path() / "real" / "deep", folder.path() / "link");
    const auto module = folder.write("m.bas", "");
    EXPECT_EQ(writtenPath(folder.path() / "link", module), "..\\..\\m.bas");
    EXPECT_TRUE(fs::equivalent(*PathResolver().resolve(folder.path() / "link", "..\\..\\m.bas"), module));
}

#endif

TEST(WrittenPath, IsTakenFromTheCurrentFolder) {
    const auto path = fs::path("m.bas");
    EXPECT_EQ(writtenPath("", path), "m.bas");
}

} // namespace
} // namespace corvelle::workspace
