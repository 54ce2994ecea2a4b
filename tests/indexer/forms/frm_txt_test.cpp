#include "indexer/forms/text_editor_session.h"

#include <gmock/gmock.h>

namespace corvelle::indexer::test {
namespace {

using forms::answer::no;
using forms::answer::ok;
using forms::answer::yes;
using std::string_literals::operator""s;
using testing::ElementsAre;
using testing::IsEmpty;

const char* const readyStatus = " Status: Ready to accept Text entries...";
const char* const notReadyStatus = " Status: Not ready file path(s) empty";
const char* const newTextBox = "Corvelle|36|Do you wish to create new Text file ..?";
const char* const missingBox =
    "Corvelle|16|Either Text  file or configuration file is invalid.You need to re generate them ";

class TextEntryWindow : public testing::Test, protected TextEditorSession {
  protected:
    std::string project(const std::string& text) const {
        return "\r\nProj\r\nC:\\Proj\\Proj.vbp\r\n" + pathOf("a.h") + "\r\n" + pathOf("a.hcnf") + "\r\n" +
               pathOf(text) + "\r\nProject file loades successfully.";
    }
    std::string prompt() const {
        return "Update files..?|36|This action requires following files to be updated :/" + pathOf("a.hcnf") +
               "/" + pathOf("a.txt") + "/ modHelp/ C:\\Proj\\modHelp.bas/Do you wish to continue ?";
    }
    void replaceInProject(const std::string& what, const std::string& with) const {
        auto text = folder.read("p.icp");
        const auto at = text.find(what);
        ASSERT_NE(at, std::string::npos);
        folder.write("p.icp", text.replace(at, what.size(), with));
    }
};

TEST_F(TextEntryWindow, IntroducesItself) {
    auto& window = show();
    EXPECT_EQ(window.caption(), "Help ID Indexer: Create /Modify Text Entries");
    EXPECT_EQ(window.icon().name(), "icon101");
    EXPECT_EQ(window.lblSubtitle.caption(), "Add  pop up text entries for your controls");
    EXPECT_EQ(
        window.lblInfo.caption(),
        "This is the last functional stage. In this stage you can create the text entries for your "
        "controls which will be displayed as text popups for controls. When you add your entries they "
        "are updated in a internal buffer you must not press &Save button after each entry. Only when "
        "you have finished all the desired entries  you must save the entries to the selected file, and "
        "you have done..");
    EXPECT_EQ(window.lblProject.caption(), "Select Indexer Project File:");
    EXPECT_EQ(window.txtPrj.text(), "No Information");
    EXPECT_EQ(window.lblIDIs.caption(), "HelpContext ID:");
    EXPECT_EQ(window.lblHelp.caption(), "Text Pop Up Entry [The text which appears as help):");
    EXPECT_EQ(window.CmdDef.caption(), "Set &Default");
    EXPECT_EQ(window.CmdDef.toolTipText(), "Asign the default message to selected control");
    EXPECT_EQ(window.CmdDel.caption(), "Delete");
    EXPECT_EQ(window.CmdDel.toolTipText(), "Remove selected control from Indexing");
    EXPECT_EQ(window.CmdProc.caption(), "&Save");
    EXPECT_EQ(window.CmdClose.caption(), "&Close");
    EXPECT_EQ(status(), notReadyStatus);
    EXPECT_TRUE(window.visible());
}

TEST_F(TextEntryWindow, HasNothingToEditAtFirst) {
    auto& window = show();
    EXPECT_EQ(display(), "disabled: ");
    EXPECT_FALSE(window.CmdProc.enabled());
    EXPECT_EQ(window.cboDsr.listCount(), 0);
    window.ChkStatus();
    EXPECT_EQ(status(), notReadyStatus);
    EXPECT_TRUE(click(window.CmdClose));
    EXPECT_THAT(desktop.boxes(), IsEmpty());
}

// Opening

TEST_F(TextEntryWindow, OpensAProject) {
    auto& window = showOpened();
    const auto& dialog = desktop.fileDialogs().front();
    EXPECT_FALSE(dialog.save);
    EXPECT_EQ(dialog.title, "Open Indexer Project");
    EXPECT_EQ(dialog.filter, "Indexer Project(*.icp)|*.icp");
    EXPECT_EQ(dialog.flags, 2048);
    EXPECT_EQ(dialog.initDir, "");
    EXPECT_EQ(window.Text1.text(), pathOf("p.icp"));
    EXPECT_EQ(window.txtPrj.text(), project("a.txt"));
    EXPECT_TRUE(window.CmdProc.enabled());
    EXPECT_EQ(status(), readyStatus);
    EXPECT_THAT(window.cboDsr.items(), ElementsAre("frmMain", "frmNone", "frmPart"));
    EXPECT_EQ(window.cboDsr.listIndex(), 0);
    EXPECT_THAT(window.CboCtl.items(), ElementsAre("cmdOK", "txtName", "lbl"));
    EXPECT_EQ(window.CboCtl.listIndex(), 0);
    EXPECT_EQ(display(), " Closes the window.|Delete|Default");
    EXPECT_EQ(window.mousePointer(), forms::MousePointer::Default);
    EXPECT_FALSE(indicatorRuns());
    EXPECT_THAT(desktop.boxes(), IsEmpty());
}

TEST_F(TextEntryWindow, StartsWhereTheLastProjectWas) {
    auto& window = show();
    window.Text1.setText("C:\\Proj\\help\\p.icp");
    desktop.cancelNextFile();
    click(window.Command2);
    EXPECT_EQ(desktop.fileDialogs().back().initDir, "C:\\Proj\\help\\");
    EXPECT_EQ(window.Text1.text(), "C:\\Proj\\help\\p.icp");
    EXPECT_EQ(window.txtPrj.text(), "No Information");
    EXPECT_EQ(status(), notReadyStatus);
}

TEST_F(TextEntryWindow, ShowsThatItIsLoading) {
    auto& window = show();
    desktop.atYield([&] { // the indicator stops at the end
        EXPECT_EQ(status(), " Status: Finished loading Text entries...");
        EXPECT_EQ(window.mousePointer(), forms::MousePointer::Hourglass);
        EXPECT_TRUE(indicatorRuns());
    });
    openProject();
}

TEST_F(TextEntryWindow, RefusesAnInvalidProject) {
    auto& window = show();
    const auto good = folder.read("p.icp");
    const std::vector<std::pair<std::string, std::string>> mistakes{
        {"Indexer project", "indexer project"},
        {"Header file= ", "Header File= "},
        {"VB Project Name= ", "VB Project name= "},
        {"Text File= " + pathOf("a.txt"), "Text File= "}};
    for (const auto& [what, with] : mistakes) {
        replaceInProject(what, with);
        openProject();
        EXPECT_EQ(window.txtPrj.text(), "Invalid project file..") << with;
        EXPECT_FALSE(window.CmdProc.enabled());
        EXPECT_EQ(window.cboDsr.listCount(), 0);
        folder.write("p.icp", good);
    }
    openProject("none.icp");
    EXPECT_EQ(window.txtPrj.text(), "Invalid project file..");
    EXPECT_EQ(window.Text1.text(), pathOf("none.icp"));
    EXPECT_THAT(desktop.boxes(), IsEmpty());
    openProject();
    EXPECT_TRUE(window.CmdProc.enabled());
    EXPECT_EQ(status(), readyStatus);
}

TEST_F(TextEntryWindow, TakesAProjectWithoutAModule) {
    replaceInProject("Module Name= modHelp\r\nModule File= C:\\Proj\\modHelp.bas", "Module Name= ");
    showOpened();
    EXPECT_EQ(status(), readyStatus);
}

TEST_F(TextEntryWindow, NeedsTheConfigurationAndTheTextFile) {
    auto& window = show();
    for (const auto* missing : {"a.hcnf", "a.txt"}) {
        const auto bytes = folder.read(missing);
        std::filesystem::remove(folder.path() / missing);
        desktop.answerNextBox(ok, [&] { EXPECT_EQ(lastBox(), missingBox); });
        if (missing == std::string("a.txt")) answer(no); // to the offer of a new one
        openProject();
        EXPECT_FALSE(window.CmdProc.enabled());
        EXPECT_EQ(window.txtPrj.text(), project("a.txt"));
        EXPECT_EQ(status(), " Status: Ready to load data....");
        EXPECT_EQ(window.cboDsr.listCount(), 0);
        EXPECT_EQ(window.mousePointer(), forms::MousePointer::Default);
        folder.write(missing, bytes);
    }
    window.ChkStatus();
    EXPECT_EQ(status(), notReadyStatus);
    openProject();
    EXPECT_EQ(status(), readyStatus);
}

TEST_F(TextEntryWindow, FindsFilesBesideTheProject) {
    writeProject("p.icp", "a.hcnf", "a.txt");
    showOpened();
    EXPECT_EQ(status(), readyStatus);
    choose(0, 0);
    EXPECT_TRUE(type("new"));
    choose(0, 1);
    save();
    EXPECT_THAT(folder.read("a.txt"), testing::HasSubstr(".topic  IDH_AAAB\r\nnew\r\n"));
}

TEST_F(TextEntryWindow, LoadsWhatItCanOfMalformedFiles) {
    folder.write("a.hcnf", "rubbish\r\n<P>frmA</P>\r\n<C>one</C>\r\n<C>two  IDH_AAAB</C>\r\n");
    folder.write("a.txt",
                 "rubbish\r\n.topic\r\nlost\r\n.topic  IDH_ZZZZ\r\nlost\r\n.topic  IDH_AAAB\r\nkept\r\n");
    auto& window = showOpened();
    EXPECT_THAT(window.CboCtl.items(), ElementsAre("one", "two"));
    EXPECT_EQ(display(), "disabled: This control is deleted from Index..|Default");
    desktop.choose(window.CboCtl, 1);
    EXPECT_EQ(display(), " kept|Delete|Default");
    EXPECT_EQ(window.LblType.caption(), "");
}

TEST_F(TextEntryWindow, ReplacesEverythingByTheNextProject) {
    folder.write("b.hcnf", "<P>frmB</P>\r\n<C>a Label IDH_AAAB</C>\r\n<C>b Label IDH_AAAC</C>\r\n");
    folder.write("b.txt",
                 ".topic  IDH_AAAA\r\nx\r\n.topic  IDH_AAAB\r\nthe a\r\n.topic  IDH_AAAC\r\nthe b\r\n");
    writeProject("b.icp", pathOf("b.hcnf"), pathOf("b.txt"));
    auto& window = showOpened();
    choose(2, 0);
    answer(yes);
    click(window.CmdDef);
    choose(0, 1);
    type("unsaved");
    openProject("b.icp");
    EXPECT_THAT(window.cboDsr.items(), ElementsAre("frmB"));
    EXPECT_EQ(display(), " the a|Delete|Default");
    desktop.choose(window.CboCtl, 1);
    EXPECT_EQ(display(), " the b|Delete|Default");
    save(); // of the texts alone: nobody has been asked for these files
    EXPECT_EQ(folder.read("b.txt"),
              ".topic  IDH_AAAA\r\n x\r\n.topic  IDH_AAAB\r\n the a\r\n.topic  IDH_AAAC\r\n the b\r\n");
    EXPECT_EQ(folder.read("a.txt"), editedTexts);
    EXPECT_EQ(folder.read("a.hcnf"), editedMappings);
    answer(no);
    click(window.CmdDel);
    EXPECT_EQ(desktop.boxes().back().title, "Update files..?");
}

TEST_F(TextEntryWindow, KeepsTheIndexOfTheLastGoodProjectForASaving) {
    folder.write("b.hcnf", "<P>frmB</P>\r\n");
    writeProject("b.icp", pathOf("b.hcnf"), pathOf("none.txt"));
    folder.write("c.icp", "Indexer project file :\r\nVB Project Name= P\r\nrubbish\r\n");
    auto& window = showOpened();
    answer(yes);
    click(window.CmdDef);
    choose(0, 1);
    type("worth keeping");
    desktop.choose(window.CboCtl, 2);
    answer(ok);
    answer(no);
    openProject("b.icp");
    openProject("c.icp");
    EXPECT_FALSE(window.CmdProc.enabled());
    answer(yes);
    answer(ok);
    click(window.CmdClose);
    EXPECT_EQ(folder.read("b.hcnf"), "<P>frmB</P>\r\n");
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "none.txt"));
    EXPECT_THAT(folder.read("a.txt"), testing::HasSubstr(".topic  IDH_AAAC\r\nworth keeping\r\n"));
}

