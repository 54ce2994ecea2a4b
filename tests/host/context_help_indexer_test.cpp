#include "host/connected.h"
#include "host/context_help_indexer.h"
#include "host/poor_desktop.h"
#include "indexer/forms/frm_index_main.h"
#include "indexer/forms/frm_indexer.h"
#include "indexer/forms/frm_txt.h"
#include "ui/frm_abt.h"

#include <functional>
#include <gmock/gmock.h>

namespace corvelle::host::test {
namespace {

using indexer::FrmIndex_Main;
using indexer::FrmIndexer;
using indexer::FrmTxt;
using testing::ElementsAre;
using testing::IsEmpty;

class IndexerAddIn : public testing::Test, public Connected {
  protected:
    IndexerAddIn() { addIn = std::make_shared<ContextHelpIndexer>(desktop); }

    ContextHelpIndexer& indexer() const { return static_cast<ContextHelpIndexer&>(*addIn); }
    FrmIndex_Main& menu() const { return window<FrmIndex_Main>(); }

    /// What happens next in the wait for the start menu.
    void next(std::function<void()> action) { desktop.atYield(std::move(action)); }
    /// The start menu's command that is chosen next: 1 to 3.
    void chooseNext(int command) {
        next([this, command] {
            forms::CommandButton* const commands[] = {&menu().Command1, &menu().Command2, &menu().Command3};
            EXPECT_TRUE(desktop.click(*commands[command - 1]));
        });
    }
    void clickAndChoose(int command) {
        chooseNext(command);
        EXPECT_TRUE(clickCommand());
    }
};

TEST_F(IndexerAddIn, WaitsForTheStartMenu) {
    connect();
    next([&] {
        EXPECT_THAT(windows(), ElementsAre("FrmIndex_Main"));
        EXPECT_FALSE(indexer().bOK());
        EXPECT_FALSE(addIn->IsLoaded());
    });
    next([&] { desktop.moveMouse(menu().Command2); });
    clickAndChoose(3);
    EXPECT_TRUE(indexer().bOK());
    EXPECT_EQ(desktop.yields(), 3);
}

TEST_F(IndexerAddIn, TheWaitEndsWithTheFlagWhoeverSetsIt) {
    connect();
    std::weak_ptr<forms::Form> first;
    next([&] {
        first = menu().weak_from_this();
        indexer().setbOK(true);
    });
    EXPECT_TRUE(clickCommand());
    EXPECT_TRUE(first.expired());
    EXPECT_THAT(windows(), ElementsAre("FrmIndexer")); // the choice that stands there from the start
}

TEST_F(IndexerAddIn, TheFirstCommandOpensTheWizard) {
    connect();
    clickAndChoose(1);
    EXPECT_THAT(windows(), ElementsAre("FrmIndexer"));
    EXPECT_EQ(window<FrmIndexer>().ThisMgr.lock().get(), &indexer());
    EXPECT_GT(ide->calls->count("VBE.ActiveVBProject"), 0); // of this IDE
    EXPECT_TRUE(addIn->IsLoaded());
    disconnect();
    EXPECT_THAT(windows(), IsEmpty());
    EXPECT_EQ(autoShow(), "1");
}

TEST_F(IndexerAddIn, TheSecondCommandOpensTheEditor) {
    connect();
    clickAndChoose(2);
    EXPECT_THAT(windows(), ElementsAre("FrmTxt"));
    EXPECT_TRUE(addIn->IsLoaded());
    addIn->Hide(); // which does not touch it
    EXPECT_THAT(windows(), ElementsAre("FrmTxt"));
    EXPECT_FALSE(addIn->IsLoaded());
}

TEST_F(IndexerAddIn, TheEditorsEndCountsAsHide) {
    connect();
    clickAndChoose(2);
    EXPECT_TRUE(desktop.click(window<FrmTxt>().CmdClose));
    EXPECT_THAT(windows(), IsEmpty());
    EXPECT_FALSE(addIn->IsLoaded());
    disconnect();
    EXPECT_EQ(autoShow(), "0");
}

TEST_F(IndexerAddIn, NothingHidesAnExistingWizard) {
    connect();
    clickAndChoose(1);
    const std::weak_ptr<forms::Form> wizard = window<FrmIndexer>().weak_from_this();
    clickAndChoose(3);
    EXPECT_THAT(windows(), IsEmpty());
    EXPECT_FALSE(addIn->IsLoaded());
    EXPECT_TRUE(wizard.expired());
}

TEST_F(IndexerAddIn, AnExistingWizardIsShownAgain) {
    connect();
    clickAndChoose(1);
    const FrmIndexer* const first = &window<FrmIndexer>();
    clickAndChoose(1);
    EXPECT_THAT(windows(), ElementsAre("FrmIndexer"));
    EXPECT_EQ(&window<FrmIndexer>(), first);
}

TEST_F(IndexerAddIn, EveryUseHasAStartMenuOfItsOwn) {
    connect();
    clickAndChoose(3);
    next([&] {
        EXPECT_EQ(menu().myMode, 0);
        EXPECT_FALSE(indexer().bOK());
    });
    clickAndChoose(3);
}

TEST_F(IndexerAddIn, AnExternalConnectionAsksAtOnceAndAddsNoCommand) {
    chooseNext(1);
    connect(connect_mode::External);
    EXPECT_THAT(windows(), ElementsAre("FrmIndexer"));
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_THAT(ide->sources, IsEmpty());
}

TEST_F(IndexerAddIn, AClickWhileTheStartMenuWaitsBringsItToTheFront) {
    connect();
    next([&] {
        const FrmIndex_Main* const first = &menu();
        const int yields = desktop.yields();
        EXPECT_TRUE(clickCommand());
        EXPECT_EQ(desktop.yields(), yields); // no second wait inside the first
        EXPECT_THAT(windows(), ElementsAre("FrmIndex_Main"));
        EXPECT_EQ(&menu(), first);
        EXPECT_EQ(desktop.active(), first);
    });
    clickAndChoose(1);
    EXPECT_THAT(windows(), ElementsAre("FrmIndexer"));
}

TEST_F(IndexerAddIn, AClickBehindTheChoiceDoesNotBringTheStartMenuBack) {
    connect();
    next([&] {
        desktop.click(menu().Command1);
        EXPECT_TRUE(clickCommand());
        EXPECT_THAT(windows(), IsEmpty());
    });
    clickCommand();
    EXPECT_THAT(windows(), ElementsAre("FrmIndexer"));
}

TEST_F(IndexerAddIn, AStartMenuClosedByOtherMeansKeepsTheWaitAndComesBackWithAClick) {
    connect();
    next([&] {
        menu().unload();
        EXPECT_FALSE(indexer().bOK());
    });
    next([&] {
        EXPECT_THAT(windows(), IsEmpty());
        clickCommand();
    });
    clickAndChoose(3);
    EXPECT_TRUE(indexer().bOK());
}

TEST_F(IndexerAddIn, HideDuringTheWaitDoesNotEndIt) {
    connect();
    next([&] {
        addIn->Hide();
        EXPECT_THAT(windows(), ElementsAre("FrmIndex_Main"));
    });
    clickAndChoose(1);
    EXPECT_THAT(windows(), ElementsAre("FrmIndexer"));
}

TEST_F(IndexerAddIn, TheAboutBoxIsModalOverTheStartMenu) {
    connect();
    desktop.inNextModal([&](forms::Form& box) {
        EXPECT_FALSE(desktop.click(menu().Command1));
        desktop.click(box);
    });
    next([&] { desktop.click(menu().CmdAbt); });
    next([&] { EXPECT_THAT(windows(), ElementsAre("FrmIndex_Main")); });
    clickAndChoose(3);
}

TEST_F(IndexerAddIn, DisconnectionDuringTheWaitShowsNothing) {
    connect();
    const std::weak_ptr<AddIn> object = addIn;
    next([&] {
        disconnect();
        addIn.reset();
        EXPECT_FALSE(object.expired());
        EXPECT_THAT(windows(), IsEmpty());
    });
    clickCommand();
    EXPECT_TRUE(object.expired());
    EXPECT_THAT(windows(), IsEmpty());
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(autoShow(), "0");
}

TEST_F(IndexerAddIn, DisconnectionBehindTheChoiceShowsNothing) {
    connect();
    next([&] {
        desktop.click(menu().Command1);
        disconnect();
    });
    clickCommand();
    EXPECT_THAT(windows(), IsEmpty());
    EXPECT_FALSE(addIn->IsLoaded());
}

TEST_F(IndexerAddIn, DisconnectionBehindTheAboutBoxTakesTheStartMenuAwayAtOnce) {
    connect();
    desktop.inNextModal([&](forms::Form& box) {
        disconnect();
        EXPECT_THAT(windows(), ElementsAre("frmAbt"));
        desktop.click(box);
    });
    next([&] { desktop.click(menu().CmdAbt); });
    clickCommand();
    EXPECT_THAT(windows(), IsEmpty());
}

TEST_F(IndexerAddIn, ADisconnectionAndANewConnectionDuringTheWaitStartAnew) {
    connect();
    next([&] {
        disconnect();
        connect();
        clickAndChoose(1); // waits inside
    });
    clickCommand();
    EXPECT_THAT(windows(), ElementsAre("FrmIndexer"));
    EXPECT_TRUE(addIn->IsLoaded());
}

TEST_F(IndexerAddIn, TheProgramsEndDuringTheWaitShowsNothing) {
    connect();
    next([&] { desktop.quit(); });
    clickCommand();
    EXPECT_THAT(windows(), IsEmpty());
    EXPECT_FALSE(addIn->IsLoaded());
}

TEST_F(IndexerAddIn, TheProgramsEndBehindTheChoiceShowsNothing) {
    connect();
    next([&] {
        desktop.click(menu().Command1);
        desktop.quit();
    });
    clickCommand();
    EXPECT_THAT(windows(), IsEmpty());
    EXPECT_FALSE(addIn->IsLoaded());
}

TEST_F(IndexerAddIn, DisconnectionBehindTheWizardsFirstMessageLeavesNothing) {
    desktop.map().values.clear();
    connect();
    desktop.answerNextBox(7, [&] { disconnect(); }); // locate the exclusion list?
    clickAndChoose(1);
    EXPECT_THAT(windows(), IsEmpty());
    EXPECT_FALSE(addIn->IsLoaded());
}

TEST_F(IndexerAddIn, WhatCannotBeShownIsSkipped) {
    struct Row {
        const char* impossible;
        int command; // 0: there is nothing to choose from
        bool loaded;
    };
    for (const Row& row : {Row{"FrmIndex_Main", 0, false}, {"FrmIndexer", 1, true}, {"FrmTxt", 2, true}}) {
        PoorDesktop poor;
        poor.map() = desktop.map();
        poor.impossible = row.impossible;
        addIn = std::make_shared<ContextHelpIndexer>(poor);
        connect();
        if (row.command != 0) {
            poor.atYield([&] {
                auto& menu = dynamic_cast<FrmIndex_Main&>(*poor.windows().back());
                EXPECT_TRUE(poor.click(row.command == 1 ? menu.Command1 : menu.Command2));
            });
        }
        EXPECT_TRUE(clickCommand());
        EXPECT_THAT(poor.windows(), IsEmpty()) << row.impossible;
        EXPECT_TRUE(poor.boxes().empty()) << row.impossible;
        EXPECT_EQ(addIn->IsLoaded(), row.loaded) << row.impossible;
        disconnect();
        addIn.reset();
    }
}

TEST_F(IndexerAddIn, AWizardClosedByItsCloseBoxCountsAsHidden) {
    connect();
    clickAndChoose(1);
    EXPECT_TRUE(desktop.close(window<FrmIndexer>()));
    EXPECT_FALSE(addIn->IsLoaded());
    disconnect();
    EXPECT_EQ(autoShow(), "0");
}

TEST_F(IndexerAddIn, TheEditorsEndTakesAnOpenWizardAlong) {
    connect();
    clickAndChoose(1);
    clickAndChoose(2);
    EXPECT_THAT(windows(), ElementsAre("FrmIndexer", "FrmTxt"));
    EXPECT_TRUE(desktop.click(window<FrmTxt>().CmdClose));
    EXPECT_THAT(windows(), IsEmpty());
    EXPECT_FALSE(addIn->IsLoaded());
}

TEST_F(IndexerAddIn, HideWithNothingIsFine) {
    addIn->setIsLoaded(true);
    addIn->Hide();
    EXPECT_FALSE(addIn->IsLoaded());
}

} // namespace
} // namespace corvelle::host::test
