#include "indexer/forms/text_editor_session.h"

#include <gmock/gmock.h>

namespace corvelle::indexer::test {
namespace {

using forms::answer::no;
using forms::answer::ok;
using forms::answer::yes;
using testing::HasSubstr;
using testing::IsEmpty;

const char* const saveBox =
    "Save ?|36|You have not saved the changes./Do you whish to save before closing..?";

class TextEntryWindowClosing : public testing::Test, protected TextEditorSession {
  protected:
    // Whether the window is gone and the connect object told.
    void expectGone(const std::shared_ptr<FrmTxt>& window) {
        EXPECT_FALSE(window->isLoaded());
        EXPECT_EQ(manager->editor, nullptr);
        EXPECT_THAT(desktop.windows(), IsEmpty());
        EXPECT_EQ(ide.use_count(), 1);
    }
};

TEST_F(TextEntryWindowClosing, TellsTheConnectObject) {
    const auto window = showOpened().shared_from_this();
    EXPECT_GT(ide.use_count(), 1);
    EXPECT_TRUE(click(form().CmdClose));
    expectGone(std::static_pointer_cast<FrmTxt>(window));
    EXPECT_EQ(manager->hides, 1);
    EXPECT_THAT(desktop.boxes(), IsEmpty()); // nothing has been typed
}

TEST_F(TextEntryWindowClosing, AsksAboutWhatWasTyped) {
    auto& window = showOpened();
    const auto alive = manager->editor;
    type("typed");
    desktop.choose(window.CboCtl, 1);
    answer(no);
    EXPECT_TRUE(desktop.close(window));
    EXPECT_EQ(lastBox(), saveBox);
    EXPECT_EQ(folder.read("a.txt"), editedTexts);
    expectGone(alive);
}

TEST_F(TextEntryWindowClosing, SavesFirstIfTheUserWants) {
    auto& window = showOpened();
    type("typed");
    desktop.choose(window.CboCtl, 1);
    answer(yes);
    answer(ok);
    click(window.CmdClose);
    EXPECT_EQ(lastBox(), "Corvelle|64|File was saved successfully.");
    EXPECT_THAT(folder.read("a.txt"), HasSubstr(".topic  IDH_AAAB\r\ntyped\r\n"));
    EXPECT_EQ(manager->editor, nullptr);
}

TEST_F(TextEntryWindowClosing, ClosesWhenTheSavingFails) {
    auto& window = showOpened();
    type("typed");
    std::filesystem::permissions(folder.path() / "a.txt", std::filesystem::perms(0444));
    answer(yes);
    answer(ok);
    click(window.CmdClose);
    EXPECT_EQ(lastBox(), "Corvelle|48|Errors occured while saving file ..");
    EXPECT_EQ(manager->editor, nullptr);
    std::filesystem::permissions(folder.path() / "a.txt", std::filesystem::perms(0644));
}

TEST_F(TextEntryWindowClosing, KnowsWhatIsUnsaved) {
    auto& window = showOpened();
    desktop.choose(window.CboCtl, 1);
    desktop.choose(window.cboDsr, 2);
    EXPECT_TRUE(window.saved()); // the window writes into the box itself
    answer(yes);
    click(window.CmdDef);
    EXPECT_TRUE(window.saved()); // only typing counts
    choose(0, 0);
    type(window.txtHelp.text());
    EXPECT_FALSE(window.saved()); // any key counts
    save();
    EXPECT_TRUE(window.saved());
    window.txtHelp.userTyped("pasted with the mouse");
    EXPECT_FALSE(window.saved());
    save();
    type("again");
    openProject();
    EXPECT_TRUE(window.saved());
    click(window.CmdClose);
}

TEST_F(TextEntryWindowClosing, AsksNothingWhenTheProgramQuits) {
    showOpened();
    type("typed");
    desktop.quit();
    const auto window = manager->editor;
    window->unload();
    expectGone(window);
    EXPECT_EQ(folder.read("a.txt"), editedTexts);
}

TEST_F(TextEntryWindowClosing, StartsAnewWhenShownAgain) {
    auto& window = showOpened();
    const auto alive = manager->editor;
    click(window.CmdClose);
    manager->editor = alive;
    alive->ShowTextEdit(ide, manager);
    EXPECT_EQ(window.txtPrj.text(), "No Information");
    EXPECT_EQ(window.cboDsr.listCount(), 0);
    EXPECT_EQ(window.Text1.text(), "");
    EXPECT_EQ(window.index().count(), 0U);
    EXPECT_EQ(status(), " Status: Not ready file path(s) empty");
    answer(yes);
    desktop.chooseNextFile(pathOf("new.txt"));
    window.NewText(); // of no project
    EXPECT_FALSE(window.CmdProc.enabled());
    EXPECT_EQ(window.txtPrj.text(), "No Information");
    openProject();
    EXPECT_EQ(display(), " Closes the window.|Delete|Default");
}

TEST_F(TextEntryWindowClosing, ComesToTheFrontWhenShownTwice) {
    auto& window = showOpened();
    window.ShowTextEdit(ide, manager);
    EXPECT_EQ(window.cboDsr.listCount(), 3);
}

// While a command is under way

TEST_F(TextEntryWindowClosing, WaitsUntilTheIndexIsLoaded) {
    const std::vector<std::function<void()>> ways{[&] { desktop.close(form()); },
                                                  [&] { click(form().CmdClose); }, [&] { manager->Hide(); }};
    for (const auto& way : ways) {
        const auto window = std::static_pointer_cast<FrmTxt>(show().shared_from_this());
        desktop.atYield([&] {
            way();
            EXPECT_TRUE(window->isLoaded());
        });
        openProject();
        expectGone(window);
    }
    EXPECT_THAT(desktop.boxes(), IsEmpty());
}

TEST_F(TextEntryWindowClosing, LoadsToTheEndWhenTheProgramQuits) {
    show();
    desktop.atYield([&] { desktop.quit(); });
    openProject();
    EXPECT_EQ(status(), " Status: Ready to accept Text entries...");
    EXPECT_FALSE(indicatorRuns());
}

TEST_F(TextEntryWindowClosing, TakesNoOtherCommandMeanwhile) {
    auto& window = show();
    desktop.atYield([&] {
        for (auto* command : {&window.Command2, &window.CmdProc, &window.CmdDef, &window.CmdDel})
            click(*command);
        window.NewText();
        window.ChkStatus();
        desktop.choose(window.CboCtl, 1); // but the lists are there
        EXPECT_EQ(display(), " The name.|Delete|Default");
    });
    openProject();
    EXPECT_EQ(status(), " Status: Ready to accept Text entries...");
    EXPECT_EQ(display(), " The name.|Delete|Default");
    EXPECT_EQ(folder.read("a.txt"), editedTexts);
}

TEST_F(TextEntryWindowClosing, SurvivesADisconnectionBehindItsBoxes) {
    const auto hide = [&] { manager->Hide(); };
    const std::vector<std::function<void(FrmTxt&)>> commands{
        [&](FrmTxt& window) { click(window.CmdDel); },
        [&](FrmTxt& window) { click(window.CmdDef); },
        [&](FrmTxt& window) { click(window.CmdProc); },
        [&](FrmTxt& window) { window.NewText(); },
    };
    for (const auto& command : commands) {
        showOpened();
        const auto window = manager->editor;
        desktop.answerNextBox(desktop.boxes().size() == 2 ? ok : yes, hide);
        command(*window);
        expectGone(window);
    }
    // A project whose files are missing.
    std::filesystem::remove(folder.path() / "a.hcnf");
    show();
    const auto window = manager->editor;
    desktop.answerNextBox(ok, hide);
    openProject();
    expectGone(window);
    EXPECT_EQ(folder.read("a.txt"), savedTexts); // by Save
}

TEST_F(TextEntryWindowClosing, AsksAboutWhatWasTypedOnceTheCommandHasEnded) {
    showOpened();
    type("typed");
    const auto window = manager->editor;
    desktop.answerNextBox(no, [&] {
        manager->Hide();
        EXPECT_TRUE(window->isLoaded());
        EXPECT_EQ(desktop.boxes().size(), 1U); // the command's own question
    });
    answer(no);
    click(window->CmdDel);
    EXPECT_EQ(lastBox(), saveBox);
    expectGone(window);
}

TEST_F(TextEntryWindowClosing, SurvivesADisconnectionWhileItAsks) {
    showOpened();
    type("typed");
    const auto window = manager->editor;
    desktop.answerNextBox(no, [&] { manager->Hide(); });
    click(window->CmdClose);
    expectGone(window);
}

} // namespace
} // namespace corvelle::indexer::test
