#include "forms/recording_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::forms {
namespace {

using testing::ElementsAre;

class Yielding : public testing::Test {
  protected:
    HeadlessDesktop desktop;
    std::shared_ptr<RecordingForm> form = std::make_shared<RecordingForm>(desktop);
};

TEST_F(Yielding, AnythingCanRunInsideAYield) {
    form->show();
    form->button.onClick = [&] {
        form->log.emplace_back("begins");
        desktop.doEvents();
        form->log.emplace_back("ends");
    };
    desktop.atYield([&] { desktop.click(form->check); });
    form->forget();
    desktop.click(form->button);
    EXPECT_THAT(form->log,
                ElementsAre("begins", "button LostFocus", "check GotFocus", "check Click", "ends"));
    EXPECT_EQ(desktop.yields(), 1);
}

TEST_F(Yielding, TheSameButtonCanBePressedInsideItsOwnHandler) {
    form->show();
    int depth = 0, deepest = 0;
    form->button.onClick = [&] {
        deepest = std::max(deepest, ++depth);
        desktop.doEvents();
        --depth;
    };
    desktop.atYield([&] { desktop.click(form->button); });
    desktop.click(form->button);
    EXPECT_EQ(deepest, 2);
    EXPECT_EQ(desktop.yields(), 2);
}

TEST_F(Yielding, AWindowCanBeClosedInsideItsHandler) {
    form->show();
    bool loaded = true;
    form->button.onClick = [&] {
        desktop.doEvents();
        loaded = form->isLoaded();
    };
    desktop.atYield([&] { desktop.close(*form); });
    desktop.click(form->button);
    EXPECT_FALSE(loaded);
}

TEST_F(Yielding, ALaterYieldServesWhatWaitsForIt) {
    std::vector<int> when;
    desktop.atYield([&] { when.push_back(desktop.yields()); }, 2);
    desktop.atYield([&] { when.push_back(desktop.yields()); });
    for (int i = 0; i < 5; ++i) desktop.doEvents();
    EXPECT_THAT(when, ElementsAre(3, 4));
    EXPECT_EQ(desktop.yields(), 5);
    EXPECT_TRUE(desktop.scriptIsDone());
}

TEST_F(Yielding, AWaitLoopEndsWithWhatItWaitsFor) {
    bool done = false;
    desktop.atYield([] {}, 3);
    desktop.atYield([&] { done = true; });
    while (!done && desktop.waitForEvents()) {
    }
    EXPECT_TRUE(done);
    EXPECT_FALSE(desktop.isQuitting());
}

TEST_F(Yielding, QuittingEndsAWaitLoop) {
    desktop.atYield([&] { desktop.quit(); });
    int turns = 0;
    while (desktop.waitForEvents()) ++turns;
    EXPECT_EQ(turns, 0);
    EXPECT_TRUE(desktop.isQuitting());
    EXPECT_FALSE(desktop.waitForEvents()) << "and every later one";
}

TEST_F(Yielding, QuittingEndsEveryModalLoop) {
    const auto top = std::make_shared<RecordingForm>(desktop, "top");
    desktop.inNextModal([&](Form&) {
        desktop.inNextModal([](Form&) {});
        desktop.atYield([&] { desktop.quit(); });
        top->showModal();
    });
    form->showModal();
    EXPECT_TRUE(desktop.scriptIsDone());
    EXPECT_THAT(desktop.modals(), ElementsAre("Recording", "top"));
}

TEST_F(Yielding, AfterAQuitAModalLoopDoesNotBegin) {
    desktop.quit();
    bool ran = false;
    desktop.inNextModal([&](Form&) { ran = true; });
    form->showModal();
    EXPECT_FALSE(ran);
}

} // namespace
} // namespace corvelle::forms
