#include "workbench/add_ins.h"
#include "workbench/resource.h"

#include <gtest/gtest.h>
#include <string>

namespace corvelle::workbench::tests {

namespace {

struct AddInMenuTest : testing::Test {
    AddInMenuTest() { AppendMenuA(popup, MF_STRING, IDM_ADD_INS, "&Add-In Manager..."); }
    ~AddInMenuTest() override { DestroyMenu(popup); }

    std::shared_ptr<workspace::MenuCommand> add(const std::string& caption) {
        auto command = model->insert(model->commands().size());
        command->setCaption(caption);
        return command;
    }
    std::vector<std::string> shown() {
        menu.update();
        std::vector<std::string> captions;
        for (int i = 0; i < GetMenuItemCount(popup); ++i) {
            char text[64] = {};
            GetMenuStringA(popup, static_cast<UINT>(i), text, sizeof text, MF_BYPOSITION);
            captions.emplace_back(text);
        }
        return captions;
    }

    HMENU popup = CreatePopupMenu();
    std::shared_ptr<workspace::Menu> model = std::make_shared<workspace::Menu>("Add-Ins");
    AddInMenu menu{popup, *model};
    using Captions = std::vector<std::string>;
};

TEST_F(AddInMenuTest, FollowsTheModel) {
    EXPECT_EQ((Captions{"&Add-In Manager..."}), shown());
    const auto first = add("First");
    const auto second = add("Second");
    EXPECT_EQ((Captions{"&Add-In Manager...", "", "First", "Second"}), shown());
    second->setCaption("&Other");
    first->setVisible(false);
    EXPECT_EQ((Captions{"&Add-In Manager...", "", "&Other"}), shown());
    second->Delete();
    EXPECT_EQ((Captions{"&Add-In Manager..."}), shown());
}

TEST_F(AddInMenuTest, ClicksTheCommandThatIsShown) {
    const auto first = add("First");
    const auto second = add("Second");
    workspace::MenuEvents events;
    int clicks = 0;
    const auto clicked = events.CommandBarEvents(second);
    clicked->setClick([&](ide::CommandBarControl&, bool&, bool&) {
        ++clicks;
        second->Delete(); // a handler may take its own command away
    });
    menu.update();
    EXPECT_TRUE(menu.run(IDM_FIRST_COMMAND));
    EXPECT_EQ(0, clicks);
    EXPECT_TRUE(menu.run(IDM_FIRST_COMMAND + 1));
    EXPECT_EQ(1, clicks);
    EXPECT_FALSE(menu.run(IDM_FIRST_COMMAND + 2));
    EXPECT_FALSE(menu.run(IDM_OPEN));
}

TEST_F(AddInMenuTest, GreysWhatIsDisabled) {
    add("First")->setEnabled(false);
    menu.update();
    EXPECT_NE(0U, GetMenuState(popup, IDM_FIRST_COMMAND, MF_BYCOMMAND) & MF_GRAYED);
}

} // namespace

} // namespace corvelle::workbench::tests
