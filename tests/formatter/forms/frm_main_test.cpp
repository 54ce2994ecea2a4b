#include "formatter/forms/wizard.h"
#include "forms/tidy_layout.h"
#include "ui/frm_abt.h"

#include <gmock/gmock.h>

namespace corvelle::formatter::test {
namespace {

using forms::answer::no;
using forms::answer::ok;
using forms::answer::yes;

const char* const activateBox = "Corvelle|64|Activate a code module before activating this form.";

using SelectionPage = Wizard;

TEST_F(SelectionPage, IntroducesItself) {
    showPage();
    EXPECT_EQ(page().caption(), "Trellis [Stockroom]");
    EXPECT_EQ(page().icon().name(), "formatter");
    EXPECT_EQ(page().Image1.picture().name(), "page");
    EXPECT_EQ(page().CmdNext.caption(), "&Next   >>");
    EXPECT_EQ(page().cmdCancel.caption(), "&Cancel");
    EXPECT_EQ(page().CmdAbt.caption(), "&About ..?");
    EXPECT_EQ(page().cmdRef.caption(), "&Refresh");
    EXPECT_EQ(page().Text1.helpContextID(), 1000);
    EXPECT_EQ(
        page().lblIntro.caption(),
        "     This wizard will help you in compacting and beautifying your code module. You need to be "
        "carefull while using this  wizard. You must save a backup copy of the  code with the help of this "
        "wizard first so that you never suffer any code loss. This program is not 100% guaranteed. You may "
        "cancel this wizard now.");
}

TEST_F(SelectionPage, KnowsTheHelpFileOnceLoaded) {
    desktop.settings().save("Trellis", "Configurations", "Help File", "D:\\F.chm");
    EXPECT_EQ(desktop.application.helpFile, "");
    showPage();
    EXPECT_EQ(desktop.application.helpFile, "D:\\F.chm");
}

TEST_F(SelectionPage, HasADefaultHelpFile) {
    showPage();
    EXPECT_EQ(desktop.application.helpFile, "Formatter Help.chm");
}

TEST_F(SelectionPage, ShowsTheActiveModule) {
    showPage();
    EXPECT_EQ(page().Text1.text(), " Account");
    EXPECT_TRUE(page().CmdNext.enabled());
    EXPECT_FALSE(desktop.type(page().Text1, "Other"));
}

TEST_F(SelectionPage, FollowsTheIdeWhenClickedRefreshedOrActivated) {
    showPage();
    const auto expectAfter = [&](const std::string& name, const std::function<void()>& action) {
        ide->activate(ide->project->add(name, ide::ComponentType::ClassModule));
        action();
        EXPECT_EQ(page().Text1.text(), " " + name);
    };
    expectAfter("Clicked", [&] { desktop.click(page()); });
    expectAfter("Refreshed", [&] { desktop.click(page().cmdRef); });
    expectAfter("Activated", [&] {
        const auto other = std::make_shared<FrmError>(desktop);
        other->show();
        desktop.activate(page());
    });
    ide->project->name = "Renamed";
    desktop.click(page().cmdRef);
    EXPECT_EQ(page().caption(), "Trellis [Renamed]");
}

TEST_F(SelectionPage, CannotProceedWithoutACodeWindow) {
    ide->activate(nullptr);
    desktop.answerNextBox(ok);
    showPage();
    EXPECT_EQ(lastBox(), activateBox);
    EXPECT_EQ(page().caption(), "Trellis [Stockroom]"); // the title is renewed all the same
    EXPECT_FALSE(page().CmdNext.enabled());
    EXPECT_FALSE(desktop.click(page().CmdNext));
    EXPECT_EQ(desktop.boxes().size(), 1U); // closing the box activates nothing

    ide->activate(module);
    desktop.click(page());
    EXPECT_TRUE(page().CmdNext.enabled());
    const std::weak_ptr<ide::CodePane> closed = ide->pane;
    ide->activate(nullptr);
    ide->project->name = "Renamed";
    desktop.answerNextBox(ok);
    desktop.click(page().cmdRef);
    EXPECT_EQ(page().caption(), "Trellis [Renamed]");
    EXPECT_FALSE(page().CmdNext.enabled());
    EXPECT_EQ(page().Text1.text(), "");
    EXPECT_TRUE(closed.expired()); // the page has let go of it, and of its module
    EXPECT_EQ(module->code.use_count(), 1);

    ide->activate(module);
    module->dirty = true;
    desktop.answerNextBox(ok, [&] { EXPECT_FALSE(page().CmdNext.enabled()); });
    desktop.click(page().cmdRef);
    EXPECT_TRUE(page().CmdNext.enabled()); // the warning is only that
}

TEST_F(SelectionPage, CannotProceedWithoutAProjectOrAnIde) {
    ide->project.reset();
    desktop.answerNextBox(ok);
    showPage();
    EXPECT_EQ(lastBox(), activateBox);
    EXPECT_FALSE(page().CmdNext.enabled());
    page().VBInstance.reset();
    desktop.answerNextBox(ok);
    desktop.click(page().cmdRef);
    EXPECT_EQ(lastBox(), activateBox);
}

TEST_F(SelectionPage, CannotProceedWhereTheIdeFails) {
    showPage();
    for (const char* member :
         {"VBE.ActiveVBProject", "VBProject.Name", "VBE.ActiveCodePane", "CodePane.CodeModule",
          "CodeModule.Parent", "VBComponent.Name", "VBComponent.IsDirty"}) {
        SCOPED_TRACE(member);
        const auto before = desktop.boxes().size();
        calls.fail(member, 1, disaster);
        desktop.answerNextBox(ok);
        desktop.click(page().cmdRef);
        EXPECT_EQ(desktop.boxes().size(), before + 1);
        EXPECT_EQ(lastBox(), activateBox);
        EXPECT_FALSE(page().CmdNext.enabled());
        EXPECT_EQ(ide->pane.use_count(), 1); // the page has let go of it
        desktop.click(page().cmdRef);        // the IDE is well again
        EXPECT_TRUE(page().CmdNext.enabled());
        EXPECT_EQ(page().Text1.text(), " Account");
    }
}

TEST_F(SelectionPage, WarnsOfUnsavedChanges) {
    module->dirty = true;
    desktop.answerNextBox(ok, [&] { EXPECT_EQ(page().Text1.text(), " Account"); });
    showPage();
    EXPECT_EQ(lastBox(),
              "Save Module first..|64|Before running this Add-In it is advicable that you save the "
              "Module:'Account./This will avoid you from code loss in case of a failure formatting.");
    EXPECT_TRUE(page().CmdNext.enabled());
    desktop.answerNextBox(ok);
    desktop.click(page()); // and again, until the module is saved or formatted
    module->dirty = false;
    desktop.click(page());
    EXPECT_EQ(desktop.boxes().size(), 2U);
}

TEST_F(SelectionPage, DoesNotWarnOfTheModuleThatWasJustFormatted) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        desktop.click(dialog.CmdAdd);
        module->dirty = true;
    });
    desktop.click(page());
    EXPECT_TRUE(desktop.boxes().empty());
}