TEST_F(TextEntryWindow, EmptiesItsListsForAProjectThatCannotBeOpened) {
    writeProject("b.icp", pathOf("none.hcnf"), pathOf("a.txt"));
    folder.write("c.icp", "rubbish\r\n");
    auto& window = show();
    for (const auto* name : {"b.icp", "c.icp"}) {
        openProject();
        EXPECT_EQ(window.cboDsr.listCount(), 3);
        if (name == std::string("b.icp")) answer(ok);
        openProject(name);
        EXPECT_EQ(window.cboDsr.listCount() + window.CboCtl.listCount(), 0);
        EXPECT_EQ(display(), "disabled: ");
        EXPECT_EQ(window.LblID.caption() + window.LblType.caption(), "");
        EXPECT_FALSE(window.CmdProc.enabled());
    }
    EXPECT_EQ(window.txtPrj.text(), "Invalid project file..");
    EXPECT_TRUE(click(window.CmdClose)); // nothing is unsaved
}

TEST_F(TextEntryWindow, ReadsItsFilesAgainWhenItsStatusIsChecked) {
    auto& window = showOpened();
    type("dropped");
    folder.write("a.hcnf", "<P>frmOther</P>\r\n<C>a Label IDH_AAAB</C>\r\n");
    folder.write("a.txt", ".topic  IDH_AAAB\r\nread again\r\n");
    window.ChkStatus();
    EXPECT_EQ(status(), readyStatus);
    EXPECT_THAT(window.cboDsr.items(), ElementsAre("frmOther"));
    EXPECT_EQ(display(), " read again|Delete|Default");
    EXPECT_TRUE(window.saved());
}

