#include "base/error_of.h"
#include "base/temporary_folder.h"
#include "ide/required.h"
#include "ide/workspace/workspace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::workspace {
namespace {

using test::errorNumberOf;
using test::TemporaryFolder;
using testing::ElementsAre;
using testing::IsEmpty;

std::shared_ptr<ide::VBComponent> open(const TemporaryFolder& folder, const std::string& name,
                                       const std::string& bytes) {
    return Workspace::open(folder.write(name, bytes))->ActiveVBProject()->VBComponents()->Item(1);
}

// "Class name" of each control.
std::vector<std::string> controlsOf(const std::shared_ptr<ide::VBComponent>& component) {
    std::vector<std::string> result;
    const auto controls = ide::required(component->Designer()).VBControls();
    for (std::int32_t i = 1; i <= controls->Count(); ++i) {
        const auto control = controls->Item(i);
        result.push_back(control->ClassName() + " " + control->Properties()->Item("Name")->Value());
    }
    return result;
}

const std::string form = "VERSION 5.00\r\n"
                         "Object = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0\"; \"MSCOMCTL.OCX\"\r\n"
                         "Begin VB.Form frmMain \r\n"
                         "   Caption         =   \"Begin VB.Label lblNot\"\r\n"
                         "   Begin VB.Frame fra \r\n"
                         "      BeginProperty Font \r\n"
                         "         Begin           =   1\r\n"
                         "         Name            =   \"Arial\"\r\n"
                         "      EndProperty\r\n"
                         "      Begin VB.OptionButton opt \r\n"
                         "         Index           =   1\r\n"
                         "      End\r\n"
                         "      Begin VB.OptionButton opt \r\n"
                         "         Index           =   0\r\n"
                         "      End\r\n"
                         "      End             =   1\r\n"
                         "   End\r\n"
                         "   begin MSComctlLib.ListView lvw\r\n"
                         "   END\r\n"
                         "   Begin VB.Menu mnuFile \r\n"
                         "      Begin VB.Menu mnuFileOpen \r\n"
                         "      End\r\n"
                         "   End\r\n"
                         "End\r\n"
                         "Attribute VB_Name = \"frmMain\"\r\n"
                         "Begin VB.Label lblCode\r\n"
                         "End\r\n";

TEST(Designer, HasEveryBlockInsideTheOutermostOneInTheFilesOrder) {
    const TemporaryFolder folder;
    EXPECT_THAT(controlsOf(open(folder, "a.frm", form)),
                ElementsAre("Frame fra", "OptionButton opt", "OptionButton opt", "ListView lvw",
                            "Menu mnuFile", "Menu mnuFileOpen"));
}

TEST(Designer, IsThereForEveryKindOfDesigner) {
    const TemporaryFolder folder;
    const std::pair<const char*, const char*> kinds[] = {{"a.frm", "VB.MDIForm"},
                                                         {"a.ctl", "VB.UserControl"},
                                                         {"a.pag", "VB.PropertyPage"},
                                                         {"a.dob", "VB.UserDocument"},
                                                         {"a.dsr", "{C0E45035-5775-11D0-B388-00A0C9055D8E}"}};
    for (const auto& [name, kind] : kinds) {
        const auto component = open(
            folder, name, std::string("VERSION 5.00\nBegin ") + kind + " x\nBegin VB.Label lbl\nEnd\nEnd\n");
        EXPECT_THAT(controlsOf(component), ElementsAre("Label lbl")) << name;
        component->Activate();
        component->DesignerWindow()->SetFocus();
        component->DesignerWindow()->Close();
    }
}

TEST(Designer, TakesTheClassWithoutItsLibrary) {
    const TemporaryFolder folder;
    EXPECT_THAT(controlsOf(open(folder, "a.dsr",
                                "VERSION 5.00\nBegin {C0E45035} x\nBegin RICHTEXT.Text.1 a\nEnd\n"
                                "Begin {0002E500} b \nEnd\nBegin\tLib.Class \t c\nEnd\nEnd\n")),
                ElementsAre("Text.1 a", "{0002E500} b", "Class c"));
}

TEST(Designer, CountsNoBlockWithoutAName) {
    const TemporaryFolder folder;
    EXPECT_THAT(controlsOf(open(folder, "a.frm",
                                "VERSION 5.00\nBegin VB.Form f\nBegin\nEnd\nBegin VB.Label \nEnd\nEnd\n")),
                IsEmpty());
}

TEST(Designer, IsNothingForModulesAndForFilesWithoutOne) {
    const TemporaryFolder folder;
    EXPECT_EQ(open(folder, "a.bas", "Option Explicit\n")->Designer(), nullptr);
    EXPECT_EQ(open(folder, "a.cls", "VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1\nEND\n")->Designer(), nullptr);
    EXPECT_EQ(open(folder, "a.bas", "")->DesignerWindow(), nullptr);
    EXPECT_EQ(open(folder, "a.frm", "Option Explicit\n")->Designer(), nullptr);
    EXPECT_EQ(open(folder, "a.frm", "")->Designer(), nullptr);
}

TEST(Designer, RefusesWhatIsNotThere) {
    const TemporaryFolder folder;
    const auto controls = open(folder, "a.frm", form)->Designer()->VBControls();
    EXPECT_EQ(errorNumberOf([&] { controls->Item(0); }), 9);
    EXPECT_EQ(errorNumberOf([&] { controls->Item(7); }), 9);
    EXPECT_EQ(errorNumberOf([&] { controls->Item(1)->Properties()->Item("Caption"); }), 9);
    EXPECT_EQ(controls->Item(1)->Properties()->Item("NAME")->Value(), "fra");
}

TEST(Designer, GivesTheSameControlForTheSameNumber) {
    const TemporaryFolder folder;
    const auto controls = open(folder, "a.frm", form)->Designer()->VBControls();
    const auto first = controls->Item(1);
    controls->Item(6);
    EXPECT_EQ(controls->Item(1), first);
}

} // namespace
} // namespace corvelle::workspace
