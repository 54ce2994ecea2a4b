#include "forms/window_state.h"

#include <gtest/gtest.h>

namespace corvelle::forms {
namespace {

class WindowStates : public testing::Test {
  protected:
    void show(bool takesInput = true) {
        state.show(false);
        state.activating(takesInput);
        if (takesInput) state.activated();
    }

    WindowState state;
};

TEST_F(WindowStates, TellHowItIsShown) {
    EXPECT_FALSE(state.wasShown());
    state.show(true);
    EXPECT_TRUE(state.isModal());
    EXPECT_FALSE(state.isModeless());
    state.hide();
    EXPECT_FALSE(state.isModal());
    EXPECT_TRUE(state.wasShown());
    state.show(false);
    EXPECT_TRUE(state.isModeless());
}

TEST_F(WindowStates, ShowingTellsTheFormItself) {
    state.show(false);
    state.activating(true);
    EXPECT_TRUE(state.isShowing());
    EXPECT_FALSE(state.came(true));
    state.activated();
    EXPECT_FALSE(state.isShowing());
}

TEST_F(WindowStates, ComingBackFromAnotherWindowIsAnEvent) {
    show();
    state.left(true);
    EXPECT_TRUE(state.came(false)); // through another program in between
    EXPECT_FALSE(state.came(false));
    EXPECT_TRUE(state.came(true));
}

TEST_F(WindowStates, ComingBackFromABoxOrAnotherProgramIsNone) {
    show();
    state.left(false);
    EXPECT_FALSE(state.came(false));
}

TEST_F(WindowStates, AWindowShownBelowAModalOneHasTheFocusDue) {
    show(false);
    EXPECT_TRUE(state.focusIsDue());
    state.left(true);
    EXPECT_TRUE(state.focusIsDue());
    EXPECT_TRUE(state.came(false));
    EXPECT_FALSE(state.focusIsDue());
    EXPECT_FALSE(state.came(false));
}

TEST_F(WindowStates, AnEventWaitsForABoxToBeClosed) {
    show();
    EXPECT_FALSE(state.boxesClosed());
    EXPECT_TRUE(state.came(true));
    EXPECT_FALSE(state.mayRaise(true));
    EXPECT_TRUE(state.boxesClosed());
    EXPECT_FALSE(state.boxesClosed()); // once
    EXPECT_TRUE(state.mayRaise(false));
}

} // namespace
} // namespace corvelle::forms