TEST_F(TextEntryWindow, AsksForTheSameFilesBeforeEachChange) {
    auto& window = showOpened();
    for (auto* command : {&window.CmdDef, &window.CmdDel}) {
        answer(no);
        click(*command);
        EXPECT_EQ(lastBox(), prompt());
    }
}

// Saving

TEST_F(TextEntryWindow, SavesTheTexts) {
    auto& window = showOpened();
    type("Closes it.\r\nAt once.");
    desktop.choose(window.CboCtl, 1);
    save();
    EXPECT_EQ(status(), "Status: Text file saved..");
    EXPECT_EQ(folder.read("a.txt"),
              ".topic  IDH_AAAA\r\n Nothing is known.\r\n.topic  IDH_AAAB\r\nCloses it.\r\nAt once.\r\n"
              ".topic  IDH_AAAC\r\n The name.\r\n.topic  IDH_AAAD\r\n Saves.\r\n");
    EXPECT_EQ(folder.read("a.hcnf"), editedMappings);
    EXPECT_EQ(folder.read("a.h"), "header");
}

TEST_F(TextEntryWindow, SavesTheEntriesAsTheyStandWithoutTheTextOnDisplay) {
    auto& window = showOpened();
    type("not there yet");
    save();
    EXPECT_EQ(folder.read("a.txt"), savedTexts);
    EXPECT_TRUE(window.saved());
    desktop.choose(window.CboCtl, 1);
    save();
    EXPECT_THAT(folder.read("a.txt"), testing::HasSubstr(".topic  IDH_AAAB\r\nnot there yet\r\n"));
}