// On to the dialog

TEST_F(SelectionPage, HandsTheModuleOver) {
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_EQ(dialog.FmtCodeModule, module->code);
        EXPECT_EQ(dialog.FmtCodePane, ide->pane);
        EXPECT_EQ(dialog.BackDir, "");
        EXPECT_EQ(dialog.FrmCalled.lock(), manager->page);
        EXPECT_EQ(dialog.icon(), page().icon());
        EXPECT_FALSE(page().visible());
        EXPECT_TRUE(page().isLoaded());
    });
    EXPECT_TRUE(page().visible());
    EXPECT_EQ(desktop.modals(), (Lines{"FrmFormatter"}));
}

TEST_F(SelectionPage, WarnsAgainWhenTheDialogWasLeftBeforeAPassHadEnded) {
    inDialog([](FrmFormatter&) {}); // Back at once
    inDialog([&](FrmFormatter& dialog) {
        desktop.atYield([&] { dialog.DisableProc(); }, 15);
        desktop.click(dialog.CmdFmt);
        EXPECT_EQ(status(dialog), " Status: Formatting was aborted by user..");
    });
    EXPECT_TRUE(desktop.boxes().empty()); // no question about repetition
    module->dirty = true;
    desktop.answerNextBox(ok);
    desktop.click(page());
    EXPECT_THAT(lastBox(), testing::StartsWith("Save Module first..|64|"));
}

