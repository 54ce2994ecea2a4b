#include "base/paths.h"
#include "base/temporary_folder.h"
#include "formatter/forms/wizard.h"
#include "ui/frm_abt.h"

// The add-in is disconnected, or the program quits, while a box or a window of the wizard waits for the user.
namespace corvelle::formatter::test {
namespace {

using forms::answer::no;
using forms::answer::ok;
using forms::answer::yes;

class Interrupted : public Wizard {
  protected:
    ~Interrupted() override {
        EXPECT_EQ(manager->page, nullptr);
        EXPECT_TRUE(desktop.windows().empty()); // nothing has come back
        if (gone) {
            EXPECT_FALSE(gone->isLoaded());
        }
        EXPECT_TRUE(code() == sample() || code() == formattedSample());
    }

    /// Answers the next box after the add-in has been disconnected behind it.
    void disconnectBehindBox(int answer) {
        desktop.answerNextBox(answer, [this] {
            gone = manager->page;
            manager->disconnect();
        });
    }
    /// Opens the dialog and holds it for the test.
    void open(const DialogAction& action) {
        showPage();
        desktop.inNextModal([this, action](forms::Form& form) {
            dialog = std::static_pointer_cast<FrmFormatter>(form.shared_from_this());
            action(*dialog);
        });
        desktop.click(page().CmdNext);
        EXPECT_FALSE(dialog->isLoaded());
    }

    std::shared_ptr<FrmFormatter> dialog;
    std::shared_ptr<frmMain> gone; ///< the page that was disconnected behind a box
};

TEST_F(Interrupted, ByADisconnectionThePageGoes) {
    showPage();
    manager->disconnect();
    EXPECT_GE(manager->hides, 1);
}

TEST_F(Interrupted, BehindTheWarningOfThePage) {
    module->dirty = true;
    disconnectBehindBox(ok);
    showPage();
}

TEST_F(Interrupted, BehindTheBoxThatNoModuleIsActive) {
    ide->activate(nullptr);
    disconnectBehindBox(ok);
    showPage();
}

TEST_F(Interrupted, BehindTheQuestionBeforeARepetition) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        desktop.click(dialog.CmdAdd);
    });
    disconnectBehindBox(yes);
    desktop.click(page().CmdNext);
    EXPECT_EQ(desktop.modals().size(), 1U); // no dialog for a page that is gone
}

TEST_F(Interrupted, UnderTheAboutBox) {
    showPage();
    desktop.inNextModal([&](forms::Form& box) {
        manager->disconnect();
        desktop.click(box);
    });
    desktop.click(page().CmdAbt);
}

TEST_F(Interrupted, ByADisconnectionTheDialogGoesAlong) {
    open([&](FrmFormatter& dialog) {
        manager->disconnect();
        EXPECT_FALSE(dialog.isLoaded());
    });
    EXPECT_FALSE(manager->flashed);
}

TEST_F(Interrupted, TheDialogAsksBeforeItGoesAlong) {
    open([&](FrmFormatter& dialog) {
        format(dialog);
        desktop.answerNextBox(yes);
        manager->disconnect();
        EXPECT_FALSE(dialog.isLoaded());
    });
}

TEST_F(Interrupted, TheDialogCanFinishItsWorkWithoutThePage) {
    open([&](FrmFormatter& dialog) {
        format(dialog);
        desktop.answerNextBox(no);
        manager->disconnect();
        EXPECT_TRUE(dialog.visible());
        EXPECT_TRUE(desktop.click(dialog.CmdAdd));
        EXPECT_EQ(code(), formattedSample());
        EXPECT_TRUE(desktop.click(dialog.CmdClose));
    });
}

TEST_F(Interrupted, TheDialogLeftOverClosesNoPageButItsOwn) {
    std::shared_ptr<frmMain> next;
    open([&](FrmFormatter& dialog) {
        format(dialog);
        desktop.answerNextBox(no);
        manager->disconnect();
        showPage(); // connected again
        next = manager->page;
        desktop.answerNextBox(yes);
        desktop.click(dialog.CmdClose);
        EXPECT_FALSE(dialog.isLoaded());
        EXPECT_EQ(manager->page, next);
        manager->page.reset();
    });
    EXPECT_TRUE(next->visible());
    next->unload();
}

TEST_F(Interrupted, BehindTheQuestionWhetherToExit) {
    for (const int answer : {no, yes}) {
        open([&](FrmFormatter& dialog) {
            format(dialog);
            disconnectBehindBox(answer);
            desktop.click(dialog.CmdClose);
            EXPECT_EQ(dialog.visible(), answer == no);
            if (answer == no) leaveAnyway(dialog);
        });
    }
}

