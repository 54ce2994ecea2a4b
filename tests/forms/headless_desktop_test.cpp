#include "forms/headless/headless_desktop.h"
#include "forms/recording_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

namespace corvelle::forms {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class HeadlessDesktopTest : public testing::Test {
  protected:
    void SetUp() override {
        desktop.onUnexpected = [this](const std::string& what) { unexpected.push_back(what); };
    }

    HeadlessDesktop desktop;
    std::vector<std::string> unexpected;
    std::shared_ptr<RecordingForm> form = std::make_shared<RecordingForm>(desktop);
};

TEST(HeadlessDesktopAlone, ThrowsAtWhatIsUnexpected) {
    HeadlessDesktop desktop;
    EXPECT_THROW(desktop.msgBox("text", box::okOnly), std::logic_error);
}

TEST_F(HeadlessDesktopTest, AnUnexpectedBoxIsReportedAndAnsweredCautiously) {
    EXPECT_EQ(desktop.msgBox("text", box::okOnly, "title"), answer::ok);
    EXPECT_EQ(desktop.msgBox("Replace everything?", box::yesNo), answer::no);
    ASSERT_EQ(unexpected.size(), 2U);
    EXPECT_THAT(unexpected[0], HasSubstr("title: text"));
    EXPECT_EQ(desktop.boxes().size(), 2U);
}

TEST_F(HeadlessDesktopTest, AnAnswerThatTheBoxDoesNotOfferIsReported) {
    desktop.answerNextBox(answer::ok);
    EXPECT_EQ(desktop.msgBox("text", box::yesNo), answer::no);
    desktop.answerNextBox(answer::yes);
    EXPECT_EQ(desktop.msgBox("text", box::okOnly), answer::ok);
    desktop.answerNextBox(2);
    EXPECT_EQ(desktop.msgBox("text", box::yesNo), answer::no);
    EXPECT_EQ(unexpected.size(), 3U);
}

TEST_F(HeadlessDesktopTest, BoxesAreAnsweredInOrder) {
    desktop.answerNextBox(answer::yes);
    desktop.answerNextBox(answer::no);
    EXPECT_FALSE(desktop.scriptIsDone());
    EXPECT_EQ(desktop.msgBox("1", box::yesNo), answer::yes);
    EXPECT_EQ(desktop.msgBox("2", box::yesNo), answer::no);
    EXPECT_TRUE(desktop.scriptIsDone());
    EXPECT_TRUE(unexpected.empty());
}

TEST_F(HeadlessDesktopTest, ABoxMayOpenBehindABox) {
    desktop.answerNextBox(answer::yes, [&] {
        desktop.answerNextBox(answer::ok);
        desktop.msgBox("inner", box::okOnly);
    });
    EXPECT_EQ(desktop.msgBox("outer", box::yesNo), answer::yes);
    EXPECT_EQ(desktop.boxes().size(), 2U);
    EXPECT_TRUE(unexpected.empty());
}

TEST_F(HeadlessDesktopTest, AnUnexpectedFileDialogIsReportedAndCancelled) {
    CommonDialog dialog(desktop);
    dialog.dialogTitle = "Open it";
    dialog.fileName = "old";
    dialog.showOpen();
    ASSERT_EQ(unexpected.size(), 1U);
    EXPECT_THAT(unexpected[0], HasSubstr("Open it"));
    EXPECT_EQ(dialog.fileName, "old");
}

TEST_F(HeadlessDesktopTest, AnUnexpectedModalWindowIsReportedAndTakenAway) {
    form->showModal();
    ASSERT_EQ(unexpected.size(), 2U);
    EXPECT_THAT(unexpected[0], HasSubstr("Recording was not expected"));
    EXPECT_THAT(unexpected[1], HasSubstr("Recording was left open"));
    EXPECT_FALSE(form->visible());
}

TEST_F(HeadlessDesktopTest, AModalWindowLeftOpenIsReportedAndHidden) {
    const auto below = std::make_shared<RecordingForm>(desktop, "below");
    below->show();
    desktop.inNextModal([](Form&) {});
    form->showModal();
    EXPECT_EQ(unexpected.size(), 1U);
    EXPECT_FALSE(form->visible());
    EXPECT_TRUE(below->enabled());
}

TEST_F(HeadlessDesktopTest, AWaitWithoutEndIsReportedAndEnded) {
    EXPECT_FALSE(desktop.waitForEvents());
    EXPECT_EQ(unexpected.size(), 1U);
    EXPECT_TRUE(desktop.isQuitting());
}

TEST_F(HeadlessDesktopTest, AYieldWithNothingWaitingIsNothing) {
    desktop.doEvents();
    EXPECT_TRUE(unexpected.empty());
    EXPECT_EQ(desktop.yields(), 1);
}

TEST_F(HeadlessDesktopTest, TheScriptIsDoneWhenEverythingHasHappened) {
    EXPECT_TRUE(desktop.scriptIsDone());
    desktop.cancelNextFile();
    EXPECT_FALSE(desktop.scriptIsDone());
    CommonDialog(desktop).showOpen();
    EXPECT_TRUE(desktop.scriptIsDone());
    desktop.inNextModal([](Form& shown) { shown.unload(); });
    EXPECT_FALSE(desktop.scriptIsDone());
    form->showModal();
    desktop.atYield([] {});
    EXPECT_FALSE(desktop.scriptIsDone());
    desktop.doEvents();
    EXPECT_TRUE(desktop.scriptIsDone());
}

TEST_F(HeadlessDesktopTest, TheUserDoesNothingWithAWindowThatIsNotThere) {
    EXPECT_FALSE(desktop.click(form->button));
    EXPECT_FALSE(desktop.click(*form));
    EXPECT_FALSE(desktop.type(form->text, "x"));
    EXPECT_FALSE(desktop.choose(form->list, 0));
    EXPECT_FALSE(desktop.choose(form->tabs, 1));
    EXPECT_FALSE(desktop.drag(form->slider, 1));
    EXPECT_FALSE(desktop.press(*form, keys::F1));
    EXPECT_FALSE(desktop.pressEnter(*form));
    EXPECT_FALSE(desktop.pressEscape(*form));
    EXPECT_FALSE(desktop.tabTo(form->text));
    EXPECT_FALSE(desktop.moveMouse(form->text));
    EXPECT_FALSE(desktop.moveMouse(*form));
    EXPECT_FALSE(desktop.close(*form));
    EXPECT_FALSE(desktop.activate(*form));
    EXPECT_FALSE(desktop.resize(*form, {1, 1}));
    EXPECT_FALSE(form->isLoaded());
    EXPECT_THAT(form->log, ElementsAre());
}

TEST_F(HeadlessDesktopTest, TheUserSizesAWindowThatCanBeSized) {
    form->show();
    form->forget();
    EXPECT_TRUE(desktop.resize(*form, {4000, 2000}));
    EXPECT_EQ(form->size(), (Size{4000, 2000}));
    EXPECT_THAT(form->log, ElementsAre("Resize"));
    const auto fixed = std::make_shared<RecordingForm>(desktop, "fixed");
    fixed->designedStyle = BorderStyle::FixedDialog;
    fixed->show();
    EXPECT_FALSE(desktop.resize(*fixed, {4000, 2000}));
}

TEST_F(HeadlessDesktopTest, TheUserMakesAWindowNoSmallerThanItsLeastSize) {
    form->designedLeast = {3000, 2500};
    form->show();
    EXPECT_TRUE(desktop.resize(*form, {1000, 5000}));
    EXPECT_EQ(form->size(), (Size{3000, 5000}));
    EXPECT_TRUE(desktop.resize(*form, {5000, 1000}));
    EXPECT_EQ(form->size(), (Size{5000, 2500}));
}

TEST_F(HeadlessDesktopTest, CodeThatSizesAWindowResizesItToo) {
    form->show();
    form->forget();
    form->setSize({4000, 2000});
    form->setSize({4000, 2000});
    EXPECT_THAT(form->log, ElementsAre("Resize"));
}

TEST_F(HeadlessDesktopTest, ClickingAFormBringsItUp) {
    const auto other = std::make_shared<RecordingForm>(desktop, "other");
    form->show();
    other->show();
    EXPECT_TRUE(desktop.click(*form));
    EXPECT_EQ(desktop.active(), form.get());
    EXPECT_EQ(form->count("Form Click"), 1);
    EXPECT_EQ(form->count("Activate"), 2);
}

} // namespace
} // namespace corvelle::forms
