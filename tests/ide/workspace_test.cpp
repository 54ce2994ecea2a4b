#include "base/error_of.h"
#include "base/temporary_folder.h"
#include "ide/workspace/workspace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::workspace {
namespace {

namespace fs = std::filesystem;
using ide::ComponentType;
using test::errorNumberOf;
using test::TemporaryFolder;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string module1 = "Attribute VB_Name = \"Module1\"\r\nOption Explicit\r\nSub Main()\r\nEnd Sub\r\n";
const std::string form =
    "VERSION 5.00\r\nBegin VB.Form frmBlock\r\nEnd\r\nPrivate Sub Form_Load()\r\nEnd Sub\r\n";

std::vector<std::string> namesOf(ide::VBProject& project) {
    std::vector<std::string> names;
    const auto components = project.VBComponents();
    for (std::int32_t i = 1; i <= components->Count(); ++i) names.push_back(components->Item(i)->Name());
    return names;
}

std::shared_ptr<ide::CodeModule> codeOf(const std::shared_ptr<Workspace>& workspace) {
    return workspace->ActiveVBProject()->VBComponents()->Item(1)->CodeModule();
}

Component& componentOf(const std::shared_ptr<Workspace>& workspace) {
    return *workspace->projects().front()->components().front();
}

std::shared_ptr<Workspace> openModule(const TemporaryFolder& folder, const std::string& bytes) {
    return Workspace::open(folder.write("Module1.bas", bytes));
}

TEST(Workspace, OpensAProject) {
    const TemporaryFolder folder;
    folder.write("a.bas", module1);
    folder.write("Sub/b.frm", form);
    const auto path =
        folder.write("p.vbp", "Type=OleDll\r\nForm=sub\\B.FRM\r\nModule=Other; A.bas\r\nName=\"Proj\"\r\n");
    const auto workspace = Workspace::open(path);
    const auto project = workspace->ActiveVBProject();
    EXPECT_EQ(project->Name(), "Proj");
    EXPECT_EQ(project->FileName(), path.string());
    EXPECT_EQ(project->Type(), ide::ProjectType::ActiveXDll);
    EXPECT_FALSE(project->IsDirty());
    EXPECT_THAT(namesOf(*project), ElementsAre("frmBlock", "Module1"));
    EXPECT_EQ(project->VBComponents()->Item(1)->Type(), ComponentType::VBForm);
    EXPECT_EQ(project->VBComponents()->Item("MODULE1")->Type(), ComponentType::StdModule);
    EXPECT_THAT(workspace->problems(), IsEmpty());
}

TEST(Workspace, NamesComponentsByAttributeThenLineThenDesignerThenFile) {
    const TemporaryFolder folder;
    folder.write("a.bas", module1);
    folder.write("b.bas", "x\r\n");
    folder.write("c.frm", form);
    folder.write("d.cls", "x\r\n");
    folder.write("e.cls", "VERSION 1.0 CLASS\r\nBEGIN X Block\r\nEND\r\n");
    const auto workspace = Workspace::open(folder.write(
        "p.vbp", "Module=Line; a.bas\nModule=Line; b.bas\nForm=c.frm\nClass=d.cls\nClass=Klass; e.cls\n"));
    EXPECT_THAT(namesOf(*workspace->ActiveVBProject()),
                ElementsAre("Module1", "Line", "frmBlock", "d", "Klass"));
    EXPECT_EQ(workspace->ActiveVBProject()->Name(), "p");
}

TEST(Workspace, TellsAnMdiForm) {
    const TemporaryFolder folder;
    folder.write("a.frm", "VERSION 5.00\r\nBegin VB.MDIForm M\r\nEnd\r\n");
    const auto workspace = Workspace::open(folder.write("p.vbp", "Form=a.frm\n"));
    EXPECT_EQ(componentOf(workspace).Type(), ComponentType::VBMDIForm);
}

TEST(Workspace, GoesOnWhereAMemberIsMissing) {
    const TemporaryFolder folder;
    folder.write("a.bas", module1);
    folder.write("b.frm", "VERSION 5.00\r\nBegin VB.Form f\r\n");
    fs::create_directory(folder.path() / "c.bas");
    const auto workspace = Workspace::open(folder.write(
        "p.vbp",
        "Module=X; none\\x.bas\nForm=b.frm\nModule=C; c.bas\nModule=U; \\\\server\\u.bas\nModule=A; a.bas\n"));
    EXPECT_THAT(namesOf(*workspace->ActiveVBProject()), ElementsAre("Module1"));
    const auto& problems = workspace->problems();
    ASSERT_EQ(problems.size(), 4U);
    EXPECT_EQ(problems[0].path, folder.path() / "none/x.bas");
    EXPECT_EQ(problems[0].reason, "File not found");
    EXPECT_EQ(problems[0].line, 0U);
    EXPECT_EQ(problems[1].path, folder.path() / "b.frm");
    EXPECT_EQ(problems[1].reason, "The header never ends");
    EXPECT_EQ(problems[1].line, 2U);
    EXPECT_EQ(problems[2].reason, "Path/File access error");
    EXPECT_EQ(problems[3].reason, "File not found");
}

TEST(Workspace, OpensAGroup) {
    const TemporaryFolder folder;
    folder.write("Shared/x.bas", module1);
    folder.write("A/a.vbp", "Name=\"A\"\nModule=X; ..\\Shared\\x.bas\n");
    folder.write("B/b.vbp", "Name=\"B\"\nModule=X; ..\\shared\\X.bas\n");
    const auto workspace = Workspace::open(folder.write(
        "g.vbg",
        "VBGROUP 5.0\r\nProject=none.vbp\r\nProject=A\\a.vbp\r\nStartupProject=B\\B.vbp\r\nProject=b\\b.vbp\r\n"));
    ASSERT_EQ(workspace->projects().size(), 2U);
    EXPECT_EQ(workspace->projects()[0]->Name(), "A");
    EXPECT_EQ(workspace->ActiveVBProject()->Name(), "B");
    workspace->setActiveVBProject(*workspace->projects()[0]);
    EXPECT_EQ(workspace->ActiveVBProject()->Name(), "A");
    ASSERT_EQ(workspace->problems().size(), 1U);
    EXPECT_EQ(workspace->problems()[0].path, folder.path() / "none.vbp");
}

TEST(Workspace, OpensASingleModule) {
    const TemporaryFolder folder;
    const auto workspace = openModule(folder, module1);
    EXPECT_THAT(namesOf(*workspace->ActiveVBProject()), ElementsAre("Module1"));
    EXPECT_EQ(workspace->ActiveVBProject()->FileName(), "");
    EXPECT_EQ(componentOf(workspace).FileNames(1), (folder.path() / "Module1.bas").string());
    EXPECT_EQ(errorNumberOf([&] { componentOf(workspace).FileNames(2); }), 9);
}

TEST(Workspace, RefusesWhatItCannotOpen) {
    const TemporaryFolder folder;
    EXPECT_EQ(errorNumberOf([&] { Workspace::open(folder.path() / "none.vbp"); }), 53);
    EXPECT_EQ(errorNumberOf([&] { Workspace::open(folder.path() / "none.vbg"); }), 53);
    EXPECT_EQ(errorNumberOf([&] { Workspace::open(folder.path() / "none.bas"); }), 53);
    EXPECT_EQ(errorNumberOf([&] { Workspace::open(folder.write("a.txt", "")); }), 5);
}

TEST(Workspace, HasNoActiveProjectInAnEmptyGroup) {
    const TemporaryFolder folder;
    const auto workspace = Workspace::open(folder.write("g.vbg", ""));
    EXPECT_EQ(workspace->ActiveVBProject(), nullptr);
    EXPECT_EQ(workspace->ActiveCodePane(), nullptr);
}

TEST(Workspace, ShowsTheCodeOfAComponent) {
    const TemporaryFolder folder;
    const auto workspace = openModule(folder, module1);
    EXPECT_EQ(workspace->ActiveCodePane(), nullptr);
    workspace->setActiveCodePane(&componentOf(workspace));
    EXPECT_EQ(workspace->ActiveCodePane()->CodeModule()->Name(), "Module1");
    EXPECT_EQ(workspace->ActiveCodePane()->CodeModule()->Parent().get(), &componentOf(workspace));
    workspace->setActiveCodePane(nullptr);
    EXPECT_EQ(workspace->ActiveCodePane(), nullptr);
}

TEST(Workspace, LivesAsLongAsOneOfItsObjects) {
    const TemporaryFolder folder;
    std::weak_ptr<Workspace> watched;
    std::shared_ptr<ide::CodeModule> code;
    {
        const auto workspace = openModule(folder, module1);
        workspace->setActiveCodePane(&componentOf(workspace));
        watched = workspace;
        code = workspace->ActiveCodePane()->CodeModule();
    }
    EXPECT_EQ(code->Lines(1, 1), "Option Explicit");
    EXPECT_EQ(code->Parent()->Name(), "Module1");
    code.reset();
    EXPECT_TRUE(watched.expired());
}

TEST(Workspace, FindsComponentsByNumberAndName) {
    const TemporaryFolder folder;
    const auto workspace = openModule(folder, module1);
    const auto components = workspace->ActiveVBProject()->VBComponents();
    EXPECT_EQ(components->Item(1), components->Item("module1"));
    EXPECT_EQ(errorNumberOf([&] { components->Item(0); }), 9);
    EXPECT_EQ(errorNumberOf([&] { components->Item(2); }), 9);
    EXPECT_EQ(errorNumberOf([&] { components->Item("none"); }), 9);
}

TEST(Workspace, SaysWhatItDoesNotDo) {
    const TemporaryFolder folder;
    const auto workspace = Workspace::open(folder.write("a.frm", form));
    const auto components = workspace->ActiveVBProject()->VBComponents();
    const auto component = components->Item(1);
    EXPECT_EQ(errorNumberOf([&] { components->Add(ComponentType::VBForm); }), 438);
    EXPECT_EQ(errorNumberOf([&] { component->setName("x"); }), 438);
    EXPECT_EQ(errorNumberOf([&] { component->SaveAs("x"); }), 438);
}

TEST(Workspace, HasMenusThatCanBeClicked) {
    const TemporaryFolder folder;
    const auto workspace = openModule(folder, module1);
    const auto command =
        workspace->CommandBars()->Item("Add-Ins")->Controls()->Add(ide::CommandBarControlType::Button);
    const auto source = workspace->Events()->CommandBarEvents(command);
    int clicks = 0;
    source->setClick([&](ide::CommandBarControl&, bool&, bool&) { ++clicks; });
    workspace->menus().addIns().commands().front()->Execute();
    EXPECT_EQ(clicks, 1);
}

TEST(CodeModule, GivesLines) {
    const TemporaryFolder folder;
    const auto code = codeOf(openModule(folder, module1));
    EXPECT_EQ(code->CountOfLines(), 3);
    EXPECT_EQ(code->Lines(1, 1), "Option Explicit");
    EXPECT_EQ(code->Lines(2, 2), "Sub Main()\r\nEnd Sub");
    EXPECT_EQ(code->Lines(1, 0), "");
    EXPECT_EQ(code->Lines(4, 0), "");
}

TEST(CodeModule, RefusesLinesThatAreNotThere) {
    const TemporaryFolder folder;
    const auto workspace = openModule(folder, module1);
    const auto code = codeOf(workspace);
    EXPECT_EQ(errorNumberOf([&] { code->Lines(0, 1); }), 9);
    EXPECT_EQ(errorNumberOf([&] { code->Lines(3, 2); }), 9);
    EXPECT_EQ(errorNumberOf([&] { code->Lines(5, 0); }), 9);
    EXPECT_EQ(errorNumberOf([&] { code->Lines(1, -1); }), 5);
    EXPECT_EQ(errorNumberOf([&] { code->Lines(2147483647, 2147483647); }), 9);
    EXPECT_EQ(errorNumberOf([&] { code->DeleteLines(0, 1); }), 9);
    EXPECT_EQ(errorNumberOf([&] { code->DeleteLines(1, 4); }), 9);
    EXPECT_EQ(errorNumberOf([&] { code->DeleteLines(1, -1); }), 5);
    EXPECT_EQ(errorNumberOf([&] { code->InsertLines(0, "x"); }), 9);
    EXPECT_FALSE(componentOf(workspace).IsDirty());
}

TEST(CodeModule, DeletesAndInsertsLines) {
    const TemporaryFolder folder;
    const auto code = codeOf(openModule(folder, module1));
    code->DeleteLines(2, 1);
    code->InsertLines(1, "first");
    code->InsertLines(3, "third");
    code->InsertLines(100, "last");
    EXPECT_EQ(code->Lines(1, code->CountOfLines()), "first\r\nOption Explicit\r\nthird\r\nEnd Sub\r\nlast");
}

TEST(CodeModule, MakesLinesOfATextWithLineBreaks) {
    const TemporaryFolder folder;
    const auto code = codeOf(openModule(folder, ""));
    code->InsertLines(1, "a\r\nb\nc\rd\r\n");
    EXPECT_EQ(code->CountOfLines(), 4);
    EXPECT_EQ(code->Lines(1, 4), "a\r\nb\r\nc\rd\r\n");
    code->InsertLines(2, "");
    EXPECT_EQ(code->Lines(1, 3), "a\r\n\r\nb");
}

TEST(CodeModule, DeletesNothingFromAnEmptyModule) {
    const TemporaryFolder folder;
    const auto workspace = openModule(folder, "");
    codeOf(workspace)->DeleteLines(1, 0);
    EXPECT_EQ(codeOf(workspace)->CountOfLines(), 0);
    EXPECT_FALSE(componentOf(workspace).IsDirty());
}

TEST(Component, IsDirtyFromAnEditToTheSaving) {
    const TemporaryFolder folder;
    const auto workspace = openModule(folder, module1);
    auto& component = componentOf(workspace);
    EXPECT_FALSE(component.IsDirty());
    codeOf(workspace)->InsertLines(1, "' x");
    EXPECT_TRUE(component.IsDirty());
    EXPECT_FALSE(workspace->ActiveVBProject()->IsDirty());
    component.Save();
    EXPECT_FALSE(component.IsDirty());
    EXPECT_EQ(folder.read("Module1.bas"),
              "Attribute VB_Name = \"Module1\"\r\n' x\r\nOption Explicit\r\nSub Main()\r\nEnd Sub\r\n");
}

TEST(Component, DoesNotTouchAFileThatStaysTheSame) {
    const TemporaryFolder folder;
    const auto workspace = openModule(folder, module1);
    const auto before = base::FileStamp();
    base::FileStamp first = before, second = before;
    ASSERT_TRUE(base::stampOf(folder.path() / "Module1.bas", first));
    componentOf(workspace).Save();
    const auto code = codeOf(workspace);
    const auto lines = code->Lines(1, 3);
    code->DeleteLines(1, 3);
    code->InsertLines(1, lines);
    EXPECT_TRUE(componentOf(workspace).IsDirty());
    componentOf(workspace).Save();
    EXPECT_FALSE(componentOf(workspace).IsDirty());
    ASSERT_TRUE(base::stampOf(folder.path() / "Module1.bas", second));
    EXPECT_EQ(first, second);
}

TEST(Component, WritesAgainAfterASaving) {
    const TemporaryFolder folder;
    const auto workspace = openModule(folder, module1);
    const auto code = codeOf(workspace);
    code->InsertLines(1, "' x");
    componentOf(workspace).Save();
    code->DeleteLines(1, 1);
    componentOf(workspace).Save();
    EXPECT_EQ(folder.read("Module1.bas"), module1);
}

TEST(Component, KeepsHiddenLinesWhenTheModuleIsRefilled) {
    const TemporaryFolder folder;
    const std::string bytes =
        "Attribute VB_Name = \"M\"\nPublic Sub A( _\n\tx)\nAttribute A.VB_Description = \"d\"\nEnd Sub\n";
    const auto workspace = openModule(folder, bytes);
    const auto code = codeOf(workspace);
    EXPECT_EQ(code->CountOfLines(), 3);
    code->DeleteLines(1, code->CountOfLines());
    code->InsertLines(1, "Public Sub A( _");
    code->InsertLines(2, "  x)");
    code->InsertLines(3, "End Sub");
    componentOf(workspace).Save();
    EXPECT_EQ(
        folder.read("Module1.bas"),
        "Attribute VB_Name = \"M\"\nPublic Sub A( _\n  x)\nAttribute A.VB_Description = \"d\"\nEnd Sub\n");
}

#ifndef _WIN32
TEST(Component, KeepsPermissionsAndLinks) {
    const TemporaryFolder folder;
    const auto real = folder.write("real.bas", module1);
    fs::permissions(real, fs::perms(0640));
    fs::create_symlink("real.bas", folder.path() / "link.bas");
    const auto workspace = Workspace::open(folder.path() / "link.bas");
    codeOf(workspace)->InsertLines(1, "' x");
    componentOf(workspace).Save();
    EXPECT_TRUE(fs::is_symlink(folder.path() / "link.bas"));
    EXPECT_EQ(fs::status(real).permissions(), fs::perms(0640));
    EXPECT_NE(folder.read("real.bas"), module1);
}
#endif

TEST(Component, StaysDirtyWhenItCannotBeSaved) {
    const TemporaryFolder folder;
    const auto workspace = openModule(folder, module1);
    codeOf(workspace)->InsertLines(1, "' x");
    fs::permissions(folder.path() / "Module1.bas", fs::perms(0444));
    EXPECT_EQ(errorNumberOf([&] { componentOf(workspace).Save(); }), 75);
    EXPECT_TRUE(componentOf(workspace).IsDirty());
    EXPECT_EQ(folder.read("Module1.bas"), module1);
    fs::permissions(folder.path() / "Module1.bas", fs::perms(0644));
    componentOf(workspace).Save();
    EXPECT_FALSE(componentOf(workspace).IsDirty());
}

TEST(Component, DoesNotWriteOverSomebodyElsesChange) {
    const TemporaryFolder folder;
    folder.write("x.bas", module1);
    folder.write("a.vbp", "Module=X; x.bas\n");
    folder.write("b.vbp", "Module=X; x.bas\n");
    const auto workspace = Workspace::open(folder.write("g.vbg", "Project=a.vbp\nProject=b.vbp\n"));
    auto& first = *workspace->projects()[0]->components()[0];
    auto& second = *workspace->projects()[1]->components()[0];
    first.CodeModule()->InsertLines(1, "' first");
    second.CodeModule()->InsertLines(1, "' second");
    first.Save();
    EXPECT_EQ(errorNumberOf([&] { second.Save(); }), 70);
    EXPECT_NE(folder.read("x.bas").find("' first"), std::string::npos);
}

} // namespace
} // namespace corvelle::workspace