TEST_F(Interrupted, BehindTheErrorOfAPass) {
    open([&](FrmFormatter& dialog) {
        calls.fail("CodeModule.Lines", 3, disaster);
        disconnectBehindBox(ok);
        desktop.click(dialog.CmdFmt);
        EXPECT_FALSE(dialog.isLoaded());
    });
}

TEST_F(Interrupted, BehindTheErrorOfAWriteBack) {
    open([&](FrmFormatter& dialog) {
        format(dialog);
        calls.fail("CodeModule.InsertLines", 3, disaster);
        disconnectBehindBox(ok);
        desktop.answerNextBox(yes); // the formatted code has not been added
        desktop.click(dialog.CmdAdd);
        EXPECT_FALSE(dialog.isLoaded());
    });
    EXPECT_EQ(code(), sample());
}

TEST_F(Interrupted, BehindTheQuestionForTheHelpFile) {
    open([&](FrmFormatter& dialog) {
        disconnectBehindBox(yes);
        desktop.chooseNextFile("C:\\F.chm");
        desktop.click(dialog.CmdHelp);
        EXPECT_FALSE(dialog.isLoaded());
    });
    EXPECT_TRUE(desktop.helps().empty());
}

TEST_F(Interrupted, BehindTheFileDialog) {
    const corvelle::test::TemporaryFolder folder;
    const auto path = folder.path() / "Account_bak.bas";
    open([&](FrmFormatter& dialog) {
        desktop.inFileDialog = [&] { manager->disconnect(); };
        desktop.chooseNextFile(base::textOf(path));
        desktop.click(dialog.CmdFile);
        EXPECT_FALSE(dialog.isLoaded());
    });
    // The user said where to save; the backup is made before the window goes.
    EXPECT_EQ(folder.read("Account_bak.bas"), asFile(sample()));
}

class InterruptedErrorList : public Interrupted {
  protected:
    InterruptedErrorList() { code() = {"End Sub", "x = 1"}; }
    ~InterruptedErrorList() override { code() = sample(); }
};

TEST_F(InterruptedErrorList, ADisconnectionTakesItAlong) {
    open([&](FrmFormatter& dialog) {
        desktop.inNextModal([&](forms::Form& list) {
            desktop.answerNextBox(yes);
            manager->disconnect();
            EXPECT_FALSE(list.isLoaded());
        });
        desktop.click(dialog.CmdFmt);
        EXPECT_FALSE(dialog.isLoaded());
    });
}

TEST_F(InterruptedErrorList, IsNotShownWhenTheUserExitsAfterThePass) {
    open([&](FrmFormatter& dialog) {
        desktop.answerNextBox(yes);
        desktop.atYield([&] { desktop.click(dialog.CmdClose); }, 5); // the indicator's last stop
        desktop.click(dialog.CmdFmt);
        EXPECT_FALSE(dialog.isLoaded());
    });
    EXPECT_EQ(desktop.modals(), (Lines{"FrmFormatter"}));
}

TEST_F(InterruptedErrorList, IsShownWhenTheUserStaysAfterThePass) {
    open([&](FrmFormatter& dialog) {
        desktop.answerNextBox(no);
        desktop.atYield([&] { desktop.click(dialog.CmdClose); }, 5);
        desktop.inNextModal([&](forms::Form& list) { desktop.close(list); });
        desktop.click(dialog.CmdFmt);
        desktop.answerNextBox(yes);
        desktop.click(dialog.CmdClose);
    });
    EXPECT_EQ(desktop.modals(), (Lines{"FrmFormatter", "FrmError"}));
}

TEST_F(InterruptedErrorList, IsNotShownWhenTheProgramQuits) {
    open([&](FrmFormatter& dialog) {
        desktop.atYield([&] { desktop.quit(); }, 5);
        desktop.click(dialog.CmdFmt);
    });
    EXPECT_EQ(desktop.modals(), (Lines{"FrmFormatter"}));
    manager->disconnect();
}

TEST_F(Interrupted, AQuitClosesTheDialogWithoutAQuestion) {
    open([&](FrmFormatter& dialog) {
        format(dialog);
        desktop.quit();
    });
    EXPECT_FALSE(page().visible());
    manager->disconnect();
}

} // namespace
} // namespace corvelle::formatter::test