TEST_F(SelectionPage, CountsAPassWithErrorsAsFormatted) {
    code() = {"End Sub"};
    inDialog([&](FrmFormatter& dialog) {
        desktop.inNextModal([&](forms::Form& list) { desktop.close(list); });
        desktop.click(dialog.CmdFmt);
        leaveAnyway(dialog);
    });
    const auto before = desktop.boxes().size();
    module->dirty = true;
    desktop.click(page());
    EXPECT_EQ(desktop.boxes().size(), before);
}

TEST_F(SelectionPage, AsksBeforeFormattingTheSameModuleAgain) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        desktop.click(dialog.CmdAdd);
    });
    desktop.answerNextBox(no);
    EXPECT_TRUE(desktop.click(page().CmdNext));
    EXPECT_EQ(lastBox(),
              "Repeate formatting ..?|52|Please confirm that you wish to format /Module: Account which "
              "was just formatted");
    EXPECT_TRUE(page().visible());
    EXPECT_EQ(page().formatter(), nullptr);
    desktop.answerNextBox(yes);
    inDialog([](FrmFormatter&) {});
    EXPECT_EQ(desktop.modals().size(), 2U);
}

TEST_F(SelectionPage, AsksMoreWhenTheModuleWasNotSavedAfterFormatting) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        desktop.click(dialog.CmdAdd);
        module->dirty = true;
    });
    desktop.answerNextBox(no);
    desktop.click(page().CmdNext);
    EXPECT_EQ(lastBox(),
              "Repeate formatting ..?|52|Please confirm that you wish to format /Module: Account which "
              "was just formatted/Also you have not saved the module after  formatting. /It is not a "
              "good idea to proceed at these circumstances.");
}

TEST_F(SelectionPage, AsksNothingBeforeFormattingAnotherModule) {
    const auto formatAndAdd = [&](FrmFormatter& dialog) {
        format(dialog);
        desktop.click(dialog.CmdAdd);
    };
    inDialog(formatAndAdd);
    openModule("Other", sample());
    inDialog(formatAndAdd);
    ide->activate(ide->project->components[0]);
    desktop.click(page());
    inDialog([](FrmFormatter&) {}); // only the last one counts
    EXPECT_TRUE(desktop.boxes().empty());
}

TEST_F(SelectionPage, TellsWhyItCannotAskAboutARepetition) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        leaveAnyway(dialog);
    });
    calls.fail("VBComponent.IsDirty", 1, disaster);
    desktop.answerNextBox(ok);
    desktop.click(page().CmdNext);
    EXPECT_EQ(lastBox(), "Corvelle|0|" + disaster.description());
    EXPECT_EQ(desktop.modals().size(), 1U);
    desktop.answerNextBox(yes); // the question itself
    inDialog([](FrmFormatter&) {});
    EXPECT_EQ(desktop.modals().size(), 2U);
}

