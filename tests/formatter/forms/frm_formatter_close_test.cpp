#include "formatter/forms/wizard.h"

namespace corvelle::formatter::test {
namespace {

using forms::answer::no;
using forms::answer::yes;

const char* const question = "Add code ..?|36|You have not added the formatted code to the code module..!/"
                             "Sure you wish to exit ?";

using ClosingTheDialog = Wizard;

TEST_F(ClosingTheDialog, BackShowsThePageAgain) {
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_FALSE(page().visible());
        EXPECT_TRUE(desktop.click(dialog.CmdBack));
        EXPECT_FALSE(dialog.isLoaded());
        EXPECT_TRUE(page().visible());
    });
    EXPECT_EQ(desktop.active(), &page());
    EXPECT_EQ(manager->hides, 0);
}

TEST_F(ClosingTheDialog, TheCloseBoxDoesWhatBackDoes) {
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_TRUE(desktop.close(dialog));
        EXPECT_TRUE(page().visible());
    });
}

TEST_F(ClosingTheDialog, CloseClosesTheWholeWizard) {
    showPage();
    const std::weak_ptr<frmMain> shown = manager->page;
    std::weak_ptr<forms::Form> dialogObject;
    inDialog([&](FrmFormatter& dialog) {
        dialogObject = dialog.weak_from_this();
        EXPECT_TRUE(desktop.click(dialog.CmdClose));
        EXPECT_FALSE(dialog.isLoaded());
        EXPECT_TRUE(desktop.windows().empty());
    });
    EXPECT_GE(manager->hides, 1);
    EXPECT_TRUE(shown.expired());
    EXPECT_TRUE(dialogObject.expired());
    EXPECT_TRUE(desktop.boxes().empty());
    EXPECT_FALSE(manager->flashed); // the page does not come back just to go
}

TEST_F(ClosingTheDialog, EscapePressesClose) {
    inDialog([&](FrmFormatter& dialog) { EXPECT_TRUE(desktop.pressEscape(dialog)); });
    EXPECT_EQ(manager->page, nullptr);
}

TEST_F(ClosingTheDialog, AsksWhenFormattedCodeWasNotAdded) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        desktop.answerNextBox(no);
        desktop.click(dialog.CmdBack);
        EXPECT_EQ(lastBox(), question);
        EXPECT_TRUE(dialog.visible());
        desktop.answerNextBox(no);
        desktop.close(dialog);
        EXPECT_EQ(lastBox(), question);
        EXPECT_TRUE(dialog.visible());
        desktop.answerNextBox(no);
        desktop.click(dialog.CmdClose);
        EXPECT_EQ(lastBox(), question);
        EXPECT_TRUE(dialog.visible());
        EXPECT_NE(manager->page, nullptr);
        EXPECT_EQ(manager->hides, 0);
        EXPECT_FALSE(page().visible());
        EXPECT_TRUE(dialog.CmdAdd.enabled()); // and the formatted code is still there
        desktop.answerNextBox(yes);
        desktop.click(dialog.CmdBack);
        EXPECT_FALSE(dialog.isLoaded());
    });
    EXPECT_TRUE(page().visible());
    EXPECT_EQ(desktop.boxes().size(), 4U);
}

TEST_F(ClosingTheDialog, AfterNoToCloseThePageStillComesBack) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        desktop.answerNextBox(no);
        desktop.click(dialog.CmdClose);
        desktop.click(dialog.CmdAdd);
        desktop.click(dialog.CmdBack);
    });
    EXPECT_TRUE(page().visible());
}

TEST_F(ClosingTheDialog, AsksNothingBeforeFormattingOrAfterAdding) {
    inDialog([&](FrmFormatter&) {});
    openModule("Other", sample());
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        desktop.click(dialog.CmdAdd);
    });
    EXPECT_TRUE(desktop.boxes().empty());
}

TEST_F(ClosingTheDialog, CloseAfterFormattingAsksOnceAndClosesBoth) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        desktop.answerNextBox(yes);
        desktop.click(dialog.CmdClose);
    });
    EXPECT_EQ(manager->page, nullptr);
    EXPECT_EQ(desktop.boxes().size(), 1U);
}

TEST_F(ClosingTheDialog, LetsGoOfTheDialog) {
    std::weak_ptr<forms::Form> object;
    inDialog([&](FrmFormatter& dialog) {
        object = dialog.weak_from_this();
        EXPECT_EQ(page().formatter(), object.lock());
    });
    EXPECT_TRUE(object.expired());
    EXPECT_EQ(page().formatter(), nullptr);
}

TEST_F(ClosingTheDialog, LetsGoOfTheLinesAndOfTheErrorList) {
    std::shared_ptr<FrmFormatter> kept;
    std::weak_ptr<forms::Form> errors;
    inDialog([&](FrmFormatter& dialog) {
        kept = std::static_pointer_cast<FrmFormatter>(dialog.shared_from_this());
        code() = {"End Sub"};
        desktop.inNextModal([&](forms::Form& list) {
            errors = list.weak_from_this();
            desktop.close(list);
        });
        desktop.click(dialog.CmdFmt);
        EXPECT_FALSE(errors.expired());
        EXPECT_EQ(dialog.lineBuffer().maxIndx(), 0);
        desktop.answerNextBox(yes);
        desktop.click(dialog.CmdBack);
    });
    EXPECT_EQ(kept->lineBuffer().maxIndx(), -1);
    EXPECT_TRUE(errors.expired());
}

TEST_F(ClosingTheDialog, WorksWithoutAPage) {
    const auto dialog = std::make_shared<FrmFormatter>(desktop);
    dialog->FmtCodeModule = module->code;
    dialog->show();
    format(*dialog);
    desktop.answerNextBox(yes);
    desktop.click(dialog->CmdClose);
    EXPECT_FALSE(dialog->isLoaded());
}

} // namespace
} // namespace corvelle::formatter::test