TEST_F(TextEntryWindow, SavesTheMappingsAfterADeletion) {
    auto& window = showOpened();
    desktop.choose(window.CboCtl, 1);
    answer(yes);
    click(window.CmdDel);
    EXPECT_EQ(lastBox(), prompt());
    save();
    EXPECT_EQ(folder.read("a.hcnf"), "<P>frmMain</P>\r\n<C>cmdOK CommandButton IDH_AAAB</C>\r\n"
                                     "<C>lbl Label IDH_AAAA</C>\r\n<P>frmNone</P>\r\n<P>frmPart</P>\r\n"
                                     "<C>cmdOK CommandButton IDH_AAAD</C>\r\n");
    EXPECT_EQ(folder.read("a.txt"), ".topic  IDH_AAAA\r\n Nothing is known.\r\n.topic  IDH_AAAB\r\n"
                                    " Closes the window.\r\n.topic  IDH_AAAD\r\n Saves.\r\n");
    EXPECT_EQ(folder.read("a.h"), "header");
    // Later savings rewrite them too.
    folder.write("a.hcnf", "");
    save();
    EXPECT_NE(folder.read("a.hcnf"), "");
}

TEST_F(TextEntryWindow, GivesADeletedControlSetToDefaultNoTopic) {
    auto& window = showOpened();
    answer(yes);
    click(window.CmdDel);
    EXPECT_EQ(display(), "disabled: This control is deleted from Index..|Default");
    EXPECT_EQ(window.LblID.caption(), "");
    click(window.CmdDef);
    EXPECT_EQ(display(), "disabled:  Nothing is known.|Delete");
    EXPECT_EQ(window.LblID.caption(), "IDH_AAAA");
    choose(2, 0);
    save();
    EXPECT_THAT(folder.read("a.hcnf"),
                testing::HasSubstr("<C>cmdOK CommandButton IDH_AAAA</C>\r\n<C>txtName"));
    EXPECT_EQ(folder.read("a.txt"),
              ".topic  IDH_AAAA\r\n Nothing is known.\r\n.topic  IDH_AAAC\r\n The name.\r\n"
              ".topic  IDH_AAAD\r\n Saves.\r\n");
}

