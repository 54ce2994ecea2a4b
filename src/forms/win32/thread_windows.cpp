#include "forms/win32/thread_windows.h"

#include "forms/form.h"
#include "forms/win32/form_window.h"

#include <new>
#include <utility>

namespace corvelle::forms {

namespace {

struct List {
    std::vector<HWND> windows;
    bool complete = true;
};

BOOL CALLBACK collect(HWND window, LPARAM parameter) {
    auto& list = *reinterpret_cast<List*>(parameter);
    try {
        list.windows.push_back(window);
        return TRUE;
    } catch (const std::bad_alloc&) { // nothing may get into the system's code
        list.complete = false;
        return FALSE;
    }
}

} // namespace

std::vector<HWND> threadWindows() {
    List found;
    EnumThreadWindows(GetCurrentThreadId(), collect, reinterpret_cast<LPARAM>(&found));
    if (!found.complete) throw std::bad_alloc();
    return found.windows;
}

namespace {

void setEnabled(HWND window, bool enabled) {
    FormWindow* const ours = FormWindow::of(window);
    if (ours && ours->form()) {
        ours->form()->setEnabled(enabled); // it tells its window
    } else {
        EnableWindow(window, enabled);
    }
}

} // namespace

DisabledWindows::DisabledWindows(HWND except) {
    for (HWND window : threadWindows()) {
        const bool counts = IsWindowVisible(window) || FormWindow::of(window);
        if (window == except || !counts || !IsWindowEnabled(window)) continue;
        windows_.push_back(window);
        setEnabled(window, false);
    }
}

void DisabledWindows::enable() {
    for (HWND window : std::exchange(windows_, {})) {
        if (IsWindow(window)) setEnabled(window, true);
    }
}

} // namespace corvelle::forms
