#include "forms/win32/disabled_windows.h"

#include "forms/form.h"
#include "forms/win32/form_window.h"
#include "forms/win32/thread_windows.h"

#include <utility>

namespace corvelle::forms {

namespace {

void setEnabled(HWND window, bool enabled) {
    FormWindow* const ours = FormWindow::of(window);
    if (ours != nullptr && ours->form() != nullptr) {
        ours->form()->setEnabled(enabled); // it tells its window
    } else {
        EnableWindow(window, enabled);
    }
}

} // namespace

DisabledWindows::DisabledWindows(HWND except) {
    for (HWND window : threadWindows()) {
        const bool counts = IsWindowVisible(window) || FormWindow::of(window) != nullptr;
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
