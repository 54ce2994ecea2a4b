#include "forms/win32/screen_test.h"

#include <utility>

namespace corvelle::forms::tests {

namespace {

using Keyboard = ScreenTest;

// While it is there the key is down for GetKeyState.
class KeyDown {
  public:
    explicit KeyDown(int keyCode) : keyCode_(keyCode) { set(0x80); }
    ~KeyDown() { set(0); }
    KeyDown(const KeyDown&) = delete;
    KeyDown& operator=(const KeyDown&) = delete;

  private:
    void set(BYTE state) const {
        BYTE keys[256];
        GetKeyboardState(keys);
        keys[keyCode_] = state;
        SetKeyboardState(keys);
    }

    int keyCode_;
};

TEST_F(Keyboard, TheFirstControlHasTheFocus) {
    const auto form = shownForm();
    EXPECT_EQ(windowOf(form->txtName), GetFocus());
    EXPECT_EQ(&form->txtName, form->activeControl());
}

TEST_F(Keyboard, TabGoesRoundInTheOrderOfCreation) {
    const auto form = shownForm();
    const std::vector<Control*> order{&form->cmdOk,   &form->cmdCancel, &form->chkOne,    &form->txtMemo,
                                      &form->cboKind, &form->lstRows,   &form->chkInside, &form->sldTab,
                                      &form->tabMain, &form->txtName};
    for (Control* next : order) {
        press(VK_TAB);
        EXPECT_EQ(next, form->activeControl()) << next->name();
    }
}

TEST_F(Keyboard, ShiftTabGoesBack) {
    const auto form = shownForm();
    const KeyDown shift(VK_SHIFT);
    press(VK_TAB);
    EXPECT_EQ(&form->tabMain, form->activeControl());
    press(VK_TAB);
    EXPECT_EQ(&form->sldTab, form->activeControl());
}

TEST_F(Keyboard, TabPassesWhatCannotBeReached) {
    const auto form = shownForm();
    form->cmdOk.setEnabled(false);
    form->cmdCancel.setVisible(false);
    form->fraOptions.setEnabled(false);
    press(VK_TAB);
    EXPECT_EQ(&form->chkOne, form->activeControl());
    form->lstRows.setFocus();
    press(VK_TAB);
    EXPECT_EQ(&form->sldTab, form->activeControl());
}

TEST_F(Keyboard, TheFocusIsAnEvent) {
    const auto form = shownForm();
    form->log.clear();
    press(VK_TAB);
    EXPECT_EQ((std::vector<std::string>{"txtName left", "cmdOk focus", "key 9"}), form->log);
}

TEST_F(Keyboard, ADisabledControlHandsTheFocusOn) {
    const auto form = shownForm();
    form->cmdOk.setFocus();
    form->cmdOk.setEnabled(false);
    EXPECT_EQ(&form->cmdCancel, form->activeControl());
    EXPECT_EQ(windowOf(form->cmdCancel), GetFocus());
}

TEST_F(Keyboard, AHiddenFrameHandsTheFocusOn) {
    const auto form = shownForm();
    form->chkInside.setFocus();
    form->fraOptions.setVisible(false);
    EXPECT_EQ(&form->sldTab, form->activeControl());
}

TEST_F(Keyboard, EnterPressesTheDefaultButton) {
    const auto form = shownForm();
    press(VK_RETURN);
    EXPECT_EQ(1, form->count("cmdOk click"));
}

TEST_F(Keyboard, EnterPressesTheButtonWithTheFocus) {
    const auto form = shownForm();
    form->cmdCancel.setFocus();
    press(VK_RETURN);
    EXPECT_EQ(1, form->count("cmdCancel click"));
    EXPECT_EQ(0, form->count("cmdOk click"));
}

TEST_F(Keyboard, EnterPressesNoDisabledButton) {
    const auto form = shownForm();
    form->cmdOk.setEnabled(false);
    press(VK_RETURN);
    EXPECT_EQ(0, form->count("cmdOk click"));
}

TEST_F(Keyboard, EnterBreaksTheLineInATextBoxOfSeveral) {
    const auto form = shownForm();
    form->txtMemo.setFocus();
    press(VK_RETURN);
    EXPECT_EQ("\r\n", form->txtMemo.text());
    EXPECT_EQ(0, form->count("cmdOk click"));
}

TEST_F(Keyboard, AKeyInATextBoxIsTold) {
    const auto form = shownForm();
    int keys = 0;
    form->txtName.onKeyPress = [&keys] { ++keys; };
    form->txtName.setFocus();
    PostMessageA(windowOf(form->txtName), WM_CHAR, 'x', 0);
    desktop().doEvents();
    EXPECT_EQ(1, keys);
    EXPECT_NE(std::string::npos, form->txtName.text().find('x'));
    PostMessageA(windowOf(form->txtName), WM_CHAR, 3, 0); // Ctrl+C changes nothing
    desktop().doEvents();
    EXPECT_EQ(2, keys);
}

TEST_F(Keyboard, AKeyInAListIsToldAndStillTheLists) {
    const auto form = shownForm();
    std::vector<int> keys;
    form->cboKind.onKeyDown = [&keys](int key) { keys.push_back(key); };
    form->cboKind.clear();
    form->cboKind.addItems({"one", "two"});
    form->cboKind.setListIndex(0);
    form->cboKind.setFocus();
    press(VK_DOWN);
    EXPECT_EQ(std::vector<int>{VK_DOWN}, keys);
    EXPECT_EQ(1, form->cboKind.listIndex());
}

TEST_F(Keyboard, EscPressesTheCancelButton) {
    const auto form = shownForm();
    press(VK_ESCAPE);
    form->txtMemo.setFocus();
    press(VK_ESCAPE);
    EXPECT_EQ(2, form->count("cmdCancel click"));
    EXPECT_TRUE(form->visible());
}

TEST_F(Keyboard, EnterAndEscCloseADroppedListFirst) {
    const auto form = shownForm();
    form->cboKind.setFocus();
    const HWND combo = windowOf(form->cboKind);
    SendMessageA(combo, CB_SHOWDROPDOWN, TRUE, 0);
    press(VK_ESCAPE);
    EXPECT_EQ(0, form->count("cmdCancel click"));
    EXPECT_FALSE(SendMessageA(combo, CB_GETDROPPEDSTATE, 0, 0));
    press(VK_ESCAPE);
    EXPECT_EQ(1, form->count("cmdCancel click"));
}

TEST_F(Keyboard, SpacePressesAButtonAndChecksABox) {
    const auto form = shownForm();
    form->cmdCancel.setFocus();
    press(VK_SPACE);
    EXPECT_EQ(1, form->count("cmdCancel click"));
    form->chkOne.setFocus();
    press(VK_SPACE);
    EXPECT_EQ(1, form->chkOne.value());
}

TEST_F(Keyboard, AnAcceleratorPressesItsButton) {
    const auto form = shownForm();
    postAccelerator(windowOf(form->txtName), 'o');
    pump();
    EXPECT_EQ(1, form->count("cmdOk click"));
}

TEST_F(Keyboard, AnAcceleratorChecksABoxInAFrame) {
    const auto form = shownForm();
    postAccelerator(windowOf(form->txtName), 'i');
    pump();
    EXPECT_EQ(1, form->chkInside.value());
}

TEST_F(Keyboard, ALabelsAcceleratorMovesToTheNextControl) {
    const auto form = shownForm();
    form->cmdCancel.setFocus();
    postAccelerator(windowOf(form->cmdCancel), 'n');
    pump();
    EXPECT_EQ(&form->txtName, form->activeControl());
}

TEST_F(Keyboard, ADoubledAmpersandMarksNoAccelerator) {
    const auto form = shownForm();
    form->lblName.setCaption("R&&D &name");
    form->cmdCancel.setFocus();
    postAccelerator(windowOf(form->cmdCancel), 'd');
    pump();
    EXPECT_EQ(&form->cmdCancel, form->activeControl());
    postAccelerator(windowOf(form->cmdCancel), 'n');
    pump();
    EXPECT_EQ(&form->txtName, form->activeControl());
}

TEST_F(Keyboard, ALabelMayUseNoAccelerator) {
    const auto form = shownForm();
    form->cmdCancel.setFocus();
    form->lblName.setUseMnemonic(false);
    postAccelerator(windowOf(form->cmdCancel), 'n');
    pump();
    EXPECT_EQ(&form->cmdCancel, form->activeControl());
}

TEST_F(Keyboard, ADisabledButtonsAcceleratorDoesNothing) {
    const auto form = shownForm();
    form->cmdOk.setEnabled(false);
    postAccelerator(windowOf(form->txtName), 'o');
    pump();
    EXPECT_EQ(0, form->count("cmdOk click"));
}

TEST_F(Keyboard, F1InAControlReachesTheFormOnce) {
    const auto form = shownForm();
    press(VK_F1);
    EXPECT_EQ(1, form->count("key 112"));
    form->cboKind.setFocus();
    press(VK_F1);
    EXPECT_EQ(2, form->count("key 112"));
    form->chkInside.setFocus();
    press(VK_F1);
    EXPECT_EQ(3, form->count("key 112"));
}

TEST_F(Keyboard, WithoutKeyPreviewTheFormSeesNoKeysOfItsControls) {
    const auto form = std::make_shared<EveryControl>(desktop());
    form->wantsPreview = false;
    form->show();
    pump();
    press(VK_F1);
    form->cboKind.setFocus();
    press(VK_F1);
    EXPECT_EQ(0, form->count("key 112"));
}

TEST_F(Keyboard, TheDefaultButtonIsDrawnAsSuch) {
    const auto form = shownForm();
    const auto isDefault = [this](Control& button) {
        return (GetWindowLongPtrA(windowOf(button), GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    };
    EXPECT_TRUE(isDefault(form->cmdOk));
    form->cmdCancel.setFocus();
    EXPECT_FALSE(isDefault(form->cmdOk));
    EXPECT_TRUE(isDefault(form->cmdCancel));
    form->txtName.setFocus();
    EXPECT_TRUE(isDefault(form->cmdOk));
    EXPECT_FALSE(isDefault(form->cmdCancel));
}

TEST_F(Keyboard, AFocusSetBeforeTheWindowIsShownCounts) {
    const auto form = std::make_shared<EveryControl>(desktop());
    form->chkOne.setFocus();
    form->show();
    pump();
    EXPECT_EQ(windowOf(form->chkOne), GetFocus());
    EXPECT_EQ(1, form->count("chkOne focus"));
}

} // namespace

} // namespace corvelle::forms::tests
