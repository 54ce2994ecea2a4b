#include "indexer/forms/text_editor_session.h"

#include <gmock/gmock.h>

// The editing that the editor for an existing index and the wizard's third stage have in common.
namespace corvelle::indexer::test {
namespace {

using forms::answer::no;
using forms::answer::yes;
using testing::ElementsAre;
using testing::IsEmpty;

class TextEntryEditing : public testing::Test, protected TextEditorSession {
  protected:
    TextEntryEditing() { showOpened(); }
    const std::string& textOf(std::size_t entry) const { return form().index().entries[entry].HelpText; }
};

TEST_F(TextEntryEditing, ShowsTheControlThatIsChosen) {
    auto& window = form();
    choose(0, 1);
    EXPECT_EQ(display(), " The name.|Delete|Default");
    EXPECT_EQ(window.LblType.caption(), "TextBox");
    EXPECT_EQ(window.LblID.caption(), "IDH_AAAC");
    choose(0, 2);
    EXPECT_EQ(display(), "disabled:  Nothing is known.|Delete");
    EXPECT_EQ(window.LblType.caption(), "Label");
    EXPECT_EQ(window.LblID.caption(), "IDH_AAAA");
    choose(2, 0);
    EXPECT_EQ(display(), " Saves.|Delete|Default");
    EXPECT_EQ(window.LblID.caption(), "IDH_AAAD");
}

TEST_F(TextEntryEditing, KeepsATextWhenAnotherControlIsChosen) {
    choose(0, 1);
    type("typed");
    choose(0, 0);
    EXPECT_EQ(display(), " Closes the window.|Delete|Default");
    choose(0, 1);
    EXPECT_EQ(display(), "typed|Delete|Default");
}

TEST_F(TextEntryEditing, PutsATextIntoTheFirstControlWhenAnotherDesignerIsChosen) {
    choose(0, 1);
    type("typed for the second");
    desktop.choose(form().cboDsr, 2);
    EXPECT_EQ(textOf(1), "typed for the second");
    EXPECT_EQ(textOf(2), " The name.");
    desktop.choose(form().cboDsr, 0);
    EXPECT_EQ(display(), "typed for the second|Delete|Default");
    EXPECT_EQ(textOf(4), " Saves.");
}

TEST_F(TextEntryEditing, LeavesTheDisplayAsItWasForADesignerWithoutControls) {
    choose(0, 1);
    desktop.choose(form().cboDsr, 1);
    EXPECT_THAT(form().CboCtl.items(), IsEmpty());
    EXPECT_EQ(display(), " The name.|Delete|Default");
    EXPECT_EQ(form().LblID.caption(), "IDH_AAAC");
    // No control is chosen: nothing is asked and nothing done.
    click(form().CmdDel);
    click(form().CmdDef);
    EXPECT_THAT(desktop.boxes(), IsEmpty());
    for (const std::size_t entry : {1U, 2U, 4U}) EXPECT_NE(form().index().entries[entry].IDHName, "IDH_AAAA");
    desktop.choose(form().cboDsr, 2);
    EXPECT_EQ(display(), " Saves.|Delete|Default");
}

TEST_F(TextEntryEditing, StoresTextsThatCannotBeEditedWhereTheyDoNoHarm) {
    choose(0, 2);
    choose(0, 0);
    EXPECT_EQ(textOf(3), " Nothing is known.");
    answer(yes);
    click(form().CmdDel);
    choose(0, 1);
    EXPECT_EQ(textOf(1), "This control is deleted from Index..");
    EXPECT_EQ(textOf(0), " Nothing is known.");
    save();
    EXPECT_EQ(folder.read("a.txt"),
              ".topic  IDH_AAAA\r\n Nothing is known.\r\n.topic  IDH_AAAC\r\n The name.\r\n"
              ".topic  IDH_AAAD\r\n Saves.\r\n");
}

// Kept as it has always been: the display of a control without a text of its own counts as a text too.
TEST_F(TextEntryEditing, PutsWhatItShowsForAControlWithoutATextIntoTheFirstControl) {
    choose(0, 2); // on the default text
    desktop.choose(form().cboDsr, 2);
    EXPECT_EQ(textOf(1), " Nothing is known.");
    answer(yes);
    click(form().CmdDel);
    desktop.choose(form().cboDsr, 0);
    choose(0, 1);
    click(form().CmdDel);
    desktop.choose(form().cboDsr, 2);
    EXPECT_EQ(textOf(1), "This control is deleted from Index..");
    EXPECT_TRUE(form().saved());
    save();
    EXPECT_THAT(folder.read("a.txt"),
                testing::HasSubstr(".topic  IDH_AAAB\r\nThis control is deleted from Index..\r\n"));
}

TEST_F(TextEntryEditing, PutsAControlOnTheDefaultTextAndTakesItOut) {
    answer(yes);
    click(form().CmdDef);
    EXPECT_EQ(display(), "disabled:  Nothing is known.|Delete");
    EXPECT_EQ(form().LblID.caption(), "IDH_AAAA");
    click(form().CmdDel);
    EXPECT_EQ(display(), "disabled: This control is deleted from Index..|Default");
    EXPECT_EQ(form().LblID.caption(), "");
    EXPECT_EQ(form().LblType.caption(), "CommandButton");
    EXPECT_FALSE(click(form().CmdDel));
    click(form().CmdDef);
    EXPECT_EQ(display(), "disabled:  Nothing is known.|Delete");
    EXPECT_FALSE(click(form().CmdDef));
}

TEST_F(TextEntryEditing, LeavesTheEntryAloneWithoutAYes) {
    for (auto* command : {&form().CmdDel, &form().CmdDef}) {
        answer(no);
        click(*command);
        EXPECT_EQ(display(), " Closes the window.|Delete|Default");
    }
    EXPECT_EQ(desktop.boxes().size(), 2U); // a refusal is asked again
}

TEST_F(TextEntryEditing, AsksOnceWhileTheWindowIsLoaded) {
    answer(yes);
    click(form().CmdDel);
    choose(0, 1);
    click(form().CmdDef);
    choose(2, 0);
    click(form().CmdDel);
    EXPECT_EQ(desktop.boxes().size(), 1U);
    click(form().CmdClose);
    showOpened();
    answer(no);
    click(form().CmdDel);
    EXPECT_EQ(desktop.boxes().size(), 2U);
}

TEST(ArrowKeysOnly, ClearsOtherKeys) {
    for (std::int16_t key = 0; key < 256; ++key) {
        auto changed = key;
        ArrowKeysOnly(changed);
        EXPECT_EQ(changed, key >= 37 && key <= 40 ? key : 0);
    }
}

} // namespace
} // namespace corvelle::indexer::test
