#include "base/run_time_error.h"
#include "forms/timer.h"
#include "forms/win32/host_window.h"
#include "forms/win32/screen_test.h"

#include <algorithm>
#include <stdexcept>

namespace corvelle::forms::tests {

namespace {

using Windows = ScreenTest;

TEST_F(Windows, AFormLoadsIsLaidOutAndIsActivated) {
    const auto form = shownForm();
    const std::vector<std::string> first(form->log.begin(), form->log.begin() + 5);
    EXPECT_EQ((std::vector<std::string>{"srfDraw resize", "load", "resize", "activate", "txtName focus"}),
              first);
    EXPECT_EQ(windowOf(*form), GetActiveWindow());
    EXPECT_TRUE(IsWindowVisible(windowOf(*form)));
}

TEST_F(Windows, ShowAgainBringsToTheFront) {
    const auto first = shownForm();
    const auto second = shownForm();
    EXPECT_EQ(windowOf(*second), GetActiveWindow());
    first->show();
    pump();
    EXPECT_EQ(windowOf(*first), GetActiveWindow());
    EXPECT_EQ(2, first->count("activate"));
    first->show();
    pump();
    EXPECT_EQ(2, first->count("activate"));
}

TEST_F(Windows, AHiddenFormIsNotOnTheScreen) {
    const auto form = shownForm();
    form->hide();
    EXPECT_FALSE(IsWindowVisible(windowOf(*form)));
    form->show();
    EXPECT_TRUE(IsWindowVisible(windowOf(*form)));
    EXPECT_EQ(1, form->count("load"));
    EXPECT_EQ(1, form->count("resize"));
    EXPECT_EQ(2, form->count("activate"));
}

TEST_F(Windows, TheCloseBoxAsks) {
    const auto form = shownForm();
    form->cancelsUnload = true;
    PostMessageA(windowOf(*form), WM_SYSCOMMAND, SC_CLOSE, 0);
    pump();
    EXPECT_EQ(1, form->count("query unload by the close box"));
    EXPECT_TRUE(form->visible());
    EXPECT_TRUE(IsWindowVisible(windowOf(*form)));
    form->cancelsUnload = false;
    const HWND window = windowOf(*form);
    PostMessageA(window, WM_SYSCOMMAND, SC_CLOSE, 0);
    pump();
    EXPECT_FALSE(form->isLoaded());
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(Windows, AFormWithoutACloseBoxCannotBeClosed) {
    const auto form = std::make_shared<EveryControl>(desktop());
    form->wantedStyle = BorderStyle::FixedWithoutCloseBox;
    form->show();
    PostMessageA(windowOf(*form), WM_SYSCOMMAND, SC_CLOSE, 0);
    PostMessageA(windowOf(*form), WM_CLOSE, 0, 0);
    pump();
    EXPECT_TRUE(form->visible());
    EXPECT_EQ(0, form->count("query unload by the close box"));
}

// A host that destroys its window destroys with it the forms that the window owns.

TEST_F(Windows, AFormIsUnloadedWhenTheHostsWindowGoes) {
    auto host = std::make_unique<HostWindow>();
    const auto form = shownForm();
    const HWND window = windowOf(*form);
    ASSERT_EQ(host->window(), GetWindow(window, GW_OWNER));
    SetWindowTextA(windowOf(form->txtName), "typed");
    std::string text;
    int answered = 0;
    form->onEvent = [&](const std::string& event) {
        if (event != "query unload by code") return;
        text = form->txtName.text();
        const auto answers = answerBox("Save ?", IDYES);
        answered = desktop().msgBox("Do you wish to save?", box::yesNo, "Save ?");
    };
    host.reset();
    EXPECT_EQ("typed", text);
    EXPECT_EQ(answer::yes, answered);
    EXPECT_EQ(1, form->count("query unload by code"));
    EXPECT_EQ(1, form->count("unload"));
    EXPECT_FALSE(form->isLoaded());
    EXPECT_FALSE(IsWindow(window));
    form->onEvent = nullptr;
    form->show(); // anew
    EXPECT_TRUE(IsWindowVisible(windowOf(*form)));
    form->unload();
}

TEST_F(Windows, AFormThatCancelsLosesItsWindowAllTheSame) {
    auto host = std::make_unique<HostWindow>();
    auto form = shownForm();
    const HWND window = windowOf(*form);
    form->cancelsUnload = true;
    host.reset();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(form->visible());
    EXPECT_TRUE(form->isLoaded()); // for a command that still works on it
    EXPECT_EQ(0, form->count("unload"));
    form->txtName.setText("more");
    form->cmdOk.setEnabled(false);
    form->cmdOk.setFocus();
    form->setCaption("nobody sees it");
    form->show();
    form->hide();
    EXPECT_EQ("more", form->txtName.text());
    form->cancelsUnload = false;
    EXPECT_TRUE(form->unload());
    EXPECT_EQ(1, form->count("unload"));
}

TEST_F(Windows, AFormMayGoWithTheHostInItsOwnClick) {
    auto host = std::make_unique<HostWindow>();
    const auto form = shownForm();
    form->onEvent = [&](const std::string& event) {
        if (event != "cmdOk click") return;
        host.reset();
        EXPECT_FALSE(form->isLoaded());
    };
    click(form->cmdOk);
    EXPECT_EQ(nullptr, host);
    EXPECT_EQ(1, form->count("unload"));
}

TEST_F(Windows, AFormMayGoWithTheHostWhileItAsks) {
    auto host = std::make_unique<HostWindow>();
    const auto form = shownForm();
    form->cancelsUnload = true;
    form->onEvent = [&](const std::string& event) {
        if (event == "query unload by code") host.reset();
    };
    EXPECT_FALSE(form->unload());
    EXPECT_EQ(nullptr, host);
    EXPECT_FALSE(form->visible());
    form->cancelsUnload = false;
    EXPECT_TRUE(form->unload());
}

TEST_F(Windows, AFormCanBeLoadedAgain) {
    const auto form = shownForm();
    form->txtName.setText("gone");
    form->unload();
    form->show();
    pump();
    EXPECT_EQ("", form->txtName.text());
    EXPECT_EQ(2, form->count("load"));
    click(form->cmdOk);
    EXPECT_EQ(1, form->count("cmdOk click"));
}

TEST_F(Windows, ASizableFormTellsItsNewSize) {
    const auto form = std::make_shared<EveryControl>(desktop());
    form->wantedStyle = BorderStyle::Sizable;
    form->show();
    RECT outside{};
    GetWindowRect(windowOf(*form), &outside);
    SetWindowPos(windowOf(*form), nullptr, 0, 0, static_cast<int>(outside.right - outside.left) + 20,
                 static_cast<int>(outside.bottom - outside.top) + 10, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ((Size{6300, 4650}), form->size());
    EXPECT_EQ(2, form->count("resize"));
    form->setSize({6000, 4500});
    RECT inside{};
    GetClientRect(windowOf(*form), &inside);
    EXPECT_EQ(400, inside.right);
    EXPECT_EQ(300, inside.bottom);
}

SIZE insideOf(HWND window) {
    RECT inside{};
    GetClientRect(window, &inside);
    return {inside.right, inside.bottom};
}

RECT placeOf(HWND window, HWND in) {
    RECT place{};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, in, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

bool scrolls(HWND window, LONG_PTR bar) {
    return (GetWindowLongPtrA(window, GWL_STYLE) & bar) != 0;
}

void expectOnScreen(HWND window) {
    RECT work{};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
    RECT place{};
    GetWindowRect(window, &place);
    EXPECT_GE(place.left, work.left);
    EXPECT_GE(place.top, work.top);
    EXPECT_LE(place.right, work.right);
    EXPECT_LE(place.bottom, work.bottom);
}

TEST_F(Windows, ASizableFormKeepsItsLeastSize) {
    const auto form = std::make_shared<EveryControl>(desktop());
    form->wantedStyle = BorderStyle::Sizable;
    form->wantedLeast = {4500, 3000};
    form->show();
    SetWindowPos(windowOf(*form), nullptr, 0, 0, 50, 50, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ((Size{4500, 3000}), form->size());
    EXPECT_FALSE(scrolls(windowOf(*form), WS_HSCROLL | WS_VSCROLL));
}

// At such a resolution the form is larger than any screen of the tests.

TEST_F(Windows, AFormThatIsLargerThanTheScreenScrolls) {
    useDpi(384);
    const auto form = shownForm();
    const HWND window = windowOf(*form);
    expectOnScreen(window);
    EXPECT_TRUE(scrolls(window, WS_HSCROLL));
    EXPECT_TRUE(scrolls(window, WS_VSCROLL));
    EXPECT_EQ((Size{6000, 4500}), form->size()); // it knows nothing of it
    const RECT before = placeOf(windowOf(form->lblName), window);
    SendMessageA(window, WM_VSCROLL, SB_BOTTOM, 0);
    const RECT after = placeOf(windowOf(form->lblName), window);
    EXPECT_EQ(before.left, after.left);
    EXPECT_EQ(before.top - (1200 - insideOf(window).cy), after.top);
    SendMessageA(window, WM_HSCROLL, SB_LINEDOWN, 0);
    EXPECT_EQ(before.left - 64, placeOf(windowOf(form->lblName), window).left);
    SendMessageA(window, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    EXPECT_EQ(after.top + 3 * 64, placeOf(windowOf(form->lblName), window).top);
    // What moves while it is scrolled moves from there.
    form->lblName.setBounds({120, 360, 1200, 240});
    EXPECT_EQ(after.top + 4 * 64, placeOf(windowOf(form->lblName), window).top);
}

TEST_F(Windows, TheFocusIsScrolledIntoView) {
    useDpi(384);
    const auto form = shownForm();
    const HWND window = windowOf(*form);
    for (Control* control : std::vector<Control*>{&form->cmdCancel, &form->sldTab, &form->chkInside}) {
        control->setFocus();
        const RECT place = placeOf(windowOf(*control), window);
        EXPECT_GE(place.left, 0) << control->name();
        EXPECT_GE(place.top, 0) << control->name();
        EXPECT_LE(place.right, insideOf(window).cx) << control->name();
        EXPECT_LE(place.bottom, insideOf(window).cy) << control->name();
    }
}

TEST_F(Windows, ASizableFormShrinksToTheScreenBeforeItScrolls) {
    useDpi(384);
    const auto form = std::make_shared<EveryControl>(desktop());
    form->wantedStyle = BorderStyle::Sizable;
    form->wantedLeast = {3000, 4200};
    form->show();
    const HWND window = windowOf(*form);
    expectOnScreen(window);
    EXPECT_FALSE(scrolls(window, WS_HSCROLL));
    EXPECT_TRUE(scrolls(window, WS_VSCROLL));
    EXPECT_EQ(desktop().scale().twips(static_cast<int>(insideOf(window).cx)), form->size().width);
    EXPECT_EQ(4200, form->size().height);
}

TEST_F(Windows, AFormThatHasRoomAgainScrollsNoMore) {
    useDpi(384);
    const auto form = shownForm();
    const HWND window = windowOf(*form);
    SendMessageA(window, WM_VSCROLL, SB_BOTTOM, 0);
    form->setSize({3000, 1500});
    EXPECT_FALSE(scrolls(window, WS_HSCROLL));
    EXPECT_FALSE(scrolls(window, WS_VSCROLL));
    EXPECT_EQ(800, insideOf(window).cx);
    EXPECT_EQ(400, insideOf(window).cy);
    EXPECT_EQ(32, placeOf(windowOf(form->lblName), window).top);
    form->setSize({6000, 4500});
    expectOnScreen(window);
    EXPECT_TRUE(scrolls(window, WS_VSCROLL));
}

TEST_F(Windows, AFormStaysAboveTheHostAndIsCentredOnIt) {
    HostWindow host;
    const auto form = shownForm();
    EXPECT_EQ(host.window(), GetWindow(windowOf(*form), GW_OWNER));
    RECT own{};
    RECT over{};
    GetWindowRect(windowOf(*form), &own);
    GetWindowRect(host.window(), &over);
    EXPECT_NEAR(over.left + over.right, own.left + own.right, 1);
    EXPECT_NEAR(over.top + over.bottom, own.top + own.bottom, 1);
    form->unload();
    EXPECT_EQ(host.window(), GetActiveWindow());
}

TEST_F(Windows, AFormIsOwnedByTheHostNotByAnotherForm) {
    HostWindow host;
    const auto first = shownForm();
    const auto second = shownForm();
    EXPECT_EQ(host.window(), GetWindow(windowOf(*second), GW_OWNER));
    first->unload();
    EXPECT_TRUE(IsWindow(windowOf(*second)));
}

TEST_F(Windows, AQuitThatALoopOfTheHostsTookIsOverWithTheNextCallFromOutside) {
    const auto form = shownForm();
    PostQuitMessage(0);
    pump();
    EXPECT_TRUE(desktop().isQuitting());
    form->onEvent = [&](const std::string& event) {
        if (event == "cmdOk click") desktop().calledFromOutside(); // inside a loop of ours
    };
    MSG message;
    ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    click(form->cmdOk);
    EXPECT_EQ(1, form->count("cmdOk click"));
    EXPECT_TRUE(desktop().isQuitting());
    desktop().calledFromOutside();
    EXPECT_FALSE(desktop().isQuitting());
}

TEST_F(Windows, QuittingEndsAWait) {
    const auto form = shownForm();
    const Helper quits([thread = GetCurrentThreadId()] {
        Sleep(50); // the wait is under way by then
        PostThreadMessageA(thread, WM_QUIT, 0, 0);
    });
    int waits = 0;
    while (desktop().waitForEvents()) ++waits;
    EXPECT_TRUE(desktop().isQuitting());
    EXPECT_FALSE(desktop().waitForEvents());
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) && message.message != WM_QUIT) {
    }
    EXPECT_EQ(static_cast<UINT>(WM_QUIT), message.message); // for the host's loop
}

TEST_F(Windows, AWaitSleepsUntilAMessageComes) {
    const auto form = shownForm();
    pumpUntil([] { return GetQueueStatus(QS_ALLINPUT) == 0; });
    const Helper clicks([this, window = windowOf(form->cmdOk)] {
        Sleep(300); // a wait that does not sleep has come back often by then
        postClick(window);
    });
    int waits = 0;
    while (form->count("cmdOk click") == 0 && desktop().waitForEvents()) ++waits;
    EXPECT_EQ(1, form->count("cmdOk click"));
    EXPECT_LT(waits, 30);
}

TEST_F(Windows, DoEventsServesAllThatWaits) {
    const auto form = shownForm();
    for (int i = 0; i < 50; ++i) postClick(windowOf(form->cmdOk));
    desktop().doEvents();
    EXPECT_EQ(50, form->count("cmdOk click"));
}

TEST_F(Windows, ALoopThatYieldsOftenSeesAClickInTime) {
    const auto form = shownForm();
    for (int i = 0; i < 1000; ++i) desktop().doEvents();
    postClick(windowOf(form->cmdOk));
    const DWORD start = GetTickCount();
    while (form->count("cmdOk click") == 0 && GetTickCount() - start < 2000) desktop().doEvents();
    EXPECT_LT(GetTickCount() - start, 200U);
}

TEST_F(Windows, HandlersNestInDoEvents) {
    const auto form = shownForm();
    bool nested = false;
    form->onEvent = [&](const std::string& event) {
        if (event != "cmdOk click" || nested) return;
        nested = true;
        postClick(windowOf(form->chkOne));
        desktop().doEvents();
        EXPECT_EQ(1, form->chkOne.value());
    };
    click(form->cmdOk);
    EXPECT_TRUE(nested);
}

// Unloading inside the window's own messages

TEST_F(Windows, AFormUnloadsInItsButtonsClick) {
    const auto form = shownForm();
    const HWND window = windowOf(*form);
    form->onEvent = [&](const std::string& event) {
        if (event == "cmdOk click") form->unload();
    };
    click(form->cmdOk);
    EXPECT_FALSE(form->isLoaded());
    EXPECT_FALSE(IsWindow(window));
}

class UnloadsIn : public ScreenTest, public testing::WithParamInterface<const char*> {
  protected:
    void raiseAll(EveryControl& form) {
        postMove(windowOf(form.lblName), 3, 3);
        postClick(windowOf(form.lblName));
        postClick(windowOf(form), 390, 290);
        postKey(windowOf(form.txtName), VK_F2);
        PostMessageA(windowOf(form.txtName), WM_CHAR, 'x', 1);
        postKey(windowOf(form.txtName), VK_TAB);
        postClick(windowOf(form.chkOne));
        postKey(windowOf(form.sldTab), VK_RIGHT);
        postClick(windowOf(form.tabMain), 70, 8);
        postClick(windowOf(form.lstRows), 10, 20);
        postClick(windowOf(form.cboKind));
        postKey(windowOf(form.cboKind), VK_DOWN);
        postKey(windowOf(form.cboKind), VK_ESCAPE);
        postKey(windowOf(form.txtName), VK_ESCAPE);
        postKey(windowOf(form.txtName), VK_RETURN);
        PostMessageA(windowOf(form), WM_CLOSE, 0, 0);
    }
};

TEST_P(UnloadsIn, AnyEvent) {
    const auto form = shownForm();
    const HWND window = windowOf(*form);
    bool happened = false;
    form->onEvent = [&](const std::string& event) {
        if (happened || event != GetParam()) return;
        happened = true;
        form->onEvent = nullptr;
        form->unload();
    };
    raiseAll(*form);
    pump();
    EXPECT_TRUE(happened);
    EXPECT_FALSE(form->isLoaded());
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(1, form->count("unload"));
    pump();
}

TEST_P(UnloadsIn, AnyEventWhileMessagesAreServedInside) {
    const auto form = shownForm();
    const HWND window = windowOf(*form);
    bool happened = false;
    form->onEvent = [&](const std::string& event) {
        if (happened || event != GetParam()) return;
        happened = true;
        form->onEvent = nullptr;
        form->unload();
        desktop().doEvents();
    };
    raiseAll(*form);
    pump();
    EXPECT_TRUE(happened);
    EXPECT_FALSE(IsWindow(window));
}

TEST_P(UnloadsIn, NoErrorOfAnEventEscapes) {
    const auto form = shownForm();
    bool happened = false;
    form->onEvent = [&](const std::string& event) {
        if (happened || event != GetParam()) return;
        happened = true;
        throw std::runtime_error("broken: " + event);
    };
    std::string text;
    {
        const auto answers = answerBox("Corvelle", IDOK, &text);
        raiseAll(*form);
        pump();
        // A box may have eaten what was meant for a window that it disabled.
        if (!happened) raiseAll(*form);
        pump();
    }
    EXPECT_TRUE(happened);
    EXPECT_EQ(std::string("broken: ") + GetParam(), text);
}

INSTANTIATE_TEST_SUITE_P(Events, UnloadsIn,
                         testing::Values("lblName mouse", "lblName click", "form click", "key 113",
                                         "txtName change", "txtName left", "cmdOk focus", "chkOne click",
                                         "sldTab change", "tabMain click", "lstRows click", "cboKind click",
                                         "cmdCancel click", "cmdOk click", "query unload by the close box"),
                         [](const auto& info) {
                             std::string name = info.param;
                             std::replace(name.begin(), name.end(), ' ', '_');
                             return name;
                         });

TEST_F(Windows, NoErrorOfATimerEscapes) {
    Timer timer(desktop());
    timer.onTimer = [&timer] {
        timer.setEnabled(false);
        throw base::RunTimeError(base::ErrorNumber::Overflow);
    };
    timer.setInterval(10);
    timer.setEnabled(true);
    std::string text;
    const auto answers = answerBox("Corvelle", IDOK, &text);
    EXPECT_TRUE(pumpUntil([&] { return !text.empty() && !desktop().boxIsOpen(); }));
    EXPECT_EQ("Overflow", text);
}

} // namespace

} // namespace corvelle::forms::tests