TEST_F(TextEntryWindow, KeepsTheDefaultTextOfAnIndexWithoutOtherTopics) {
    folder.write("a.hcnf", "<P>frmMain</P>\r\n<C>lbl Label IDH_AAAA</C>\r\n");
    folder.write("a.txt", ".topic  IDH_AAAA\r\nNothing is known.\r\n");
    showOpened();
    EXPECT_EQ(display(), "disabled:  Nothing is known.|Delete");
    save();
    EXPECT_EQ(folder.read("a.txt"), ".topic  IDH_AAAA\r\n Nothing is known.\r\n");
}

TEST_F(TextEntryWindow, TellsThatTheTextsCannotBeSaved) {
    auto& window = showOpened();
    type("new");
    std::filesystem::permissions(folder.path() / "a.txt", std::filesystem::perms(0444));
    desktop.answerNextBox(ok, [&] { EXPECT_EQ(status(), "Status: Saving Text file.."); });
    click(window.CmdProc);
    EXPECT_EQ(lastBox(), "Corvelle|48|Errors occured while saving file ..");
    EXPECT_EQ(status(), "Status: Error while saving text file..");
    EXPECT_FALSE(window.saved());
    EXPECT_EQ(folder.read("a.txt"), editedTexts);
    std::filesystem::permissions(folder.path() / "a.txt", std::filesystem::perms(0644));
    desktop.choose(window.CboCtl, 1);
    save(); // the entries are still there
    EXPECT_THAT(folder.read("a.txt"), testing::HasSubstr("\r\nnew\r\n"));
}

TEST_F(TextEntryWindow, SavesTheTextsWhenTheMappingsCannotBe) {
    auto& window = showOpened();
    answer(yes);
    click(window.CmdDel);
    std::filesystem::permissions(folder.path() / "a.hcnf", std::filesystem::perms(0444));
    save();
    EXPECT_EQ(status(), "Status: Text file saved..");
    EXPECT_EQ(folder.read("a.hcnf"), editedMappings);
    EXPECT_THAT(folder.read("a.txt"), testing::Not(testing::HasSubstr("IDH_AAAB")));
    std::filesystem::permissions(folder.path() / "a.hcnf", std::filesystem::perms(0644));
}

