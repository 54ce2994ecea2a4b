#include "base/run_time_error.h"
#include "ide/workspace/menus.h"

#include <gtest/gtest.h>

namespace corvelle::workspace {
namespace {

using base::RunTimeError;

struct MenusTest : testing::Test {
    Menus menus;
    MenuEvents events;
    int clicks = 0;

    std::shared_ptr<ide::CommandBarControl> addCommand() {
        return menus.Item("Add-Ins")->Controls()->Add(ide::CommandBarControlType::Button);
    }
    std::shared_ptr<ide::CommandBarEvents>
    countClicks(const std::shared_ptr<ide::CommandBarControl>& command) {
        auto source = events.CommandBarEvents(command);
        source->setClick([this](ide::CommandBarControl&, bool&, bool&) { ++clicks; });
        return source;
    }
};

TEST_F(MenusTest, AddsCommandsAtTheEnd) {
    addCommand()->setCaption("One");
    addCommand()->setCaption("Two");
    ASSERT_EQ(menus.addIns().commands().size(), 2U);
    EXPECT_EQ(menus.addIns().commands()[0]->caption(), "One");
    EXPECT_EQ(menus.addIns().commands()[1]->caption(), "Two");
}

TEST_F(MenusTest, InsertsACommandBeforeAnother) {
    addCommand()->setCaption("Last");
    menus.addIns().insert(0)->setCaption("First");
    EXPECT_EQ(menus.addIns().commands()[0]->caption(), "First");
    EXPECT_EQ(menus.addIns().commands()[0]->menu().get(), &menus.addIns());
    menus.addIns().commands()[0]->Delete();
    EXPECT_EQ(menus.addIns().commands()[0]->caption(), "Last");
}

TEST_F(MenusTest, FindsItsOnlyMenuInAnyCase) {
    EXPECT_EQ(menus.Item("add-ins"), menus.Item("Add-Ins"));
    EXPECT_THROW(menus.Item("File"), RunTimeError);
}

TEST_F(MenusTest, TellsAClickToWhoeverListens) {
    const auto command = addCommand();
    const auto first = countClicks(command);
    const auto second = countClicks(command);
    menus.addIns().commands()[0]->Execute();
    EXPECT_EQ(clicks, 2);
}

TEST_F(MenusTest, HandsTheCommandAndTwoFalseAnswersOver) {
    const auto command = addCommand();
    const auto source = events.CommandBarEvents(command);
    bool called = false;
    source->setClick([&](ide::CommandBarControl& control, bool& handled, bool& cancelDefault) {
        called = &control == command.get() && !handled && !cancelDefault;
        handled = cancelDefault = true;
    });
    menus.addIns().commands()[0]->Execute();
    EXPECT_TRUE(called);
}

TEST_F(MenusTest, TellsNothingToASourceThatWasLetGoOrHasNoHandler) {
    const auto command = addCommand();
    countClicks(command);
    const auto silent = countClicks(command);
    silent->setClick({});
    countClicks(command);
    menus.addIns().commands()[0]->Execute();
    EXPECT_EQ(clicks, 0);
}

TEST_F(MenusTest, TellsAClickOnTheRightCommand) {
    addCommand();
    const auto second = addCommand();
    const auto source = countClicks(second);
    menus.addIns().commands()[0]->Execute();
    EXPECT_EQ(clicks, 0);
}

TEST_F(MenusTest, LetsAHandlerDeleteItsCommandAndItsSource) {
    auto command = addCommand();
    auto source = events.CommandBarEvents(command);
    source->setClick([&](ide::CommandBarControl&, bool&, bool&) {
        command->Delete();
        command.reset();
        source.reset();
        ++clicks;
    });
    menus.addIns().commands()[0]->Execute();
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(menus.addIns().commands().empty());
}

TEST_F(MenusTest, DeletesACommandOnce) {
    const auto first = addCommand();
    const auto second = addCommand();
    first->Delete();
    ASSERT_EQ(menus.addIns().commands().size(), 1U);
    EXPECT_EQ(menus.addIns().commands()[0], second);
    EXPECT_THROW(first->Delete(), RunTimeError);
}

TEST_F(MenusTest, RefusesACommandOfAnotherIde) {
    EXPECT_THROW(events.CommandBarEvents(nullptr), RunTimeError);
}

} // namespace
} // namespace corvelle::workspace
