#include "host/com/steps.h"

#include <gtest/gtest.h>
#include <utility>

namespace corvelle::host::test {

namespace {

constexpr UINT period = 15; // milliseconds
constexpr DWORD longEnough = 10000;

Steps* current = nullptr;

struct Wanted {
    std::string text;
    HWND found = nullptr;
};

std::string textOf(HWND window) {
    char text[256] = "";
    GetWindowTextA(window, text, sizeof text);
    return text;
}

BOOL CALLBACK isWanted(HWND window, LPARAM parameter) {
    auto& wanted = *reinterpret_cast<Wanted*>(parameter);
    if (!IsWindowVisible(window) || textOf(window) != wanted.text) return TRUE;
    wanted.found = window;
    return FALSE;
}

} // namespace

Steps::Steps() : timer_(SetTimer(nullptr, 0, period, tick)), since_(GetTickCount()) {
    current = this;
}

Steps::~Steps() {
    KillTimer(nullptr, timer_);
    current = nullptr;
    for (const Step& step : steps_) ADD_FAILURE() << "not done: " << step.what;
}

void Steps::then(const std::string& what, std::function<bool()> step) {
    steps_.push_back({what, std::move(step)});
}

void Steps::thenPress(const std::string& title, const std::string& text) {
    then("press " + text, [=] {
        const HWND found = button(window(title), text);
        if (!found || !IsWindowEnabled(GetAncestor(found, GA_ROOT))) return false;
        PostMessageA(found, BM_CLICK, 0, 0);
        return true;
    });
}

void Steps::serve() {
    MSG message;
    while (!steps_.empty() && GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

void CALLBACK Steps::tick(HWND, UINT, UINT_PTR, DWORD) {
    if (current) current->next();
}

void Steps::next() {
    if (steps_.empty() || late_) return;
    const Step step = std::move(steps_.front());
    steps_.pop_front(); // it may serve messages itself
    const DWORD start = std::exchange(since_, GetTickCount());
    if (step.run()) return;
    since_ = start;
    steps_.push_front(step);
    if (GetTickCount() - since_ < longEnough) return;
    late_ = true;
    PostQuitMessage(0);
}

HWND Steps::window(const std::string& title) {
    Wanted wanted{title};
    EnumThreadWindows(GetCurrentThreadId(), isWanted, reinterpret_cast<LPARAM>(&wanted));
    return wanted.found;
}

HWND Steps::button(HWND window, const std::string& text) {
    Wanted wanted{text};
    if (window) EnumChildWindows(window, isWanted, reinterpret_cast<LPARAM>(&wanted));
    return wanted.found;
}

} // namespace corvelle::host::test