// Another text file

TEST_F(TextEntryWindow, TakesANewTextFile) {
    auto& window = showOpened();
    answer(yes);
    desktop.chooseNextFile(pathOf("new.txt"));
    window.NewText();
    EXPECT_EQ(lastBox(), newTextBox);
    const auto& dialog = desktop.fileDialogs().back();
    EXPECT_TRUE(dialog.save);
    EXPECT_EQ(dialog.filter, "Text Files(*.txt)|*.txt");
    EXPECT_EQ(dialog.fileName, "");
    EXPECT_EQ(dialog.flags, 8194);
    EXPECT_EQ(window.txtPrj.text(), project("new.txt"));
    EXPECT_EQ(status(), readyStatus);
    EXPECT_EQ(display(), "|Delete|Default");
    type("first");
    desktop.choose(window.CboCtl, 1);
    save();
    EXPECT_THAT(folder.read("new.txt"), testing::HasSubstr(".topic  IDH_AAAB\r\nfirst\r\n"));
    EXPECT_EQ(folder.read("a.txt"), editedTexts);
}

TEST_F(TextEntryWindow, ReadsATextFileThatIsThere) {
    folder.write("b.txt", ".topic  IDH_AAAB\r\nfrom the other\r\n");
    auto& window = showOpened();
    answer(yes);
    desktop.chooseNextFile(pathOf("b.txt"));
    window.NewText();
    EXPECT_EQ(display(), " from the other|Delete|Default");
    EXPECT_EQ(folder.read("b.txt"), ".topic  IDH_AAAB\r\nfrom the other\r\n");
}

TEST_F(TextEntryWindow, KeepsItsTextFileUnlessAnotherIsChosen) {
    auto& window = showOpened();
    type("typed");
    answer(no);
    window.NewText();
    answer(yes);
    desktop.cancelNextFile();
    window.NewText();
    EXPECT_EQ(window.txtPrj.text(), project("a.txt"));
    EXPECT_EQ(display(), "typed|Delete|Default");
}

TEST_F(TextEntryWindow, OffersANewTextFileWhereOnlyThatIsMissing) {
    std::filesystem::remove(folder.path() / "a.txt");
    auto& window = show();
    for (const bool wanted : {false, true}) {
        answer(ok);
        desktop.answerNextBox(wanted ? yes : no, [&] {
            if (wanted) desktop.cancelNextFile();
        });
        openProject();
        EXPECT_EQ(lastBox(), newTextBox);
        EXPECT_FALSE(window.CmdProc.enabled());
        EXPECT_EQ(window.txtPrj.text(), project("a.txt"));
        EXPECT_EQ(window.cboDsr.listCount(), 0);
        EXPECT_THAT(folder.names(), testing::UnorderedElementsAre("a.h", "a.hcnf", "p.icp"));
    }
    window.ChkStatus(); // not ready: nothing is loaded, nothing asked
    answer(ok);
    desktop.answerNextBox(yes, [&] { desktop.chooseNextFile(pathOf("new.txt")); });
    openProject();
    EXPECT_TRUE(window.CmdProc.enabled());
    EXPECT_EQ(window.txtPrj.text(), project("new.txt"));
    EXPECT_EQ(status(), readyStatus);
    EXPECT_EQ(display(), "|Delete|Default");
    type("first");
    desktop.choose(window.CboCtl, 1);
    save();
    EXPECT_THAT(folder.read("new.txt"), testing::HasSubstr(".topic  IDH_AAAB\r\nfirst\r\n"));
    EXPECT_THAT(folder.read("p.icp"), testing::HasSubstr("Text File= " + pathOf("a.txt")));
}

