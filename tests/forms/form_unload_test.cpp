#include "base/run_time_error.h"
#include "forms/recording_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

namespace corvelle::forms {
namespace {

using testing::ElementsAre;

class FormUnload : public testing::Test {
  protected:
    void SetUp() override {
        form->show();
        form->forget();
    }

    HeadlessDesktop desktop;
    std::shared_ptr<RecordingForm> form = std::make_shared<RecordingForm>(desktop);
};

TEST_F(FormUnload, AsksThenUnloadsThenTheWindowIsGone) {
    EXPECT_TRUE(form->unload());
    EXPECT_THAT(form->log, ElementsAre("QueryUnload by code", "Unload", "surface Reset"));
    EXPECT_FALSE(form->isLoaded());
    EXPECT_FALSE(form->visible());
    EXPECT_EQ(form->peer(), nullptr);
    EXPECT_TRUE(desktop.windows().empty());
}

TEST_F(FormUnload, TheCloseBoxIsToldFromCode) {
    EXPECT_TRUE(desktop.close(*form));
    EXPECT_EQ(form->log.front(), "QueryUnload by close box");
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(FormUnload, QueryUnloadMayCancel) {
    form->inQueryUnload = [](bool& cancel) { cancel = true; };
    EXPECT_FALSE(form->unload());
    EXPECT_THAT(form->log, ElementsAre("QueryUnload by code"));
    EXPECT_TRUE(form->visible());
    EXPECT_TRUE(desktop.click(form->button));
}

TEST_F(FormUnload, UnloadMayCancel) {
    form->inUnload = [](bool& cancel) { cancel = true; };
    EXPECT_FALSE(form->unload());
    EXPECT_THAT(form->log, ElementsAre("QueryUnload by code", "Unload"));
    EXPECT_TRUE(form->visible());
    form->inUnload = nullptr;
    EXPECT_TRUE(form->unload());
}

TEST_F(FormUnload, AnErrorWhileItIsAskedIsShownAndCancels) {
    form->inUnload = [](bool&) { throw base::RunTimeError(base::ErrorNumber::TypeMismatch); };
    desktop.answerNextBox(answer::ok);
    EXPECT_FALSE(form->unload());
    EXPECT_EQ(desktop.boxes().back().text, "Type mismatch");
    EXPECT_TRUE(form->visible());
    form->inUnload = nullptr;
    EXPECT_TRUE(form->unload());
}

TEST_F(FormUnload, AFormThatIsNotLoadedIsLeftAlone) {
    form->unload();
    form->forget();
    EXPECT_TRUE(form->unload());
    EXPECT_THAT(form->log, ElementsAre());
}

TEST_F(FormUnload, InsideTheSameFormsUnloadDoesNothing) {
    form->inQueryUnload = [&](bool&) { EXPECT_TRUE(form->unload()); };
    form->inUnload = [&](bool&) { EXPECT_TRUE(form->unload()); };
    EXPECT_TRUE(form->unload());
    EXPECT_EQ(form->count("QueryUnload by code"), 1);
    EXPECT_EQ(form->count("Unload"), 1);
}

TEST_F(FormUnload, TheControlsAreStillThereInUnload) {
    form->text.setText("last");
    std::string seen;
    form->inUnload = [&](bool&) { seen = form->text.text(); };
    form->unload();
    EXPECT_EQ(seen, "last");
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(FormUnload, ValuesAreGoneAfterwards) {
    form->setCaption("other");
    form->setMousePointer(MousePointer::Hourglass);
    form->setIcon(Picture("icon"));
    form->setSize({100, 100});
    form->check.setValue(0);
    form->text.setText("other");
    form->text.setLocked(true);
    form->combo.clear();
    form->list.addItem("d");
    form->slider.setValue(7);
    form->tabs.select(1);
    form->image.setPicture(Picture("picture"));
    form->label.setCaption("other");
    form->label.setTransparent(true);
    form->button.setEnabled(false);
    form->button.setVisible(false);
    form->button.setTag("tag");
    form->button.setHelpContextID(7);
    form->button.setFont({"Courier New", 20, true});
    form->text.setBackColor(1);
    form->publicVariable = 9;
    form->unload();

    EXPECT_EQ(form->publicVariable, 9);
    EXPECT_FALSE(form->isLoaded());
    EXPECT_EQ(form->caption(), "As designed");
    EXPECT_EQ(form->mousePointer(), MousePointer::Default);
    EXPECT_TRUE(form->icon().empty());
    EXPECT_EQ(form->size(), (Size{3000, 1500}));
    EXPECT_EQ(form->check.value(), 1);
    EXPECT_EQ(form->text.text(), "designed text");
    EXPECT_FALSE(form->text.locked());
    EXPECT_EQ(form->combo.listCount(), 3);
    EXPECT_EQ(form->combo.listIndex(), 1);
    EXPECT_EQ(form->list.listCount(), 3);
    EXPECT_EQ(form->slider.value(), 40);
    EXPECT_EQ(form->tabs.selected(), 2);
    EXPECT_TRUE(form->image.picture().empty());
    EXPECT_EQ(form->label.caption(), "");
    EXPECT_FALSE(form->label.transparent());
    EXPECT_TRUE(form->button.enabled());
    EXPECT_TRUE(form->button.visible());
    EXPECT_EQ(form->button.tag(), "");
    EXPECT_EQ(form->button.helpContextID(), 0);
    EXPECT_EQ(form->button.font(), Font());
    EXPECT_EQ(form->text.backColor(), colours::windowBackground);
    EXPECT_EQ(form->button.backColor(), colours::buttonFace);
    EXPECT_FALSE(form->visible());
}

TEST_F(FormUnload, EveryControlIsAsDesignedAfterwards) {
    for (Control* control : form->controls()) {
        control->setEnabled(false);
        control->setVisible(false);
        control->setTag("tag");
        control->setWhatsThisHelpID(7);
        control->setForeColor(1);
    }
    form->unload();
    const auto other = std::make_shared<RecordingForm>(desktop);
    for (std::size_t i = 0; i < form->controls().size(); ++i) {
        const Control& control = *form->controls()[i];
        EXPECT_TRUE(control.enabled()) << control.name();
        EXPECT_TRUE(control.visible()) << control.name();
        EXPECT_EQ(control.tag(), "") << control.name();
        EXPECT_EQ(control.whatsThisHelpID(), 0) << control.name();
        EXPECT_EQ(control.foreColor(), other->controls()[i]->foreColor()) << control.name();
    }
}

TEST_F(FormUnload, ItLoadsAfreshWhenUsedAgain) {
    form->unload();
    form->forget();
    form->show();
    EXPECT_EQ(form->count("Load"), 1);
    EXPECT_EQ(form->count("Activate"), 1);
    EXPECT_TRUE(form->visible());
}

TEST_F(FormUnload, TheObjectLivesOnlyAsLongAsSomebodyHoldsIt) {
    const std::weak_ptr<RecordingForm> life = form;
    RecordingForm& object = *form;
    form->inUnload = [&](bool&) {
        form.reset();
        object.publicVariable = 1; // the unload holds it
    };
    object.unload();
    EXPECT_TRUE(life.expired());
}

TEST_F(FormUnload, AHandlerOfAControlMayUnloadAndLetGo) {
    const std::weak_ptr<RecordingForm> life = form;
    bool ended = false;
    form->button.onClick = [&ended, this] {
        form->unload();
        form.reset();
        ended = true;
    };
    desktop.click(form->button);
    EXPECT_TRUE(ended);
    EXPECT_TRUE(life.expired());
}

TEST_F(FormUnload, TheNextFormIsActivatedWhileTheOneThatGoesIsUnloading) {
    const auto below = std::make_shared<RecordingForm>(desktop, "below");
    below->show();
    desktop.activate(*form);
    // What the other form does with the one that goes has no effect, and does no harm.
    below->inActivate = [&] {
        EXPECT_FALSE(form->visible());
        form->label.setCaption("late");
        form->show();
        form->showModal();
        EXPECT_TRUE(form->unload());
    };
    form->unload();
    EXPECT_EQ(below->count("Activate"), 2);
    EXPECT_FALSE(form->isLoaded());
    EXPECT_EQ(form->count("Load"), 0);
    EXPECT_THAT(desktop.windows(), ElementsAre(below.get()));
    EXPECT_EQ(form->label.caption(), "");
}

TEST_F(FormUnload, WhatTheNextFormDoesIsReportedWhileTheWindowIsStillThere) {
    const auto below = std::make_shared<RecordingForm>(desktop, "below");
    below->show();
    desktop.activate(*form);
    below->inActivate = [&] { desktop.msgBox("unexpected", box::okOnly); };
    EXPECT_THROW(form->unload(), std::logic_error);
    EXPECT_FALSE(form->visible());
}

TEST_F(FormUnload, NoEventReachesAFormThatIsGone) {
    form->unload();
    form->forget();
    form->userClicked();
    form->userMovedMouse();
    form->userReleasedKey(keys::F1);
    form->userResized({1, 1});
    form->userActivated();
    form->userClosed();
    form->button.userClicked();
    form->button.userMovedMouse();
    form->button.userFocused();
    EXPECT_THAT(form->log, ElementsAre());
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(FormUnload, AShowInsideTheUnloadThatIsCancelledBringsTheFormToTheFront) {
    const auto other = std::make_shared<RecordingForm>(desktop, "other");
    other->show();
    form->inQueryUnload = [&](bool& cancel) {
        form->show();
        cancel = true;
    };
    form->unload();
    EXPECT_EQ(desktop.windows().back(), form.get());
}

TEST_F(FormUnload, AWindowWithoutCloseBoxIsNotClosedByTheUser) {
    const auto fixed = std::make_shared<RecordingForm>(desktop, "fixed");
    fixed->designedStyle = BorderStyle::FixedWithoutCloseBox;
    fixed->show();
    EXPECT_FALSE(desktop.close(*fixed));
    EXPECT_TRUE(fixed->visible());
}

} // namespace
} // namespace corvelle::forms