TEST_F(SelectionPage, ComesBackWhenTheDialogCannotBeOpened) {
    showPage();
    desktop.impossible = "FrmFormatter";
    desktop.answerNextBox(ok);
    desktop.click(page().CmdNext);
    EXPECT_EQ(lastBox(), "Corvelle|0|Out of memory");
    EXPECT_TRUE(page().visible());
    EXPECT_EQ(page().formatter(), nullptr);
    desktop.impossible.clear();
    inDialog([](FrmFormatter&) {});
    EXPECT_EQ(desktop.modals(), (Lines{"FrmFormatter"}));
}

TEST_F(SelectionPage, OnePressOfNextOpensOneDialog) {
    inDialog([&](FrmFormatter&) {
        page().show(); // the menu command again
        page().CmdNext.userClicked();
        EXPECT_EQ(desktop.modals().size(), 1U);
    });
}

// About, closing

TEST_F(SelectionPage, ShowsTheAboutBox) {
    showPage();
    desktop.inNextModal([&](forms::Form& form) {
        auto& box = dynamic_cast<ui::frmAbt&>(form);
        EXPECT_EQ(box.Label1[0].caption(), "Trellis");
        EXPECT_EQ(box.Label1[1].caption(), "Trellis");
        EXPECT_EQ(box.Label2.caption(), "Version 1.0.7");
        EXPECT_EQ(box.LblWarn.caption(), " Warning: Author can not be held responsible for any code loss."
                                         " Keep backups ready. Program under beta testing.");
        EXPECT_EQ(box.LblWarn.backColor(), 0x800080U);
        EXPECT_EQ(box.LblWarn.foreColor(), 0xFFFFFFU);
        EXPECT_TRUE(box.LblWarn.visible());
        EXPECT_EQ(box.Img.picture().name(), "page");
        desktop.click(box);
    });
    EXPECT_TRUE(desktop.click(page().CmdAbt));
    EXPECT_EQ(desktop.modals(), (Lines{"frmAbt"}));
}

TEST_F(SelectionPage, CancelHidesTheAddIn) {
    showPage();
    const std::weak_ptr<frmMain> shown = manager->page;
    EXPECT_TRUE(desktop.click(page().cmdCancel));
    EXPECT_GE(manager->hides, 1);
    EXPECT_TRUE(shown.expired());
    EXPECT_TRUE(desktop.windows().empty());
}

TEST_F(SelectionPage, TheCloseBoxAndEscapeHideTheAddIn) {
    showPage();
    EXPECT_TRUE(desktop.close(page()));
    EXPECT_GE(manager->hides, 1);
    EXPECT_EQ(manager->page, nullptr);
    showPage();
    EXPECT_TRUE(desktop.pressEscape(page()));
    EXPECT_EQ(manager->page, nullptr);
}

TEST_F(SelectionPage, CloseNotifyHidesTheAddInWithoutADialogToo) {
    showPage();
    page().CloseNotify();
    EXPECT_GE(manager->hides, 1);
    EXPECT_EQ(manager->page, nullptr);
}

TEST_F(SelectionPage, ClosesWithoutAConnectObject) {
    showPage();
    const auto shown = std::exchange(manager->page, nullptr);
    manager.reset();
    desktop.click(shown->cmdCancel);
    EXPECT_FALSE(shown->isLoaded());
    shown->show();
    desktop.close(*shown);
    EXPECT_FALSE(shown->isLoaded());
    manager = std::make_shared<FakeManager>();
}

TEST_F(SelectionPage, ComesBackFreshAfterItWasClosed) {
    showPage();
    const auto shown = manager->page;
    desktop.click(page().cmdCancel);
    manager->page = shown;
    inDialog([](FrmFormatter&) {});
    EXPECT_TRUE(page().visible());
}

// Layout

TEST_F(SelectionPage, ControlsKeepClearOfEachOther) {
    showPage();
    corvelle::test::expectTidy(page());
    corvelle::test::expectRoomFor(page().lblIntro.caption(), page().lblIntro);
}

} // namespace
} // namespace corvelle::formatter::test
