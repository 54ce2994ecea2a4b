#include "base/run_time_error.h"
#include "forms/headless/headless_desktop.h"
#include "forms/tidy_layout.h"
#include "indexer/forms/frm_index_main.h"
#include "ui/frm_abt.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

namespace corvelle::indexer {
namespace {

using testing::ElementsAre;

class FakeManager : public StartMenuOwner {
  public:
    std::vector<bool> told; ///< the values of bOK, in order
    std::function<void()> atTelling;

    void setbOK(bool chosen) override {
        told.push_back(chosen);
        if (atTelling) atTelling();
    }
};

class StartMenu : public testing::Test {
  protected:
    StartMenu() {
        desktop.onUnexpected = [](const std::string& what) { ADD_FAILURE() << what; };
        menu->ThisMgr = manager;
        menu->show();
    }
    ~StartMenu() override { EXPECT_TRUE(desktop.scriptIsDone()); }

    forms::HeadlessDesktop desktop;
    std::shared_ptr<FakeManager> manager = std::make_shared<FakeManager>();
    std::shared_ptr<FrmIndex_Main> menu = std::make_shared<FrmIndex_Main>(desktop);
};

TEST_F(StartMenu, OffersThreeCommandsAndTheAboutBox) {
    EXPECT_EQ(menu->caption(), "Help ID Indexer");
    EXPECT_EQ(menu->icon().name(), "icon102");
    EXPECT_EQ(menu->Label1.caption(), "What you wish to do..?");
    EXPECT_EQ(menu->Command1.caption(), "&Create a New Index");
    EXPECT_EQ(menu->Command2.caption(), "&Add Entry to previously created Index");
    EXPECT_EQ(menu->Command3.caption(), "&Nothing .. Just Exit");
    EXPECT_EQ(menu->CmdAbt.caption(), "&About..?");
    EXPECT_EQ(menu->myMode, 0);
    EXPECT_EQ(menu->activeControl(), &menu->Command1);
}

TEST_F(StartMenu, EachCommandRecordsItsChoiceHidesTheMenuAndTellsOnce) {
    struct Row {
        forms::CommandButton FrmIndex_Main::*command;
        int choice;
    };
    const Row rows[] = {
        {&FrmIndex_Main::Command1, 0}, {&FrmIndex_Main::Command2, 1}, {&FrmIndex_Main::Command3, 2}};
    for (const auto& [command, choice] : rows) {
        menu->show();
        menu->myMode = 7;
        manager->told.clear();
        manager->atTelling = [&, expected = choice] {
            EXPECT_FALSE(menu->visible());
            EXPECT_EQ(menu->myMode, expected);
        };
        ASSERT_TRUE(desktop.click((*menu).*command));
        EXPECT_EQ(menu->myMode, choice);
        EXPECT_THAT(manager->told, ElementsAre(true));
        EXPECT_TRUE(menu->isLoaded());
        EXPECT_FALSE(desktop.click((*menu).*command));
    }
}

TEST_F(StartMenu, SaysNothingWhenTheConnectObjectFailsOrIsGone) {
    manager->atTelling = [] { throw base::RunTimeError(base::ErrorNumber::MemberNotSupported); };
    desktop.click(menu->Command2);
    EXPECT_EQ(menu->myMode, 1);
    manager->atTelling = [] { throw std::bad_alloc(); };
    menu->show();
    desktop.click(menu->Command3);
    manager.reset();
    menu->show();
    desktop.click(menu->Command1);
    EXPECT_FALSE(menu->visible());
    EXPECT_TRUE(desktop.boxes().empty());
}

TEST_F(StartMenu, CommandsAreTheOnlyWayOut) {
    EXPECT_FALSE(desktop.close(*menu));
    EXPECT_FALSE(desktop.pressEscape(*menu));
    EXPECT_TRUE(menu->visible());
    menu->myMode = 7;
    menu->unload(); // by other means
    EXPECT_EQ(menu->myMode, 7);
    EXPECT_TRUE(manager->told.empty());
}

TEST_F(StartMenu, HintsFollowTheMouse) {
    EXPECT_EQ(menu->lblInfo.tag(), "");
    const auto expectHint = [&](const std::string& number, const std::string& text) {
        EXPECT_EQ(menu->lblInfo.tag(), number);
        EXPECT_EQ(menu->lblInfo.caption(), text);
    };
    const std::string plain = "Move the mouse pointer over a button to know what it does..";
    desktop.moveMouse(*menu);
    expectHint("0", plain);
    desktop.moveMouse(menu->Command1);
    expectHint("1",
               "If you have not created a Index for the current project then you must start from here.. You "
               "may re -Index a project which was earlier  Indexed but you have made some changes..");
    desktop.moveMouse(menu->Command2);
    expectHint("2",
               "If you have already indexed the a project and  you have not modified the index files and the "
               "project then you can start from here. you won't need to open that project just the index "
               "files are needed..");
    desktop.moveMouse(menu->Command3);
    expectHint("3", "What else .. Just close the Add-In.");
    desktop.moveMouse(menu->CmdAbt); // has no hint of its own
    desktop.moveMouse(menu->Label1);
    desktop.moveMouse(menu->lblInfo);
    expectHint("3", "What else .. Just close the Add-In.");
    desktop.moveMouse(menu->Shape1); // a decoration is the background
    expectHint("0", plain);
}

TEST_F(StartMenu, AHintIsWrittenOnlyAsTheMouseArrives) {
    for (forms::Control* control :
         {static_cast<forms::Control*>(nullptr), static_cast<forms::Control*>(&menu->Command1),
          static_cast<forms::Control*>(&menu->Command2), static_cast<forms::Control*>(&menu->Command3)}) {
        const auto move = [&] { return control ? desktop.moveMouse(*control) : desktop.moveMouse(*menu); };
        ASSERT_TRUE(move());
        menu->lblInfo.setCaption("not rewritten");
        ASSERT_TRUE(move());
        EXPECT_EQ(menu->lblInfo.caption(), "not rewritten");
    }
}

TEST_F(StartMenu, TheAboutBoxIsModalAndComesBackToTheMenu) {
    desktop.inNextModal([&](forms::Form& form) {
        auto& box = dynamic_cast<ui::frmAbt&>(form);
        EXPECT_EQ(box.Label1[0].caption(), "Help ID Indexer");
        EXPECT_EQ(box.Label1[1].caption(), "Help ID Indexer");
        EXPECT_EQ(box.LblWarn.caption(),
                  " Warning: Author can not be held responsible for any code loss. Keep "
                  "backups ready. Program under beta testing.");
        EXPECT_EQ(box.LblWarn.backColor(), 0x800080U);
        EXPECT_EQ(box.LblWarn.foreColor(), 0xFFFFFFU);
        EXPECT_TRUE(box.LblWarn.visible());
        EXPECT_EQ(box.Img.picture().name(), "icon102");
        EXPECT_FALSE(desktop.click(menu->Command1));
        desktop.click(box);
    });
    ASSERT_TRUE(desktop.click(menu->CmdAbt));
    EXPECT_TRUE(menu->visible());
    EXPECT_TRUE(menu->enabled());
    EXPECT_TRUE(manager->told.empty());
    EXPECT_TRUE(desktop.click(menu->Command1));
}

TEST_F(StartMenu, ControlsKeepClearOfEachOtherAndTheHintsHaveRoom) {
    corvelle::test::expectTidy(*menu);
    for (forms::CommandButton* command : {&menu->Command1, &menu->Command2, &menu->Command3}) {
        corvelle::test::expectRoomFor(command->caption(), *command);
        desktop.moveMouse(*command);
        corvelle::test::expectRoomFor(menu->lblInfo.caption(), menu->lblInfo);
    }
}

} // namespace
} // namespace corvelle::indexer
