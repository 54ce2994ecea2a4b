// What `corvelle index --properties` makes of the designers' files.
#include "base/temporary_folder.h"
#include "cli/run_corvelle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::cli {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;
using testing::UnorderedElementsAre;

const std::string dialog = "VERSION 5.00\r\n"
                           "Begin VB.Form frmPart \r\n"
                           "   BorderStyle     =   3  'Fixed Dialog\r\n"
                           "   Icon            =   \"frmPart.frx\":0000\r\n"
                           "   Begin VB.CommandButton cmdNav \r\n"
                           "      Caption         =   \"a=b\"\r\n"
                           "      Index           =   1\r\n"
                           "      Width           =   1200\r\n"
                           "   End\r\n"
                           "   Begin VB.Label lblPart \r\n"
                           "      Height          =   255\r\n"
                           "      Width           =   1200\r\n"
                           "   End\r\n"
                           "End\r\n"
                           "Attribute VB_Name = \"frmPart\"\r\n"
                           "Private Sub Form_Load()\r\n"
                           "End Sub\r\n";
const std::string window = "VERSION 5.00\n"
                           "Begin VB.Form frmMain\n"
                           "   Begin VB.TextBox txtName\n"
                           "      HelpContextID   =   77\n"
                           "   End\n"
                           "   Begin VB.Menu mnuFile\n"
                           "      Caption = \"File\"\n"
                           "   End\n"
                           "End\n"
                           "Attribute VB_Name = \"frmMain\"\n";
const std::string project =
    "Type=Exe\r\nForm=frmMain.frm\r\nForm=sub\\frmPart.frm\r\nStartup=\"frmMain\"\r\nName=\"Proj\"\r\n";

