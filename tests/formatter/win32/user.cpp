#include "formatter/win32/user.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>

namespace corvelle::formatter::tests {

namespace {

constexpr DWORD patience = 10000; // milliseconds
constexpr UINT answerTime = 10000;

BOOL CALLBACK collect(HWND window, LPARAM list) {
    if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

std::vector<HWND> windowsOf(DWORD thread) {
    std::vector<HWND> windows;
    EnumThreadWindows(thread, collect, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

LRESULT ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    DWORD_PTR result = 0;
    SendMessageTimeoutA(window, message, wParam, lParam, SMTO_NORMAL, answerTime, &result);
    return static_cast<LRESULT>(result);
}

bool isOfClass(HWND window, const std::string& className) {
    char name[64] = {};
    GetClassNameA(window, name, sizeof name);
    return lstrcmpiA(name, className.c_str()) == 0;
}

HWND findControl(HWND window, const std::string& className, const std::string& text) {
    const std::vector<HWND> found = User::controls(window, className);
    const auto it = std::find_if(found.begin(), found.end(),
                                 [&text](HWND control) { return User::text(control) == text; });
    return it == found.end() ? nullptr : *it;
}

} // namespace

HWND User::findWindowWith(const std::string& button) const {
    const std::vector<HWND> windows = windowsOf(thread_);
    const auto it = std::find_if(windows.begin(), windows.end(), [&button](HWND window) {
        return IsWindowEnabled(window) && findControl(window, "Button", button);
    });
    return it == windows.end() ? nullptr : *it;
}

HWND User::windowWith(const std::string& button) const {
    HWND window = nullptr;
    waitUntil("a window with " + button, [&] { return (window = findWindowWith(button)) != nullptr; });
    return window;
}

HWND User::windowTitled(const std::string& title) const {
    HWND found = nullptr;
    waitUntil("the window " + title, [&] {
        for (const HWND window : windowsOf(thread_)) {
            if (text(window) == title) found = window;
        }
        return found != nullptr;
    });
    return found;
}

HWND User::findBox(const std::string& title) const {
    const std::vector<HWND> windows = windowsOf(thread_);
    const auto it = std::find_if(windows.begin(), windows.end(), [&title](HWND window) {
        return isOfClass(window, "#32770") && text(window) == title;
    });
    return it == windows.end() ? nullptr : *it;
}

HWND User::box(const std::string& title) const {
    HWND box = nullptr;
    waitUntil("the box " + title, [&] { return (box = findBox(title)) != nullptr; });
    return box;
}

HWND User::control(HWND window, const std::string& className, const std::string& text) {
    HWND control = nullptr;
    try {
        waitUntil(className + " \"" + text + "\"",
                  [&] { return (control = findControl(window, className, text)) != nullptr; });
    } catch (const std::runtime_error& error) {
        std::string what = std::string(error.what()) + "; there is";
        for (const HWND other : controls(window, className)) what += " \"" + User::text(other) + "\"";
        throw std::runtime_error(what);
    }
    return control;
}

std::vector<HWND> User::controls(HWND window, const std::string& className) {
    std::vector<HWND> all;
    EnumChildWindows(window, collect, reinterpret_cast<LPARAM>(&all));
    all.erase(std::remove_if(all.begin(), all.end(),
                             [&className](HWND control) { return !isOfClass(control, className); }),
              all.end());
    return all;
}

bool User::shows(HWND window, const std::string& className, const std::string& text) {
    return findControl(window, className, text) != nullptr;
}

std::string User::text(HWND window) {
    std::vector<char> text(4096);
    // A question to a window that is just coming up now and then goes unheard, until the next one.
    constexpr UINT step = 1000;
    DWORD_PTR length = 0;
    for (UINT waited = 0; waited < answerTime && IsWindow(window); waited += step) {
        if (SendMessageTimeoutA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                                SMTO_NORMAL, step, &length) != 0)
            break;
    }
    return text.data();
}

std::vector<std::string> User::entries(HWND list) {
    std::vector<std::string> all;
    const LRESULT count = ask(list, LB_GETCOUNT);
    for (LRESULT i = 0; i < count; ++i) {
        const LRESULT length = ask(list, LB_GETTEXTLEN, static_cast<WPARAM>(i));
        std::vector<char> text(static_cast<std::size_t>(std::max<LRESULT>(length, 0)) + 1);
        ask(list, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text.data()));
        all.emplace_back(text.data());
    }
    return all;
}

bool User::isEnabled(HWND window, const std::string& button) {
    return IsWindowEnabled(control(window, "Button", button)) != FALSE;
}

bool User::isChecked(HWND window, const std::string& checkBox) {
    return ask(control(window, "Button", checkBox), BM_GETCHECK) == BST_CHECKED;
}

void User::click(HWND window, const std::string& button) const {
    const unsigned before = waits_;
    PostThreadMessageA(thread_, WM_NULL, 0, 0);
    waitUntil("the last command to end", [&] { return waits_ != before; });
    const HWND pressed = control(window, "Button", button);
    waitUntil(button + " to take input", [&] { return IsWindowEnabled(window) && IsWindowEnabled(pressed); });
    PostMessageA(pressed, BM_CLICK, 0, 0);
}

void User::press(HWND control, int keyCode) {
    PostMessageA(control, WM_KEYDOWN, static_cast<WPARAM>(keyCode), 1);
    PostMessageA(control, WM_KEYUP, static_cast<WPARAM>(keyCode), static_cast<LPARAM>(0xC0000001));
}

std::string User::answer(const std::string& title, int button) const {
    constexpr int textNumber = 0xFFFF;
    const HWND asked = box(title);
    const std::string words = text(GetDlgItem(asked, textNumber));
    PostMessageA(asked, WM_COMMAND, static_cast<WPARAM>(button), 0);
    waitUntil("the box " + title + " to go", [asked] { return !IsWindow(asked); });
    return words;
}

std::string User::chooseFile(const std::string& title, const std::string& path) const {
    constexpr int nameField = 0x47C;
    const HWND dialog = box(title);
    ask(dialog, WM_NULL); // it fills itself first
    const std::string proposed = text(GetDlgItem(dialog, nameField));
    ask(GetDlgItem(dialog, nameField), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    waitUntil("the dialog " + title + " to go", [dialog] {
        const HWND asks = IsWindow(dialog) ? GetLastActivePopup(dialog) : nullptr;
        if (asks && asks != dialog) PostMessageA(asks, WM_COMMAND, IDYES, 0); // a new file?
        return !IsWindow(dialog);
    });
    return proposed;
}

void User::waitForText(HWND window, const std::string& className, const std::string& text) {
    control(window, className, text);
}

void User::waitUntil(const std::string& what, const std::function<bool()>& isSo) {
    const DWORD start = GetTickCount();
    while (!isSo()) {
        if (GetTickCount() - start > patience) throw std::runtime_error("waited in vain for " + what);
        Sleep(5);
    }
}

} // namespace corvelle::formatter::tests
