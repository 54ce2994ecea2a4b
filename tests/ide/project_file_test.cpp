#include "ide/workspace/project_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::workspace {
namespace {

using ide::ComponentType;
using ide::ProjectType;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(GroupFile, ReadsTheProjectsInTheirOrder) {
    const GroupFile file("VBGROUP 5.0\r\nStartupProject=App\\App.vbp\r\nProject=Lib\\Lib.vbp\r\n");
    EXPECT_THAT(file.projects(), ElementsAre("App\\App.vbp", "Lib\\Lib.vbp"));
    EXPECT_EQ(file.startup(), 0U);
}

TEST(GroupFile, CountsAProjectOnce) {
    const GroupFile file("VBGROUP 5.0\nProject=Lib\\Lib.vbp\nProject=app.vbp\nproject = lib/LIB.vbp\n"
                         "StartupProject=APP.vbp");
    EXPECT_THAT(file.projects(), ElementsAre("Lib\\Lib.vbp", "app.vbp"));
    EXPECT_EQ(file.startup(), 1U);
}

TEST(GroupFile, StartsTheFirstProjectWhereNothingIsSaid) {
    EXPECT_EQ(GroupFile("Project=a.vbp\nProject=b.vbp\n").startup(), 0U);
}

TEST(GroupFile, ToleratesAnything) {
    EXPECT_THAT(GroupFile("").projects(), IsEmpty());
    EXPECT_THAT(GroupFile("VBGROUP 5.0").projects(), IsEmpty());
    EXPECT_THAT(GroupFile("\"x\n=\nProject=\"a b.vbp\"\n[x]\nProject=c.vbp").projects(),
                ElementsAre("a b.vbp"));
}

std::vector<std::string> membersOf(std::string_view bytes) {
    std::vector<std::string> result;
    const ProjectFile file(bytes);
    for (const auto& member : file.members())
        result.push_back(std::to_string(static_cast<int>(member.type)) + "|" + member.name + "|" +
                         member.path);
    return result;
}

TEST(ProjectFile, ReadsWhatTheIdeWrites) {
    const ProjectFile file(
        "Type=Exe\r\n"
        "Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#stdole2.tlb#OLE Automation\r\n"
        "Form=frmMain.frm\r\n"
        "Object={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; MSCOMCTL.OCX\r\n"
        "Module=modMain; ..\\Shared\\modMain.bas\r\n"
        "Class=Account; Account.cls\r\n"
        "UserControl=ctlX.ctl\r\n"
        "PropertyPage=pagX.pag\r\n"
        "UserDocument=docX.dob\r\n"
        "Designer=WebClass1.Dsr\r\n"
        "RelatedDoc=readme.txt\r\n"
        "ResFile32=\"app.res\"\r\n"
        "Startup=\"Sub Main\"\r\n"
        "Title=\"The Thing\"\r\n"
        "Name=\"Project1\"\r\n");
    EXPECT_EQ(file.type(), ProjectType::StandardExe);
    EXPECT_EQ(file.name(), "Project1");
    EXPECT_EQ(file.startup(), "Sub Main");
    EXPECT_EQ(file.title(), "The Thing");
    ASSERT_EQ(file.members().size(), 7U);
    EXPECT_EQ(file.members()[0].type, ComponentType::VBForm);
    EXPECT_EQ(file.members()[0].name, "");
    EXPECT_EQ(file.members()[0].path, "frmMain.frm");
    EXPECT_EQ(file.members()[1].type, ComponentType::StdModule);
    EXPECT_EQ(file.members()[1].name, "modMain");
    EXPECT_EQ(file.members()[1].path, "..\\Shared\\modMain.bas");
    EXPECT_EQ(file.members()[2].type, ComponentType::ClassModule);
    EXPECT_EQ(file.members()[3].type, ComponentType::UserControl);
    EXPECT_EQ(file.members()[4].type, ComponentType::PropPage);
    EXPECT_EQ(file.members()[5].type, ComponentType::DocObject);
    EXPECT_EQ(file.members()[6].type, ComponentType::ActiveXDesigner);
}

TEST(ProjectFile, KnowsTheProjectTypes) {
    EXPECT_EQ(ProjectFile("Type=OleExe").type(), ProjectType::ActiveXExe);
    EXPECT_EQ(ProjectFile("type = OLEDLL\n").type(), ProjectType::ActiveXDll);
    EXPECT_EQ(ProjectFile("Type=Control\n").type(), ProjectType::ActiveXControl);
    EXPECT_EQ(ProjectFile("Type=Something\n").type(), ProjectType::StandardExe);
    EXPECT_EQ(ProjectFile("").type(), ProjectType::StandardExe);
}

TEST(ProjectFile, HasTheIdesNumberOfItsType) {
    const std::pair<const char*, int> numbers[] = {{"Exe", 0}, {"OleExe", 1}, {"OleDll", 2}, {"Control", 3}};
    for (const auto& [word, number] : numbers)
        EXPECT_EQ(static_cast<int>(ProjectFile(std::string("Type=") + word).type()), number) << word;
}

TEST(ProjectFile, TakesBlanksAndLetterCaseFreely) {
    EXPECT_THAT(membersOf(" form \t=\t a b.frm \nMODULE = M ;  m.bas\nclass=C;c.cls\n"),
                ElementsAre("5||a b.frm", "1|M|m.bas", "2|C|c.cls"));
}

TEST(ProjectFile, TakesQuotedPaths) {
    EXPECT_THAT(membersOf("Form=\"a.frm\"\nModule=M; \"m.bas\"\nModule=\"lone.bas\"\n"),
                ElementsAre("5||a.frm", "1|M|m.bas", "1||lone.bas"));
}

TEST(ProjectFile, TakesLineEndsOfEveryKindAndALastLineWithoutOne) {
    EXPECT_THAT(membersOf("Form=a.frm\nForm=b.frm\r\n\r\nForm=c.frm"),
                ElementsAre("5||a.frm", "5||b.frm", "5||c.frm"));
}

TEST(ProjectFile, StopsAtAForeignSection) {
    const ProjectFile file("Form=a.frm\r\n\r\n [MS Transaction Server]\r\nForm=b.frm\r\nName=\"Other\"\r\n");
    EXPECT_EQ(file.members().size(), 1U);
    EXPECT_EQ(file.name(), "");
}

TEST(ProjectFile, PassesOverWhatItDoesNotKnow) {
    EXPECT_THAT(membersOf("garbage\n=\n==\nUnknown=1\nForms=x\n\n\t\nForm\nForm=a.frm\n"),
                ElementsAre("5||a.frm"));
    EXPECT_THAT(membersOf(std::string("\0\0=\0\n", 5)), IsEmpty());
}

TEST(ProjectFile, PassesOverAByteOrderMark) {
    EXPECT_THAT(membersOf("\xEF\xBB\xBF"
                          "Form=a.frm\n"),
                ElementsAre("5||a.frm"));
}

TEST(ProjectFile, KeepsBytesOfAnyCodePage) {
    EXPECT_THAT(membersOf("Form=\xC4\xFF.frm\n"), ElementsAre("5||\xC4\xFF.frm"));
    EXPECT_EQ(ProjectFile("Name=\"\xC4\"").name(), "\xC4");
}

TEST(ProjectFile, KeepsAMemberThatStandsTwice) {
    EXPECT_THAT(membersOf("Form=a.frm\nForm=a.frm\n"), ElementsAre("5||a.frm", "5||a.frm"));
}

} // namespace
} // namespace corvelle::workspace