class IndexProperties : public testing::Test {
  protected:
    IndexProperties() {
        folder.write("p.vbp", project);
        folder.write("frmMain.frm", window);
        folder.write("sub/frmPart.frm", dialog);
    }
    test::Outcome run(const std::vector<std::string>& more = {}, bool asNobody = false) const {
        std::vector<std::string> arguments{"index", "p.vbp", "--header", "a.h", "--config", "a.hcnf"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        test::Surroundings surroundings;
        surroundings.folder = folder.path();
        surroundings.asNobody = asNobody;
        return test::runCorvelle(arguments, surroundings);
    }
    std::string window_() const { return folder.read("frmMain.frm"); }
    std::string dialog_() const { return folder.read("sub/frmPart.frm"); }
    void expectNothingWritten() const {
        EXPECT_EQ(window_(), window);
        EXPECT_EQ(dialog_(), dialog);
        EXPECT_EQ(folder.read("p.vbp"), project);
        EXPECT_THAT(folder.names(), UnorderedElementsAre("p.vbp", "frmMain.frm", "sub"));
    }

    test::TemporaryFolder folder;
};

std::string with(std::string text, std::string_view before, std::string_view what) {
    const auto place = text.find(before);
    EXPECT_NE(place, std::string::npos) << before;
    return text.insert(place, what);
}

TEST_F(IndexProperties, AreLeftAloneWithoutTheOption) {
    EXPECT_EQ(run().status, 0);
    EXPECT_EQ(run({"--properties", "none"}).status, 0);
    EXPECT_EQ(window_(), window);
    EXPECT_EQ(dialog_(), dialog);
}

TEST_F(IndexProperties, HaveTheNumbersOfTheHeader) {
    const auto result = run({"--properties", "help"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.out, HasSubstr("frmMain.frm\n"));
    EXPECT_THAT(result.out, HasSubstr("frmPart.frm\n"));
    // The first number above those that were there is the menu's.
    EXPECT_EQ(window_(), with(window, "   End\nEnd\n", "      HelpContextID   =   1001\n"));
    EXPECT_EQ(dialog_(), with(dialog, "      Index", "      HelpContextID   =   1002\r\n"));
    const auto header = folder.read("a.h");
    EXPECT_THAT(header, HasSubstr("  77\r\n"));
    EXPECT_THAT(header, HasSubstr("  1001\r\n"));
    EXPECT_THAT(header, HasSubstr("  1002\r\n"));
}

TEST_F(IndexProperties, ChangeNothingASecondTime) {
    run({"--properties", "both"});
    const auto header = folder.read("a.h"), form = dialog_();
    const auto result = run({"--properties", "both"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, Not(HasSubstr(".frm")));
    EXPECT_EQ(folder.read("a.h"), header);
    EXPECT_EQ(dialog_(), form);
}

TEST_F(IndexProperties, GoWithoutATrace) {
    for (const auto* choice : {"help", "whatsthis", "both"}) {
        EXPECT_EQ(run({"--properties", choice}).status, 0);
        EXPECT_NE(dialog_(), dialog);
        EXPECT_EQ(run({"--properties", "remove"}).status, 0);
        EXPECT_EQ(window_(), window);
        EXPECT_EQ(dialog_(), dialog);
        EXPECT_THAT(folder.read("a.h"), Not(HasSubstr("@wrote")));
    }
    EXPECT_THAT(run({"--properties", "remove"}).out, Not(HasSubstr(".frm")));
}

TEST_F(IndexProperties, OfSomebodyElseStayWhenOursGo) {
    run({"--properties", "both"});
    // The one number has been changed, and the whole control of another has gone.
    auto text = dialog_();
    const auto number = text.find("HelpContextID   =   1002");
    ASSERT_NE(number, std::string::npos);
    folder.write("sub/frmPart.frm", text.replace(number, 24, "HelpContextID   =   4711"));
    const auto result = run({"--properties", "remove"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("cmdNav(1): HelpContextID is 4711, not 1002; it stays"));
    EXPECT_EQ(dialog_(), with(dialog, "      Index", "      HelpContextID   =   4711\r\n"));
    EXPECT_EQ(window_(), window);
    EXPECT_THAT(folder.read("a.h"), Not(HasSubstr("@wrote")));
}

TEST_F(IndexProperties, OfAnotherNumberAreToldAndReplacedOnlyWhenToldTo) {
    run();
    folder.write("frmMain.frm", with(window, "   End\n   Begin", "      WhatsThisHelpID =   5\n"));
    const auto result = run({"--properties", "both"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("frmMain.frm:5: txtName: WhatsThisHelpID is 5, not 77; it stays"));
    EXPECT_THAT(window_(), HasSubstr("WhatsThisHelpID =   5\n"));
    const auto insisting = run({"--properties", "both", "--overwrite-numbers"});
    EXPECT_EQ(insisting.status, 0) << insisting.err;
    EXPECT_THAT(window_(), HasSubstr("WhatsThisHelpID =   77\n"));
}

TEST_F(IndexProperties, SwitchWhatsThisHelpOnWhereTheFormAllowsIt) {
    const auto result = run({"--properties", "whatsthis"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, HasSubstr("frmMain.frm:2: frmMain: WhatsThisButton is left off"));
    EXPECT_THAT(window_(), HasSubstr("\n   WhatsThisHelp   =   -1  'True\n   Begin"));
    EXPECT_THAT(window_(), Not(HasSubstr("WhatsThisButton")));
    EXPECT_THAT(dialog_(),
                HasSubstr("\r\n   WhatsThisButton =   -1  'True\r\n   WhatsThisHelp   =   -1  'True\r\n"));
    EXPECT_THAT(dialog_(), HasSubstr("      WhatsThisHelpID =   1003\r\n      Width"));
}

TEST_F(IndexProperties, TurnFormsTopicsOffOnlyWhenToldTo) {
    EXPECT_EQ(run({"--properties", "both"}).status, 0);
    EXPECT_THAT(dialog_(), Not(HasSubstr("   WhatsThisHelp ")));
    EXPECT_EQ(run({"--properties", "both", "--whatsthis-forms"}).status, 0);
    EXPECT_THAT(dialog_(), HasSubstr("   WhatsThisHelp "));
}

TEST_F(IndexProperties, AreShownAndNotWrittenForADiff) {
    const auto result = run({"--properties", "help", "--help-file", "a.chm", "--diff"});
    EXPECT_EQ(result.status, 0) << result.err;
    // On Windows the form's path has another slash in it.
    const auto sub = result.out.find("@@ -4,6"), head = result.out.rfind("--- ", sub);
    ASSERT_NE(sub, std::string::npos);
    EXPECT_THAT(result.out.substr(head, sub - head), HasSubstr("frmPart.frm"));
    EXPECT_EQ(
        result.out.substr(0, head) + result.out.substr(sub),
        "--- frmMain.frm\n+++ frmMain.frm\n@@ -5,6 +5,7 @@\n    End\n    Begin VB.Menu mnuFile\n"
        "       Caption = \"File\"\n+      HelpContextID   =   1001\n    End\n End\n Attribute VB_Name = "
        "\"frmMain\"\n"
        "@@ -4,6 +4,7 @@\n"
        "    Icon            =   \"frmPart.frx\":0000\r\n    Begin VB.CommandButton cmdNav \r\n"
        "       Caption         =   \"a=b\"\r\n+      HelpContextID   =   1002\r\n"
        "       Index           =   1\r\n       Width           =   1200\r\n    End\r\n"
        "--- p.vbp\n+++ p.vbp\n@@ -2,4 +2,5 @@\n Form=frmMain.frm\r\n Form=sub\\frmPart.frm\r\n"
        " Startup=\"frmMain\"\r\n+HelpFile=\"a.chm\"\r\n Name=\"Proj\"\r\n");
    expectNothingWritten();
}

TEST_F(IndexProperties, NameTheHelpFileInTheProject) {
    EXPECT_EQ(run({"--help-file", "Help\\a.chm"}).status, 0);
    EXPECT_EQ(folder.read("p.vbp"), with(project, "Name=", "HelpFile=\"Help\\a.chm\"\r\n"));
    EXPECT_EQ(run({"--help-file", "b.chm", "--module", "modHelp", "--module-file", "m.bas"}).status, 0);
    EXPECT_EQ(folder.read("p.vbp"),
              with(with(project, "Name=", "HelpFile=\"b.chm\"\r\n"), "Startup", "Module=modHelp; m.bas\r\n"));
}

TEST_F(IndexProperties, AreCopiedBeforeTheyAreReplaced) {
    EXPECT_EQ(run({"--properties", "help", "--help-file", "a.chm", "--backup-dir", "old"}).status, 0);
    EXPECT_EQ(folder.read("old/frmMain_bak.frm"), window);
    EXPECT_EQ(folder.read("old/frmPart_bak.frm"), dialog);
    EXPECT_EQ(folder.read("old/p_bak.vbp"), project);
    const auto form = dialog_();
    EXPECT_EQ(run({"--properties", "remove", "--backup-dir", "old"}).status, 0);
    EXPECT_EQ(folder.read("old/frmPart_bak2.frm"), form);
    EXPECT_EQ(folder.read("old/frmPart_bak.frm"), dialog);
}

TEST_F(IndexProperties, AreWrittenTogetherOrNotAtAll) {
    const auto refused = [&](const std::string& reason) {
        const auto result = run({"--properties", "both", "--help-file", "a.chm"});
        EXPECT_EQ(result.status, 2);
        EXPECT_THAT(result.err, HasSubstr(reason));
        EXPECT_FALSE(fs::exists(folder.path() / "a.h"));
        EXPECT_EQ(window_(), window);
        EXPECT_EQ(folder.read("p.vbp"), project);
    };
    folder.write("sub/frmPart.frm", with(dialog, "   Icon", "   nonsense\r\n"));
    refused("frmPart.frm:4: no line of a designer section looks like this");
    folder.write("sub/frmPart.frm", dialog);
    fs::permissions(folder.path() / "sub/frmPart.frm", fs::perms::owner_read, fs::perm_options::replace);
    refused("frmPart.frm: ");
    fs::permissions(folder.path() / "sub/frmPart.frm", fs::perms::owner_all, fs::perm_options::replace);
#ifndef _WIN32
    fs::create_hard_link(folder.path() / "sub/frmPart.frm", folder.path() / "twin.frm");
    refused("frmPart.frm: ");
#endif
}

TEST_F(IndexProperties, OfABackupThatFailsAreNotWritten) {
    folder.write("old", "a file");
    const auto result = run({"--properties", "both", "--backup-dir", "old"});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, HasSubstr("frmMain.frm: not rewritten, its backup "));
    EXPECT_EQ(window_(), window);
    EXPECT_FALSE(fs::exists(folder.path() / "a.h"));
}

TEST_F(IndexProperties, OfTwinsAreNotWritten) {
    folder.write("sub/frmPart.frm",
                 with(dialog, "   Begin VB.Label",
                      "   Begin VB.CommandButton CMDNAV \r\n      Index = 1\r\n   End\r\n"));
    const auto result = run({"--properties", "help"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("several controls have this name and index"));
    EXPECT_THAT(dialog_(), Not(HasSubstr("HelpContextID")));
}

TEST_F(IndexProperties, OfADesignerThatTheProjectNamesTwiceAreNotWritten) {
    folder.write("p.vbp", with(project, "Startup", "Form=SUB\\frmPart.frm\r\n"));
    const auto result = run({"--properties", "help"});
    EXPECT_THAT(result.err, HasSubstr("the project has another designer of this name or file"));
    EXPECT_EQ(dialog_(), dialog);
    EXPECT_NE(window_(), window);
}

TEST_F(IndexProperties, AreWrittenIntoNoFileWithoutADesignersEnding) {
    folder.write("notes.txt", dialog);
    folder.write("p.vbp", "Type=Exe\r\nForm=frmMain.frm\r\nForm=notes.txt\r\nName=\"Proj\"\r\n");
    const auto result = run({"--properties", "help"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("notes.txt: its ending is no designer's"));
    EXPECT_EQ(folder.read("notes.txt"), dialog);
}

TEST_F(IndexProperties, OfAClassThatHasNoneAreNotWritten) {
    std::string controls;
    for (const auto* name : {"Label", "Image", "Line", "Shape", "Timer", "Menu"})
        controls += std::string("   Begin VB.") + name + " ctl" + name + "\r\n   End\r\n";
    controls += "   Begin MSComDlg.CommonDialog dlg\r\n      Left = 1\r\n      Top = 2\r\n   End\r\n";
    folder.write("sub/frmPart.frm", with(dialog, "   Begin VB.Command", controls));
    EXPECT_EQ(run({"--properties", "both"}).status, 0);
    const auto text = dialog_();
    const auto blockOf = [&](const std::string& name) {
        const auto begin = text.find("VB." + name + " ctl");
        return text.substr(begin, text.find("End\r\n", begin) - begin);
    };
    EXPECT_THAT(blockOf("Label"), Not(HasSubstr("HelpContextID")));
    EXPECT_THAT(blockOf("Label"), HasSubstr("WhatsThisHelpID"));
    EXPECT_THAT(blockOf("Image"), Not(HasSubstr("HelpContextID")));
    EXPECT_THAT(blockOf("Image"), HasSubstr("WhatsThisHelpID"));
    for (const auto* name : {"Line", "Shape", "Timer"})
        EXPECT_THAT(blockOf(name), Not(HasSubstr("="))) << name;
    EXPECT_THAT(blockOf("Menu"), HasSubstr("HelpContextID"));
    EXPECT_THAT(blockOf("Menu"), Not(HasSubstr("WhatsThisHelpID")));
    EXPECT_THAT(text, HasSubstr("dlg\r\n      Left = 1\r\n      Top = 2\r\n   End\r\n"));
}

TEST_F(IndexProperties, DoNotMindADesignerThatGetsNone) {
    folder.write("sub/frmPart.frm", with(dialog, "   Icon", "   nonsense\r\n"));
    EXPECT_EQ(run({"--properties", "help", "--components", "controls"}).status, 0);
    folder.write("d.dsr",
                 "VERSION 5.00\r\nBegin {C0E45035-5775-11D0-B388-00A0C9055D8E} d\r\n   nonsense\r\nEnd\r\n");
    folder.write("p.vbp", "Type=Exe\r\nDesigner=d.dsr\r\nName=\"Proj\"\r\n");
    const auto result = run({"--properties", "help", "--components", "designers"});
    EXPECT_EQ(result.status, 0) << result.err;
}

TEST_F(IndexProperties, DoNotMindADesignerWithAnIndex) {
    folder.write("sub/frmPart.frm", with(dialog, "   Icon", "   Index           =   3\r\n"));
    EXPECT_EQ(run({"--properties", "help", "--designers"}).status, 0);
    EXPECT_THAT(dialog_(), HasSubstr("   HelpContextID   =   1003\r\n   Index           =   3\r\n"));
    const auto result = run({"--properties", "help", "--designers"});
    EXPECT_EQ(result.status, 0) << result.err;
}

TEST_F(IndexProperties, OfADesignerAreNotAClassesOfItsName) {
    folder.write("k.cls", "VERSION 1.0 CLASS\r\nBEGIN\r\nEND\r\nAttribute VB_Name = \"frmPart\"\r\n");
    folder.write("p.vbp", "Class=frmPart; k.cls\r\n" + project);
    EXPECT_EQ(run({"--properties", "help"}).status, 0);
    EXPECT_NE(dialog_(), dialog);
    EXPECT_EQ(run({"--properties", "remove"}).status, 0);
    EXPECT_EQ(dialog_(), dialog);
}

TEST_F(IndexProperties, FollowARename) {
    run({"--properties", "help"});
    auto text = dialog_();
    text.replace(text.find("cmdNav"), 6, "cmdMove");
    folder.write("sub/frmPart.frm", text);
    EXPECT_THAT(run({"--properties", "help", "--renames"}).out, Not(HasSubstr(".frm")));
    EXPECT_EQ(dialog_(), text);
    EXPECT_EQ(run({"--properties", "remove"}).status, 0);
    EXPECT_THAT(dialog_(), Not(HasSubstr("HelpContextID")));
}

TEST_F(IndexProperties, FollowARenameThatIsSettledLater) {
    run({"--properties", "help"});
    auto text = dialog_();
    text.replace(text.find("cmdNav"), 6, "cmdMove");
    folder.write("sub/frmPart.frm", text);
    EXPECT_EQ(run().status, 1);
    EXPECT_EQ(run({"--renames"}).status, 0);
    EXPECT_EQ(run({"--properties", "remove"}).status, 0);
    EXPECT_THAT(dialog_(), Not(HasSubstr("HelpContextID")));
}

TEST_F(IndexProperties, OfAFormFollowItsNewName) {
    run({"--properties", "both", "--whatsthis-forms"});
    auto text = dialog_();
    EXPECT_THAT(text, HasSubstr("WhatsThisHelp   =   -1"));
    for (auto at = text.find("frmPart"); at != std::string::npos; at = text.find("frmPart", at))
        text.replace(at, 7, "frmItem");
    folder.write("sub/frmPart.frm", text);
    EXPECT_EQ(run({"--renames"}).status, 0);
    EXPECT_EQ(run({"--properties", "remove"}).status, 0);
    EXPECT_THAT(dialog_(), Not(HasSubstr("HelpContextID")));
    EXPECT_THAT(dialog_(), Not(HasSubstr("WhatsThis")));
}

TEST_F(IndexProperties, ShowInACheck) {
    run({"--properties", "help"});
    folder.write("sub/frmPart.frm", dialog);
    const auto result = run({"--properties", "help", "--check"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out, HasSubstr("frmPart.frm\n"));
    EXPECT_EQ(dialog_(), dialog);
}

TEST_F(IndexProperties, HaveOptionsThatBelongTogether) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> wrong{
        {{"--properties", "all"}, "--properties"},
        {{"--properties", "help", "--numbering", "classic"}, "--properties: only with --numbering stable"},
        {{"--properties", "help", "--whatsthis-forms"}, "--whatsthis-forms: needs --properties both"},
        {{"--overwrite-numbers"}, "--overwrite-numbers: needs"},
        {{"--properties", "remove", "--overwrite-numbers"}, "--overwrite-numbers: needs"},
        {{"--diff"}, "--diff: needs"},
        {{"--properties", "help", "--diff", "--check"}, "--diff and --check"},
        {{"--backup-dir", "old"}, "--backup-dir: needs"},
        {{"--help-file", "a\"b"}, "--help-file: "},
        {{"--properties", "help", "--backup-dir", ""}, "a file's name is empty"}};
    for (const auto& [arguments, message] : wrong) {
        const auto result = run(arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_THAT(result.err, HasSubstr(message));
    }
    expectNothingWritten();
}

} // namespace
} // namespace corvelle::cli
