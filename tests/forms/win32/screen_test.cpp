#include "forms/win32/screen_test.h"

#include "forms/win32/win32_peer.h"

#include <vector>

namespace corvelle::forms::tests {

namespace {

constexpr int limitInSeconds = 30;

FormWindow& windowBehind(Form& form) {
    return *static_cast<Win32Peer*>(form.peer())->formWindow();
}

} // namespace

ScreenTest::ScreenTest() : desktop_(std::make_unique<Win32Desktop>(module())) {
    limit_ = std::thread([this] {
        if (WaitForSingleObject(done_, limitInSeconds * 1000) == WAIT_OBJECT_0) return;
        ADD_FAILURE() << "took more than " << limitInSeconds << " s";
        PostThreadMessageA(thread_, WM_QUIT, 0, 0);
    });
    // No pointer above the windows, so that the mouse is where the test says.
    SetCursorPos(0, 0);
}

ScreenTest::~ScreenTest() {
    SetEvent(done_);
    limit_.join();
    CloseHandle(done_);
    removeQuitMessage();
    desktop_.reset();
}

void ScreenTest::removeQuitMessage() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message != WM_QUIT) DispatchMessageA(&message);
    }
}

void ScreenTest::useDpi(int dpi) {
    desktop_.reset();
    desktop_ = std::make_unique<Win32Desktop>(module(), dpi);
}

std::shared_ptr<EveryControl> ScreenTest::shownForm() {
    auto form = std::make_shared<EveryControl>(desktop());
    form->show();
    pump();
    return form;
}

HWND ScreenTest::windowOf(Form& form) const {
    return windowBehind(form).window();
}

HWND ScreenTest::windowOf(Control& control) const {
    return windowBehind(control.form()).windowOf(control);
}

bool ScreenTest::pumpUntil(const std::function<bool()>& isSo) {
    constexpr DWORD patience = 5000;
    const DWORD start = GetTickCount();
    for (DWORD passed = 0; passed < patience; passed = GetTickCount() - start) {
        desktop().doEvents();
        if (isSo()) return true;
        // What is waited for need not come with a message.
        MsgWaitForMultipleObjectsEx(0, nullptr, 10, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
    return false;
}

void ScreenTest::pump() {
    desktop().doEvents();
}

void ScreenTest::postClick(HWND window, int x, int y) {
    PostMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    PostMessageA(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
}

void ScreenTest::postMove(HWND window, int x, int y) {
    PostMessageA(window, WM_MOUSEMOVE, 0, MAKELPARAM(x, y));
}

void ScreenTest::postKey(HWND window, int keyCode) {
    PostMessageA(window, WM_KEYDOWN, static_cast<WPARAM>(keyCode), 1);
    PostMessageA(window, WM_KEYUP, static_cast<WPARAM>(keyCode), static_cast<LPARAM>(0xC0000001));
}

void ScreenTest::postAccelerator(HWND window, char letter) {
    PostMessageA(window, WM_SYSCHAR, static_cast<WPARAM>(letter), 0x20000001);
}

void ScreenTest::click(Control& control) {
    postClick(windowOf(control));
    pump();
}

void ScreenTest::press(int keyCode) {
    postKey(GetFocus(), keyCode);
    pump();
}

HWND ScreenTest::waitForBox(const std::string& title) {
    for (int i = 0; i < 500; ++i) {
        const HWND box = FindWindowA("#32770", title.c_str());
        if (box && IsWindowVisible(box)) return box;
        Sleep(10);
    }
    ADD_FAILURE() << "no box " << title;
    return nullptr;
}

std::string ScreenTest::textOfBox(HWND box) {
    constexpr int textNumber = 0xFFFF;
    std::vector<char> text(4096);
    GetDlgItemTextA(box, textNumber, text.data(), static_cast<int>(text.size()));
    return text.data();
}

std::unique_ptr<Helper> ScreenTest::answerBox(const std::string& title, int answer, std::string* text) {
    return std::make_unique<Helper>([title, answer, text] {
        const HWND box = waitForBox(title);
        if (!box) return;
        if (text) *text = textOfBox(box);
        PostMessageA(box, WM_COMMAND, static_cast<WPARAM>(answer), 0);
    });
}

} // namespace corvelle::forms::tests
