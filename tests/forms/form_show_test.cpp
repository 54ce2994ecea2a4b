#include "forms/recording_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

namespace corvelle::forms {
namespace {

using testing::ElementsAre;

class FormShow : public testing::Test {
  protected:
    HeadlessDesktop desktop;
    std::shared_ptr<RecordingForm> form = std::make_shared<RecordingForm>(desktop, "first");
    std::shared_ptr<RecordingForm> other = std::make_shared<RecordingForm>(desktop, "second");
};

TEST_F(FormShow, LoadsShowsSizesAndActivatesInThisOrder) {
    form->show();
    EXPECT_TRUE(form->visible());
    EXPECT_EQ(desktop.active(), form.get());
    EXPECT_THAT(form->log, ElementsAre("surface Reset", "design", "surface Resize", "Load", "Resize",
                                       "Activate", "button GotFocus"));
}

TEST_F(FormShow, TheFormIsVisibleWhenItIsActivated) {
    bool visible = false;
    form->inActivate = [&] { visible = form->visible(); };
    form->show();
    EXPECT_TRUE(visible);
}

TEST_F(FormShow, AVisibleFormShownAgainComesToTheFront) {
    form->show();
    other->show();
    EXPECT_THAT(desktop.windows(), ElementsAre(form.get(), other.get()));
    form->forget();
    form->show();
    EXPECT_THAT(desktop.windows(), ElementsAre(other.get(), form.get()));
    EXPECT_THAT(form->log, ElementsAre("Activate"));
}

TEST_F(FormShow, TheActiveFormShownAgainIsNotActivatedAgain) {
    form->show();
    form->show();
    EXPECT_EQ(form->count("Activate"), 1);
    EXPECT_EQ(form->count("Resize"), 1);
}

TEST_F(FormShow, ActivatesEachTimeTheFocusComesBackFromAnotherForm) {
    form->show();
    other->show();
    EXPECT_EQ(form->count("Activate"), 1);
    EXPECT_TRUE(desktop.activate(*form));
    EXPECT_EQ(form->count("Activate"), 2);
    EXPECT_TRUE(desktop.activate(*other));
    EXPECT_TRUE(desktop.click(form->check));
    EXPECT_EQ(form->count("Activate"), 3);
    EXPECT_EQ(other->count("Activate"), 2);
}

TEST_F(FormShow, AMessageBoxThatClosesActivatesNothing) {
    form->show();
    desktop.answerNextBox(answer::ok);
    form->button.onClick = [&] { desktop.msgBox("text", box::okOnly); };
    desktop.click(form->button);
    EXPECT_EQ(desktop.boxes().size(), 1U);
    EXPECT_EQ(form->count("Activate"), 1);
}

TEST_F(FormShow, AFileDialogThatClosesActivatesNothing) {
    form->show();
    desktop.cancelNextFile();
    form->button.onClick = [&] { CommonDialog(desktop).showOpen(); };
    desktop.click(form->button);
    EXPECT_EQ(desktop.fileDialogs().size(), 1U);
    EXPECT_EQ(form->count("Activate"), 1);
}

TEST_F(FormShow, AHiddenFormKeepsItsValuesAndIsSizedOnlyOnce) {
    form->show();
    form->text.setText("kept");
    form->hide();
    EXPECT_TRUE(form->isLoaded());
    EXPECT_FALSE(form->visible());
    EXPECT_TRUE(desktop.windows().empty());
    form->hide();
    form->show();
    EXPECT_EQ(form->text.text(), "kept");
    EXPECT_EQ(form->count("Load"), 1);
    EXPECT_EQ(form->count("Activate"), 2);
    EXPECT_EQ(form->count("Resize"), 1);
}

TEST_F(FormShow, HidingAFormActivatesTheOneBelow) {
    form->show();
    other->show();
    other->hide();
    EXPECT_EQ(desktop.active(), form.get());
    EXPECT_EQ(form->count("Activate"), 2);
}

TEST_F(FormShow, HidingAFormThatIsNotLoadedLoadsIt) {
    form->hide();
    EXPECT_TRUE(form->isLoaded());
    EXPECT_FALSE(form->visible());
}

TEST_F(FormShow, AFormMayBeUnloadedInItsActivate) {
    form->inActivate = [&] { form->unload(); };
    form->show();
    EXPECT_FALSE(form->isLoaded());
    EXPECT_TRUE(desktop.windows().empty());
    EXPECT_EQ(desktop.active(), nullptr);
}

TEST_F(FormShow, AFormMayBeUnloadedOrHiddenInItsFirstResize) {
    form->inResize = [&] { form->unload(); };
    form->show();
    EXPECT_FALSE(form->isLoaded());
    other->inResize = [&] { other->hide(); };
    other->show();
    EXPECT_TRUE(other->isLoaded());
    EXPECT_TRUE(desktop.windows().empty());
    EXPECT_EQ(other->count("Activate"), 0);
}

TEST_F(FormShow, AFormDestroyedWhileVisibleLeavesTheScreen) {
    form->show();
    other->show();
    other.reset();
    EXPECT_THAT(desktop.windows(), ElementsAre(form.get()));
    EXPECT_EQ(desktop.active(), form.get());
}

// Modal windows

TEST_F(FormShow, AModalShowReturnsWhenTheFormIsHidden) {
    bool was = false;
    desktop.inNextModal([&](Form& shown) {
        was = shown.visible();
        shown.hide();
    });
    form->showModal();
    EXPECT_TRUE(was);
    EXPECT_FALSE(form->visible());
    EXPECT_TRUE(form->isLoaded());
    EXPECT_THAT(desktop.modals(), ElementsAre("first"));
}

TEST_F(FormShow, AModalShowReturnsWhenTheFormIsUnloaded) {
    desktop.inNextModal([&](Form& shown) { desktop.close(shown); });
    form->showModal();
    EXPECT_FALSE(form->isLoaded());
    EXPECT_EQ(form->count("Load"), 1);
}

TEST_F(FormShow, AModalShowReturnsWhenAYieldUnloadsTheForm) {
    desktop.inNextModal([](Form&) {});
    desktop.atYield([] {});
    desktop.atYield([&] { form->unload(); });
    form->showModal();
    EXPECT_FALSE(form->isLoaded());
    EXPECT_TRUE(desktop.scriptIsDone());
}

TEST_F(FormShow, AModalShowReturnsWhenTheProgramQuits) {
    other->show();
    desktop.inNextModal([&](Form&) { desktop.quit(); });
    form->showModal();
    EXPECT_TRUE(form->visible());
    EXPECT_TRUE(other->enabled());
}

TEST_F(FormShow, AModalFormDisablesTheOthersAndActivatesThemAfterwards) {
    form->show();
    desktop.inNextModal([&](Form& shown) {
        EXPECT_FALSE(form->enabled());
        EXPECT_TRUE(shown.enabled());
        EXPECT_EQ(desktop.active(), &shown);
        EXPECT_FALSE(desktop.click(form->check));
        EXPECT_FALSE(desktop.close(*form));
        EXPECT_FALSE(desktop.activate(*form));
        shown.unload();
    });
    other->showModal();
    EXPECT_TRUE(form->enabled());
    EXPECT_EQ(desktop.active(), form.get());
    EXPECT_EQ(form->count("Activate"), 2);
}

TEST_F(FormShow, TheOthersAreEnabledBeforeTheModalFormGoes) {
    form->show();
    bool enabled = false;
    form->inActivate = [&] { enabled = form->enabled(); };
    desktop.inNextModal([](Form& shown) { shown.hide(); });
    other->showModal();
    EXPECT_TRUE(enabled);
}

TEST_F(FormShow, AFormHiddenBelowAModalOneTakesInputWhenShownAgain) {
    form->show();
    desktop.inNextModal([&](Form& shown) {
        form->hide();
        shown.unload();
    });
    other->showModal();
    form->show();
    EXPECT_TRUE(form->enabled());
    EXPECT_TRUE(desktop.click(form->check));
}

TEST_F(FormShow, AFormShownUnderAModalOneIsActivatedWhenThatGoes) {
    form->load();
    form->forget();
    desktop.inNextModal([](Form& shown) { shown.unload(); });
    other->inUnload = [&](bool&) {
        form->show();
        EXPECT_TRUE(form->visible());
        EXPECT_EQ(desktop.active(), other.get());
        EXPECT_THAT(form->log, ElementsAre("Resize"));
    };
    other->showModal();
    EXPECT_EQ(desktop.active(), form.get());
    EXPECT_THAT(form->log, ElementsAre("Resize", "Activate", "button GotFocus"));
}

TEST_F(FormShow, AHiddenFormIsDisabledToo) {
    form->load();
    desktop.inNextModal([&](Form& shown) {
        EXPECT_FALSE(form->enabled());
        shown.unload();
    });
    other->showModal();
    EXPECT_TRUE(form->enabled());
}

TEST_F(FormShow, ModalFormsNest) {
    const auto third = std::make_shared<RecordingForm>(desktop, "third");
    form->show();
    desktop.inNextModal([&](Form& second) {
        desktop.inNextModal([&](Form& top) {
            EXPECT_FALSE(second.enabled());
            EXPECT_FALSE(form->enabled());
            top.unload();
        });
        third->showModal();
        EXPECT_TRUE(second.enabled());
        EXPECT_FALSE(form->enabled());
        EXPECT_EQ(desktop.active(), &second);
        second.unload();
    });
    other->showModal();
    EXPECT_TRUE(form->enabled());
    EXPECT_THAT(desktop.modals(), ElementsAre("second", "third"));
}

TEST_F(FormShow, AnErrorInsideAModalLoopEnablesTheOthers) {
    form->show();
    desktop.inNextModal([](Form&) { throw std::runtime_error("out of the loop"); });
    EXPECT_THROW(other->showModal(), std::runtime_error);
    EXPECT_TRUE(form->enabled());
}

TEST_F(FormShow, AModalFormUnloadedInItsActivateIsOver) {
    other->inActivate = [&] { other->unload(); };
    form->show();
    other->showModal();
    EXPECT_FALSE(other->isLoaded());
    EXPECT_TRUE(form->enabled());
}

TEST_F(FormShow, AModalFormLoadedAnewMeanwhileIsNotWaitedFor) {
    desktop.inNextModal([&](Form& shown) {
        shown.unload();
        shown.show();
    });
    form->showModal();
    EXPECT_TRUE(form->visible());
}

TEST_F(FormShow, ABoxKeepsTheUserFromTheWindows) {
    form->show();
    desktop.answerNextBox(answer::ok, [&] {
        EXPECT_FALSE(desktop.click(form->button));
        EXPECT_FALSE(desktop.close(*form));
    });
    desktop.msgBox("text", box::okOnly);
    EXPECT_EQ(form->count("button Click"), 0);
    EXPECT_TRUE(desktop.click(form->button));
}

} // namespace
} // namespace corvelle::forms