// A project file that ends early is valid.
TEST_F(TextEntryWindow, OffersATextFileToAProjectThatNamesNone) {
    const auto whole = folder.read("p.icp");
    folder.write("p.icp", whole.substr(0, whole.find("Text File= ")));
    auto& window = show();
    answer(ok);
    desktop.answerNextBox(yes, [&] { desktop.chooseNextFile(pathOf("new.txt")); });
    openProject();
    EXPECT_EQ(window.txtPrj.text(), project("new.txt"));
    EXPECT_EQ(status(), readyStatus);
    EXPECT_EQ(folder.read("new.txt"), "");
}

TEST_F(TextEntryWindow, AsksOnceWhereTheNewTextFileIsMissingToo) {
    std::filesystem::remove(folder.path() / "a.txt");
    auto& window = show();
    answer(ok);
    desktop.answerNextBox(yes, [&] { desktop.chooseNextFile(pathOf("none/new.txt")); }); // cannot be made
    answer(ok);
    openProject();
    ASSERT_EQ(desktop.boxes().size(), 3U);
    EXPECT_EQ(lastBox(), missingBox);
    EXPECT_FALSE(window.CmdProc.enabled());
    EXPECT_EQ(window.txtPrj.text(), project("none/new.txt"));
    // NewText itself makes the window ready.
    answer(yes);
    desktop.chooseNextFile(pathOf("b.txt"));
    window.NewText();
    EXPECT_EQ(status(), readyStatus);
    EXPECT_TRUE(window.CmdProc.enabled());
}

TEST_F(TextEntryWindow, OffersNoTextFileBehindItsEnd) {
    std::filesystem::remove(folder.path() / "a.txt");
    show();
    desktop.answerNextBox(ok, [&] { manager->Hide(); });
    openProject();
    EXPECT_EQ(desktop.boxes().size(), 1U);
    EXPECT_EQ(manager->editor, nullptr);
}

TEST_F(TextEntryWindow, DropsADeletionWithItsTextFile) {
    auto& window = showOpened();
    answer(yes);
    click(window.CmdDel);
    answer(yes);
    desktop.chooseNextFile(pathOf("new.txt"));
    window.NewText();
    EXPECT_EQ(display(), "|Delete|Default"); // all is read anew
    save();
    EXPECT_EQ(folder.read("a.hcnf"), editedMappings); // and nothing has been confirmed
    answer(no);
    click(window.CmdDel);
    EXPECT_EQ(desktop.boxes().back().title, "Update files..?");
}

TEST_F(TextEntryWindow, ReplacesNoTextFileThatItCouldNotRead) {
    const auto utf16 = "\xFF\xFE.\0t\0o\0p\0i\0c\0 \0 \0I\0D\0H\0_\0A\0A\0A\0B\0"s;
    folder.write("a.txt", utf16);
    auto& window = showOpened();
    EXPECT_EQ(display(), "|Delete|Default");
    const auto expectNotSaved = [&] {
        answer(ok);
        click(window.CmdProc);
        EXPECT_EQ(lastBox(), "Corvelle|48|Errors occured while saving file ..");
        EXPECT_EQ(status(), "Status: Error while saving text file..");
        EXPECT_EQ(folder.read("a.txt"), utf16);
        EXPECT_EQ(folder.read("a.hcnf"), editedMappings);
        EXPECT_FALSE(window.saved());
    };
    type("typed");
    expectNotSaved();
    answer(yes);
    click(window.CmdDel);
    expectNotSaved(); // with the mappings too
    // Once it can be read it can be saved.
    folder.write("a.txt", editedTexts);
    openProject();
    save();
    EXPECT_EQ(folder.read("a.txt"), savedTexts);
}

TEST_F(TextEntryWindow, LoadsNoNewTextFileWithoutAProject) {
    auto& window = show();
    answer(yes);
    desktop.chooseNextFile(pathOf("new.txt"));
    window.NewText();
    EXPECT_EQ(status(), notReadyStatus);
    EXPECT_EQ(window.txtPrj.text(), "No Information");
}

} // namespace
} // namespace corvelle::indexer::test
