#include "forms/win32/screen_test.h"

#include <commctrl.h>

namespace corvelle::forms::tests {

namespace {

using Controls = ScreenTest;

std::string textOf(HWND window) {
    char text[256] = {};
    SendMessageA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    return text;
}

TEST_F(Controls, HaveTheirDesignedProperties) {
    const auto form = shownForm();
    EXPECT_EQ("Every control", textOf(windowOf(*form)));
    EXPECT_EQ("&Name:", textOf(windowOf(form->lblName)));
    EXPECT_EQ("&OK", textOf(windowOf(form->cmdOk)));
    EXPECT_EQ("Options", textOf(windowOf(form->fraOptions)));
    EXPECT_EQ(3, SendMessageA(windowOf(form->cboKind), CB_GETCOUNT, 0, 0));
    EXPECT_EQ(3, SendMessageA(windowOf(form->lstRows), LB_GETCOUNT, 0, 0));
    EXPECT_EQ(10, SendMessageA(windowOf(form->sldTab), TBM_GETRANGEMAX, 0, 0));
    EXPECT_EQ(2, SendMessageA(windowOf(form->tabMain), TCM_GETITEMCOUNT, 0, 0));
    EXPECT_EQ(windowOf(form->fraOptions), GetParent(windowOf(form->chkInside)));
    EXPECT_TRUE(IsWindowVisible(windowOf(form->chkInside)));
}

TEST_F(Controls, ShowWhatIsWritten) {
    const auto form = shownForm();
    form->setCaption("Another");
    form->txtName.setText("caf\xE9");
    form->cmdOk.setCaption("Go");
    form->chkOne.setValue(1);
    form->cboKind.setListIndex(2);
    form->lstRows.setListIndex(1);
    form->lstRows.addItem("four");
    form->sldTab.setValue(7);
    form->tabMain.select(2);
    EXPECT_EQ("Another", textOf(windowOf(*form)));
    EXPECT_EQ("caf\xE9", textOf(windowOf(form->txtName)));
    EXPECT_EQ("Go", textOf(windowOf(form->cmdOk)));
    EXPECT_EQ(BST_CHECKED, SendMessageA(windowOf(form->chkOne), BM_GETCHECK, 0, 0));
    EXPECT_EQ(2, SendMessageA(windowOf(form->cboKind), CB_GETCURSEL, 0, 0));
    EXPECT_EQ(1, SendMessageA(windowOf(form->lstRows), LB_GETCURSEL, 0, 0));
    EXPECT_EQ(4, SendMessageA(windowOf(form->lstRows), LB_GETCOUNT, 0, 0));
    EXPECT_EQ(7, SendMessageA(windowOf(form->sldTab), TBM_GETPOS, 0, 0));
    EXPECT_EQ(1, SendMessageA(windowOf(form->tabMain), TCM_GETCURSEL, 0, 0));
    EXPECT_EQ(1, form->count("txtName change"));
}

TEST_F(Controls, AnEmptiedListStartsAnew) {
    const auto form = shownForm();
    form->lstRows.setListIndex(0);
    form->lstRows.clear();
    form->lstRows.addItem("only");
    const HWND list = windowOf(form->lstRows);
    EXPECT_EQ(1, SendMessageA(list, LB_GETCOUNT, 0, 0));
    EXPECT_EQ(LB_ERR, SendMessageA(list, LB_GETCURSEL, 0, 0));
}

TEST_F(Controls, AButtonIsClicked) {
    const auto form = shownForm();
    click(form->cmdCancel);
    EXPECT_EQ(1, form->count("cmdCancel click"));
    EXPECT_EQ(&form->cmdCancel, form->activeControl());
}

TEST_F(Controls, ACheckBoxIsCheckedAndCleared) {
    const auto form = shownForm();
    click(form->chkOne);
    EXPECT_EQ(1, form->chkOne.value());
    EXPECT_EQ(BST_CHECKED, SendMessageA(windowOf(form->chkOne), BM_GETCHECK, 0, 0));
    click(form->chkOne);
    EXPECT_EQ(0, form->chkOne.value());
    EXPECT_EQ(2, form->count("chkOne click"));
}

TEST_F(Controls, ACheckBoxInAFrameReachesTheForm) {
    const auto form = shownForm();
    click(form->chkInside);
    EXPECT_EQ(1, form->chkInside.value());
}

TEST_F(Controls, TypingChangesATextBox) {
    const auto form = shownForm();
    form->txtName.setFocus();
    for (const char c : {'a', 'b', '\xE9'})
        PostMessageA(windowOf(form->txtName), WM_CHAR, static_cast<BYTE>(c), 1);
    pump();
    EXPECT_EQ("ab\xE9", form->txtName.text());
    EXPECT_EQ(3, form->count("txtName change"));
}

TEST_F(Controls, ALockedTextBoxTakesNoTyping) {
    const auto form = shownForm();
    form->txtName.setText("fixed");
    form->txtName.setLocked(true);
    PostMessageA(windowOf(form->txtName), WM_CHAR, 'x', 1);
    pump();
    EXPECT_EQ("fixed", form->txtName.text());
    form->txtName.setLocked(false);
    PostMessageA(windowOf(form->txtName), WM_CHAR, 'x', 1);
    pump();
    EXPECT_EQ("xfixed", form->txtName.text());
}

TEST_F(Controls, ATextBoxTakesWhatAnotherProgramWritesIntoIt) {
    const auto form = shownForm();
    for (TextBox* box : {&form->txtName, &form->txtMemo}) {
        const std::string change = box->name() + " change";
        const int before = form->count(change);
        SendMessageA(windowOf(*box), WM_SETTEXT, 0, reinterpret_cast<LPARAM>("from outside"));
        EXPECT_EQ("from outside", box->text());
        EXPECT_EQ(before + 1, form->count(change));
        box->setText("by code");
        EXPECT_EQ(before + 2, form->count(change));
        EXPECT_EQ("by code", textOf(windowOf(*box)));
    }
}

TEST_F(Controls, AFormMayGoWhileAnotherProgramWritesIntoIt) {
    for (TextBox EveryControl::*box : {&EveryControl::txtName, &EveryControl::txtMemo}) {
        const auto form = shownForm();
        const std::string change = ((*form).*box).name() + " change";
        form->onEvent = [&](const std::string& event) {
            if (event == change) form->unload();
        };
        const HWND window = windowOf((*form).*box);
        SendMessageA(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>("from outside"));
        EXPECT_FALSE(form->isLoaded());
        EXPECT_FALSE(IsWindow(window));
    }
}

TEST_F(Controls, ATextBoxHoldsALongText) {
    const auto form = shownForm();
    std::string text;
    for (int i = 0; i < 2000; ++i) text += "one of two thousand lines of the text\r\n";
    form->txtMemo.setText(text);
    PostMessageA(windowOf(form->txtMemo), WM_CHAR, 'y', 1);
    pump();
    EXPECT_TRUE("y" + text == form->txtMemo.text()) << form->txtMemo.text().size();
}

TEST_F(Controls, ARowIsChosenFromAList) {
    const auto form = shownForm();
    const HWND list = windowOf(form->lstRows);
    RECT row{};
    SendMessageA(list, LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
    postClick(list, static_cast<int>(row.left) + 3, static_cast<int>(row.top) + 3);
    pump();
    EXPECT_EQ(1, form->lstRows.listIndex());
    EXPECT_EQ(1, form->count("lstRows click"));
}

TEST_F(Controls, ARowIsChosenFromAComboBoxByTheKeyboard) {
    const auto form = shownForm();
    form->cboKind.setFocus();
    press(VK_DOWN);
    press(VK_DOWN);
    EXPECT_EQ(1, form->cboKind.listIndex());
    EXPECT_EQ("green", form->cboKind.text());
    EXPECT_EQ(2, form->count("cboKind click"));
}

TEST_F(Controls, TheSliderMovesByTheKeyboard) {
    const auto form = shownForm();
    form->sldTab.setFocus();
    press(VK_RIGHT);
    EXPECT_EQ(1, form->sldTab.value());
    press(VK_NEXT);
    EXPECT_EQ(3, form->sldTab.value());
    EXPECT_EQ(2, form->count("sldTab change"));
    EXPECT_EQ(0, form->count("sldTab scroll"));
}

TEST_F(Controls, DraggingTheSliderScrollsAndChanges) {
    const auto form = shownForm();
    const HWND slider = windowOf(form->sldTab);
    RECT thumb{};
    SendMessageA(slider, TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&thumb));
    RECT channel{};
    SendMessageA(slider, TBM_GETCHANNELRECT, 0, reinterpret_cast<LPARAM>(&channel));
    const int y = static_cast<int>(thumb.top + thumb.bottom) / 2;
    PostMessageA(slider, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM((thumb.left + thumb.right) / 2, y));
    PostMessageA(slider, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM((channel.left + channel.right) / 2, y));
    PostMessageA(slider, WM_LBUTTONUP, 0, MAKELPARAM((channel.left + channel.right) / 2, y));
    pump();
    EXPECT_EQ(5, form->sldTab.value());
    EXPECT_EQ(1, form->count("sldTab scroll"));
    EXPECT_EQ(1, form->count("sldTab change"));
}

TEST_F(Controls, ATabIsSelected) {
    const auto form = shownForm();
    const HWND tabs = windowOf(form->tabMain);
    RECT second{};
    SendMessageA(tabs, TCM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&second));
    postClick(tabs, static_cast<int>(second.left) + 4, static_cast<int>(second.top) + 4);
    pump();
    EXPECT_EQ(2, form->tabMain.selected());
    EXPECT_EQ(1, form->count("tabMain click"));
}

TEST_F(Controls, ATabStripLiesBehindWhateverStandsInItsArea) {
    const auto form = shownForm();
    for (Control* onTab :
         std::vector<Control*>{&form->chkOne, &form->srfDraw}) { // made before it and after it
        onTab->setBounds({240, 3600, 900, 300});
        RECT place{};
        GetWindowRect(windowOf(*onTab), &place);
        EXPECT_EQ(windowOf(*onTab), WindowFromPoint({place.left + 2, place.top + 2})) << onTab->name();
        onTab->setVisible(false);
    }
}

TEST_F(Controls, DisablingAFrameTakesItsControlsAlong) {
    const auto form = shownForm();
    form->fraOptions.setEnabled(false);
    EXPECT_FALSE(IsWindowEnabled(windowOf(form->fraOptions)));
    SendMessageA(windowOf(form->chkInside), BM_CLICK, 0, 0);
    EXPECT_EQ(0, form->chkInside.value());
    form->fraOptions.setEnabled(true);
    click(form->chkInside);
    EXPECT_EQ(1, form->chkInside.value());
}

TEST_F(Controls, HidingAFrameHidesItsControls) {
    const auto form = shownForm();
    form->fraOptions.setVisible(false);
    EXPECT_FALSE(IsWindowVisible(windowOf(form->chkInside)));
    form->fraOptions.setVisible(true);
    EXPECT_TRUE(IsWindowVisible(windowOf(form->chkInside)));
}

TEST_F(Controls, AControlIsMoved) {
    const auto form = shownForm();
    form->cmdOk.setBounds({1500, 3000, 1500, 450});
    RECT place{};
    GetWindowRect(windowOf(form->cmdOk), &place);
    MapWindowPoints(nullptr, windowOf(*form), reinterpret_cast<POINT*>(&place), 2);
    EXPECT_EQ(100, place.left);
    EXPECT_EQ(200, place.top);
    EXPECT_EQ(200, place.right);
    EXPECT_EQ(230, place.bottom);
}

TEST_F(Controls, ASurfaceShowsItsCanvasPixelForPixel) {
    const auto form = shownForm();
    Canvas& canvas = form->srfDraw.canvas();
    ASSERT_EQ(100, canvas.width());
    ASSERT_EQ(20, canvas.height());
    EXPECT_EQ(1, form->count("srfDraw resize"));
    canvas.clear(0x102030);
    canvas.fillBox(10, 5, 13, 8, 0xFF8040);
    form->srfDraw.refresh();
    const HDC screen = GetDC(windowOf(form->srfDraw));
    EXPECT_EQ(0x102030U, GetPixel(screen, 0, 0));
    EXPECT_EQ(0x102030U, GetPixel(screen, 9, 5));
    EXPECT_EQ(0xFF8040U, GetPixel(screen, 10, 5));
    EXPECT_EQ(0xFF8040U, GetPixel(screen, 12, 7));
    EXPECT_EQ(0x102030U, GetPixel(screen, 13, 7));
    EXPECT_EQ(0x102030U, GetPixel(screen, 99, 19));
    ReleaseDC(windowOf(form->srfDraw), screen);
}

TEST_F(Controls, ASurfaceOfAnotherSizeIsToldOnce) {
    const auto form = shownForm();
    form->srfDraw.setBounds({2700, 3000, 750, 150});
    EXPECT_EQ(50, form->srfDraw.canvas().width());
    EXPECT_EQ(10, form->srfDraw.canvas().height());
    form->srfDraw.setBounds({2760, 3000, 750, 150});
    EXPECT_EQ(2, form->count("srfDraw resize"));
}

TEST_F(Controls, LabelsHaveTheirColours) {
    const auto form = shownForm();
    form->lblInside.setBackColor(0x800080);
    form->lblInside.setCaption("");
    pumpUntil([] { return GetQueueStatus(QS_PAINT) == 0; });
    RedrawWindow(windowOf(*form), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    const HDC screen = GetDC(windowOf(form->lblInside));
    EXPECT_EQ(0x800080U, GetPixel(screen, 5, 5));
    ReleaseDC(windowOf(form->lblInside), screen);
}

TEST_F(Controls, SystemColoursAreTheDesktops) {
    EXPECT_EQ(GetSysColor(COLOR_BTNFACE), desktop().resolve(colours::buttonFace));
    EXPECT_EQ(0x123456U, desktop().resolve(0x123456));
}

} // namespace

} // namespace corvelle::forms::tests
