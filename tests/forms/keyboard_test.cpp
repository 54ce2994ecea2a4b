#include "forms/recording_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::forms {
namespace {

using testing::ElementsAre;

class KeyboardRules : public testing::Test {
  protected:
    KeyboardRules() { form->show(), form->forget(); }

    HeadlessDesktop desktop;
    std::shared_ptr<RecordingForm> form = std::make_shared<RecordingForm>(desktop);
};

TEST_F(KeyboardRules, TheFirstControlHasTheFocus) {
    EXPECT_EQ(&form->button, form->activeControl());
}

TEST_F(KeyboardRules, TabGoesRoundInTheOrderOfCreation) {
    for (Control* next : std::vector<Control*>{&form->check, &form->text, &form->combo, &form->list,
                                               &form->slider, &form->tabs, &form->inner, &form->button}) {
        EXPECT_TRUE(desktop.pressTab(*form));
        EXPECT_EQ(next, form->activeControl()) << next->name();
    }
    desktop.pressTab(*form, true);
    EXPECT_EQ(&form->inner, form->activeControl());
    desktop.pressTab(*form, true);
    EXPECT_EQ(&form->tabs, form->activeControl());
}

TEST_F(KeyboardRules, TabPassesWhatCannotBeReached) {
    form->check.setEnabled(false);
    form->text.setVisible(false);
    form->frame.setEnabled(false);
    desktop.pressTab(*form);
    EXPECT_EQ(&form->combo, form->activeControl());
    form->tabs.setFocus();
    desktop.pressTab(*form);
    EXPECT_EQ(&form->button, form->activeControl());
}

TEST_F(KeyboardRules, TabIsAnEventOfBothControls) {
    desktop.pressTab(*form);
    EXPECT_THAT(form->log, ElementsAre("button LostFocus", "check GotFocus"));
}

TEST_F(KeyboardRules, EnterBreaksTheLineInABoxOfSeveral) {
    form->inDesign = [this] { form->text.setMultiLine(true); };
    form->unload();
    form->show();
    form->text.setFocus();
    EXPECT_FALSE(desktop.pressEnter(*form));
    EXPECT_EQ(0, form->count("button Click"));
    form->check.setFocus();
    EXPECT_TRUE(desktop.pressEnter(*form));
    EXPECT_EQ(1, form->count("button Click"));
}

TEST_F(KeyboardRules, AnAcceleratorClicksItsControl) {
    form->text.setFocus();
    EXPECT_TRUE(desktop.pressAccelerator(*form, 'p'));
    EXPECT_EQ(1, form->count("button Click"));
    EXPECT_EQ(&form->button, form->activeControl());
    EXPECT_TRUE(desktop.pressAccelerator(*form, 'P'));
    EXPECT_EQ(2, form->count("button Click"));
    EXPECT_FALSE(desktop.pressAccelerator(*form, 'q'));
    EXPECT_FALSE(desktop.pressAccelerator(*form, '&')); // two of them are a plain one
    EXPECT_FALSE(desktop.pressAccelerator(*form, ' '));
}

TEST_F(KeyboardRules, AnAcceleratorOutOfReachDoesNothing) {
    form->button.setEnabled(false);
    EXPECT_FALSE(desktop.pressAccelerator(*form, 'p'));
    EXPECT_EQ(0, form->count("button Click"));
}

TEST_F(KeyboardRules, ALabelsAcceleratorIsTheNextControls) {
    form->label.setCaption("&Label:");
    EXPECT_TRUE(desktop.pressAccelerator(*form, 'l'));
    EXPECT_EQ(&form->inner, form->activeControl());
    EXPECT_EQ(0, form->count("inner Click"));
    form->label.setUseMnemonic(false);
    EXPECT_FALSE(desktop.pressAccelerator(*form, 'l'));
}

TEST_F(KeyboardRules, AnAcceleratorOfSeveralOnlyMovesTheFocus) {
    form->check.setCaption("&Pick");
    form->inner.setCaption("&Put");
    for (Control* next : std::vector<Control*>{&form->check, &form->inner, &form->button, &form->check}) {
        EXPECT_TRUE(desktop.pressAccelerator(*form, 'p'));
        EXPECT_EQ(next, form->activeControl()) << next->name();
    }
    for (const char* click : {"button Click", "check Click", "inner Click"})
        EXPECT_EQ(0, form->count(click)) << click;
}

TEST_F(KeyboardRules, AFormMayGoAsTheFocusMoves) {
    form->button.onLostFocus = [this] { form->unload(); };
    EXPECT_TRUE(desktop.pressTab(*form));
    EXPECT_FALSE(form->isLoaded());
    form->show();
    form->check.onGotFocus = [this] { form->unload(); };
    form->button.onLostFocus = nullptr;
    form->check.setCaption("&Pick");
    EXPECT_TRUE(desktop.pressAccelerator(*form, 'i') || desktop.pressTab(*form));
    EXPECT_FALSE(form->isLoaded());
    EXPECT_EQ(0, form->count("check Click"));
}

TEST_F(KeyboardRules, AWindowThatTakesNoInputGetsNoKeys) {
    desktop.answerNextBox(1, [this] {
        EXPECT_FALSE(desktop.pressTab(*form));
        EXPECT_FALSE(desktop.pressAccelerator(*form, 'p'));
    });
    desktop.msgBox("Look", 0);
    EXPECT_EQ(&form->button, form->activeControl());
}

} // namespace
} // namespace corvelle::forms
