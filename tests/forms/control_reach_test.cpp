#include "forms/recording_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::forms {
namespace {

using testing::ElementsAre;

class ControlReach : public testing::Test {
  protected:
    void SetUp() override {
        form->show();
        form->forget();
    }

    HeadlessDesktop desktop;
    std::shared_ptr<RecordingForm> form = std::make_shared<RecordingForm>(desktop);
};

TEST_F(ControlReach, ADisabledOrInvisibleControlCannotBeClicked) {
    form->check.setEnabled(false);
    EXPECT_FALSE(desktop.click(form->check));
    form->check.setEnabled(true);
    form->check.setVisible(false);
    EXPECT_FALSE(desktop.click(form->check));
    form->check.setVisible(true);
    EXPECT_TRUE(desktop.click(form->check));
}

TEST_F(ControlReach, AFrameTakesItsControlsAlong) {
    EXPECT_TRUE(form->inner.reachable());
    form->frame.setEnabled(false);
    EXPECT_FALSE(form->inner.reachable());
    EXPECT_TRUE(form->inner.enabled()) << "the property is the control's own";
    EXPECT_FALSE(desktop.click(form->inner));
    form->frame.setEnabled(true);
    form->frame.setVisible(false);
    EXPECT_FALSE(form->inner.reachable());
    EXPECT_TRUE(form->inner.visible());
    EXPECT_EQ(form->inner.container(), &form->frame);
}

TEST_F(ControlReach, CodeClicksADisabledControlAllTheSame) {
    form->check.setEnabled(false);
    form->check.setValue(0);
    EXPECT_THAT(form->log, ElementsAre("check Click"));
}

// Mouse

TEST_F(ControlReach, TheMouseIsEveryControls) {
    for (Control* control : form->controls()) {
        form->forget();
        EXPECT_TRUE(desktop.moveMouse(*control));
        EXPECT_THAT(form->log, ElementsAre(control->name() + " MouseMove"));
    }
    form->forget();
    EXPECT_TRUE(desktop.moveMouse(*form));
    EXPECT_THAT(form->log, ElementsAre("Form MouseMove"));
}

TEST_F(ControlReach, OverADisabledControlTheFormGetsTheMouse) {
    form->label.setEnabled(false);
    EXPECT_TRUE(desktop.moveMouse(form->label));
    EXPECT_THAT(form->log, ElementsAre("Form MouseMove"));
}

TEST_F(ControlReach, OverAControlInADisabledFrameTheFormGetsTheMouse) {
    form->frame.setEnabled(false);
    EXPECT_TRUE(desktop.moveMouse(form->inner));
    EXPECT_THAT(form->log, ElementsAre("Form MouseMove"));
}

TEST_F(ControlReach, TheMouseIsNeverOverWhatCannotBeSeen) {
    form->label.setVisible(false);
    EXPECT_FALSE(desktop.moveMouse(form->label));
    form->frame.setVisible(false);
    EXPECT_FALSE(desktop.moveMouse(form->inner));
    form->hide();
    form->forget();
    EXPECT_FALSE(desktop.moveMouse(form->button));
    EXPECT_FALSE(desktop.moveMouse(*form));
    EXPECT_THAT(form->log, ElementsAre());
}

// Focus

TEST_F(ControlReach, TheFirstControlHasTheFocusAtFirst) {
    EXPECT_EQ(form->activeControl(), &form->button);
}

TEST_F(ControlReach, FocusSetBeforeTheFormIsShownIsThereThen) {
    const auto other = std::make_shared<RecordingForm>(desktop, "other");
    other->inLoad = [&] { other->list.setFocus(); };
    other->show();
    EXPECT_EQ(other->activeControl(), &other->list);
}

TEST_F(ControlReach, MovingTheFocusLeavesThenEnters) {
    form->text.setFocus();
    EXPECT_THAT(form->log, ElementsAre("button LostFocus", "text GotFocus"));
    form->text.setFocus();
    EXPECT_EQ(form->log.size(), 2U);
    EXPECT_TRUE(desktop.tabTo(form->list));
    EXPECT_EQ(form->activeControl(), &form->list);
}

TEST_F(ControlReach, LabelsImagesFramesAndSurfacesTakeNoFocus) {
    form->text.setFocus();
    for (Control* control : std::vector<Control*>{&form->label, &form->image, &form->frame, &form->surface}) {
        EXPECT_TRUE(desktop.click(*control)) << control->name();
        EXPECT_FALSE(desktop.tabTo(*control)) << control->name();
        EXPECT_EQ(form->activeControl(), &form->text) << control->name();
        EXPECT_EQ(form->count(control->name() + " Click"), 1) << control->name();
    }
}

TEST_F(ControlReach, ClickingMovesTheFocusFirst) {
    form->text.setFocus();
    form->forget();
    desktop.click(form->button);
    EXPECT_THAT(form->log, ElementsAre("text LostFocus", "button GotFocus", "button Click"));
}

TEST_F(ControlReach, WhatTheFocusLeavesMayPreventTheClick) {
    form->text.setFocus();
    form->text.onLostFocus = [&] { form->button.setEnabled(false); };
    desktop.click(form->button);
    EXPECT_EQ(form->count("button Click"), 0);
}

TEST_F(ControlReach, WhatTheFocusLeavesMayUnloadTheForm) {
    form->text.setFocus();
    form->text.onLostFocus = [&] { form->unload(); };
    desktop.click(form->button);
    EXPECT_EQ(form->count("button Click"), 0);
    EXPECT_FALSE(form->isLoaded());
    EXPECT_EQ(form->count("Load"), 0);
}

TEST_F(ControlReach, AnActivationMayUnloadTheFormThatIsClicked) {
    const auto other = std::make_shared<RecordingForm>(desktop, "other");
    other->show();
    form->inActivate = [&] { form->unload(); };
    form->forget();
    desktop.click(form->check);
    EXPECT_FALSE(form->isLoaded());
    EXPECT_EQ(form->count("Load"), 0);
    EXPECT_EQ(form->count("check Click"), 0);
}

TEST_F(ControlReach, AHandlerMayTakeTheFocusElsewhere) {
    form->text.setFocus();
    form->text.onLostFocus = [&] { form->list.setFocus(); };
    form->forget();
    form->check.setFocus();
    EXPECT_EQ(form->activeControl(), &form->list);
    EXPECT_EQ(form->count("check GotFocus"), 0);
    EXPECT_EQ(form->count("list GotFocus"), 1);
}

TEST_F(ControlReach, AControlOutOfReachTakesNoFocus) {
    form->text.setEnabled(false);
    form->text.setFocus();
    EXPECT_FALSE(desktop.tabTo(form->text));
    EXPECT_EQ(form->activeControl(), &form->button);
}

TEST_F(ControlReach, AControlThatIsDisabledHandsTheFocusOn) {
    form->text.setFocus();
    form->forget();
    form->text.setEnabled(false);
    EXPECT_EQ(form->activeControl(), &form->combo);
    EXPECT_THAT(form->log, ElementsAre("text LostFocus", "combo GotFocus"));
}

TEST_F(ControlReach, TheFocusGoesRoundAndAtLastNowhere) {
    form->tabs.setFocus();
    form->inner.setEnabled(false);
    form->tabs.setVisible(false);
    EXPECT_EQ(form->activeControl(), &form->button);
    for (Control* control : std::vector<Control*>{&form->check, &form->text, &form->combo, &form->list,
                                                  &form->slider, &form->button}) {
        control->setEnabled(false);
    }
    EXPECT_EQ(form->activeControl(), nullptr);
    EXPECT_EQ(form->log.back(), "button LostFocus");
}

// Keyboard

TEST_F(ControlReach, WithoutKeyPreviewTheFormSeesNoKeysOfItsControls) {
    EXPECT_TRUE(desktop.press(*form, keys::F1));
    EXPECT_EQ(form->count("KeyUp 112"), 0);
}

TEST_F(ControlReach, WithKeyPreviewItSeesThem) {
    const auto other = std::make_shared<RecordingForm>(desktop, "other");
    other->designedPreview = true;
    other->show();
    EXPECT_TRUE(desktop.press(*other, keys::F1));
    EXPECT_EQ(other->count("KeyUp 112"), 1);
}

TEST_F(ControlReach, EnterPressesTheFocusedButtonElseTheDefaultOne) {
    form->text.setFocus();
    EXPECT_TRUE(desktop.pressEnter(*form));
    EXPECT_EQ(form->count("button Click"), 1);
    form->inner.setFocus();
    EXPECT_TRUE(desktop.pressEnter(*form));
    EXPECT_EQ(form->count("button Click"), 1);
    EXPECT_EQ(form->count("inner Click"), 1);
    form->text.setFocus();
    form->button.setEnabled(false);
    EXPECT_FALSE(desktop.pressEnter(*form));
}

TEST_F(ControlReach, EscapePressesTheCancelButton) {
    EXPECT_TRUE(desktop.pressEscape(*form));
    EXPECT_EQ(form->count("inner Click"), 1);
    form->frame.setVisible(false);
    EXPECT_FALSE(desktop.pressEscape(*form));
}

TEST_F(ControlReach, ControlsStandInTheOrderOfTheirCreation) {
    EXPECT_THAT(form->controls(), ElementsAre(&form->button, &form->check, &form->text, &form->combo,
                                              &form->list, &form->slider, &form->tabs, &form->label,
                                              &form->image, &form->frame, &form->inner, &form->surface));
}

} // namespace
} // namespace corvelle::forms
