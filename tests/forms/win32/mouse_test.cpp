#include "forms/win32/screen_test.h"

#include <commctrl.h>

namespace corvelle::forms::tests {

namespace {

using Mouse = ScreenTest;

TEST_F(Mouse, OverAControlIsTheControls) {
    const auto form = shownForm();
    form->log.clear();
    postMove(windowOf(form->cmdOk), 3, 3);
    postMove(windowOf(form->txtName), 4, 4);
    postMove(windowOf(form->srfDraw), 5, 5);
    pump();
    EXPECT_EQ((std::vector<std::string>{"cmdOk mouse", "txtName mouse", "srfDraw mouse"}), form->log);
}

BOOL CALLBACK isToolTip(HWND window, LPARAM result) {
    char name[32] = "";
    GetClassNameA(window, name, sizeof name);
    if (std::string(name) != TOOLTIPS_CLASSA) return TRUE;
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
}

// The window of a tool tip of this thread; null if there is none.
HWND toolTip() {
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), isToolTip, reinterpret_cast<LPARAM>(&found));
    return found;
}

TEST_F(Mouse, OverAButtonHasATipIfTheButtonHas) {
    const auto form = shownForm();
    form->cmdOk.setToolTipText("Puts all right & well");
    postMove(windowOf(form->cmdCancel), 3, 3);
    pump();
    EXPECT_EQ(nullptr, toolTip());
    postMove(windowOf(form->cmdOk), 3, 3);
    postMove(windowOf(form->cmdOk), 4, 4);
    pump();
    const HWND tip = toolTip();
    ASSERT_NE(nullptr, tip);
    EXPECT_EQ(1, SendMessageA(tip, TTM_GETTOOLCOUNT, 0, 0));
    char text[80] = "";
    TOOLINFOA tool{};
    tool.cbSize = TTTOOLINFOA_V1_SIZE;
    tool.hwnd = windowOf(*form);
    tool.uId = reinterpret_cast<UINT_PTR>(windowOf(form->cmdOk));
    tool.lpszText = text;
    SendMessageA(tip, TTM_GETTEXTA, 0, reinterpret_cast<LPARAM>(&tool));
    EXPECT_STREQ("Puts all right & well", text);
    form->unload();
    EXPECT_FALSE(IsWindow(tip));
}

TEST_F(Mouse, OverALabelOrAnImageIsTheirs) {
    const auto form = shownForm();
    form->log.clear();
    postMove(windowOf(form->lblName), 3, 3);
    postMove(windowOf(form->imgPicture), 3, 3);
    pump();
    EXPECT_EQ((std::vector<std::string>{"lblName mouse", "imgPicture mouse"}), form->log);
}

TEST_F(Mouse, OverTheFormIsTheForms) {
    const auto form = shownForm();
    postMove(windowOf(*form), 390, 290);
    pump();
    EXPECT_EQ(1, form->count("form mouse"));
}

TEST_F(Mouse, OverAFrameIsTheFrames) {
    const auto form = shownForm();
    form->log.clear();
    postMove(windowOf(form->fraOptions), 100, 50);
    postMove(windowOf(form->lblInside), 3, 3);
    pump();
    EXPECT_EQ((std::vector<std::string>{"fraOptions mouse", "lblInside mouse"}), form->log);
}

TEST_F(Mouse, OverADisabledControlIsTheForms) {
    const auto form = shownForm();
    form->cmdOk.setEnabled(false);
    form->chkInside.setEnabled(false);
    form->log.clear();
    // The window system gives these to the parent: where the controls are in it.
    postMove(windowOf(*form), 310, 15);
    postMove(windowOf(form->fraOptions), 12, 20);
    pump();
    EXPECT_EQ((std::vector<std::string>{"form mouse", "form mouse"}), form->log);
}

TEST_F(Mouse, OverAControlOfADisabledFrameIsTheForms) {
    const auto form = shownForm();
    form->fraOptions.setEnabled(false);
    form->log.clear();
    postMove(windowOf(*form), 8 + 12, 104 + 20);
    pump();
    EXPECT_EQ((std::vector<std::string>{"form mouse"}), form->log);
}

TEST_F(Mouse, AtRestTellsNothingTwice) {
    const auto form = shownForm();
    form->log.clear();
    for (int i = 0; i < 3; ++i) postMove(windowOf(form->lblName), 3, 3);
    pump();
    EXPECT_EQ(1, form->count("lblName mouse"));
}

TEST_F(Mouse, ClicksOnWhatHasNoWindowInVBCount) {
    const auto form = shownForm();
    form->log.clear();
    click(form->lblName);
    click(form->imgPicture);
    click(form->fraOptions);
    click(form->srfDraw);
    postClick(windowOf(*form), 390, 290);
    pump();
    EXPECT_EQ((std::vector<std::string>{"lblName click", "imgPicture click", "fraOptions click",
                                        "srfDraw click", "form click"}),
              form->log);
    EXPECT_EQ(&form->txtName, form->activeControl());
}

TEST_F(Mouse, AClickEndsWhereItBegan) {
    const auto form = shownForm();
    form->log.clear();
    PostMessageA(windowOf(form->lblName), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    PostMessageA(windowOf(form->lblName), WM_LBUTTONUP, 0, MAKELPARAM(3, -40));
    PostMessageA(windowOf(form->imgPicture), WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
    pump();
    EXPECT_TRUE(form->log.empty());
    EXPECT_EQ(nullptr, GetCapture());
}

TEST_F(Mouse, ThePointerIsAnHourglassWhileTheFormSaysSo) {
    const auto form = shownForm();
    const auto pointerOver = [](HWND window) {
        SendMessageA(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window),
                     MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return GetCursor();
    };
    const HCURSOR hourglass = LoadCursor(nullptr, IDC_WAIT);
    EXPECT_NE(hourglass, pointerOver(windowOf(*form)));
    form->setMousePointer(MousePointer::Hourglass);
    EXPECT_EQ(hourglass, pointerOver(windowOf(*form)));
    EXPECT_EQ(hourglass, pointerOver(windowOf(form->chkInside)));
    EXPECT_EQ(hourglass, pointerOver(windowOf(form->txtName)));
    form->setMousePointer(MousePointer::Default);
    EXPECT_NE(hourglass, pointerOver(windowOf(form->chkInside)));
}

} // namespace

} // namespace corvelle::forms::tests
