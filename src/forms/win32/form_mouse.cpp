// The mouse over a form's window and its controls.

#include "forms/win32/form_window.h"

#include <utility>

namespace corvelle::forms {

bool FormWindow::mouse(HWND window, UINT message, LPARAM place, bool clickable) {
    POINT at{static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
    switch (message) {
    case WM_MOUSEMOVE: {
        ClientToScreen(window, &at);
        if (at.x == lastMouse_.x && at.y == lastMouse_.y)
            break; // the window moved, or changed, under the mouse
        lastMouse_ = at;
        Control* const control = under(at);
        if (control != nullptr) {
            control->userMovedMouse();
        } else {
            form_->userMovedMouse();
        }
        break;
    }
    case WM_LBUTTONDOWN:
        if (!clickable) return false;
        pressed_ = window;
        SetCapture(window);
        break;
    case WM_LBUTTONUP: {
        if (!clickable) return false;
        const bool wasPressed = std::exchange(pressed_, nullptr) == window;
        if (GetCapture() == window) ReleaseCapture();
        RECT inside{};
        GetClientRect(window, &inside);
        if (!wasPressed || !PtInRect(&inside, at)) break;
        ControlWindow* const control = find(window);
        if (control == nullptr) {
            form_->userClicked();
        } else if (control->control().reachable()) {
            control->control().userClicked();
        }
        break;
    }
    case WM_CAPTURECHANGED:
        if (pressed_ == window) pressed_ = nullptr;
        return false;
    default:
        break;
    }
    return clickable;
}

// Also a disabled control is found: the window system would skip it. What has the mouse keeps it while a
// button is down.
Control* FormWindow::under(POINT place) const {
    if (const HWND captor = GetCapture()) {
        const ControlWindow* const control = find(captor);
        return control == nullptr ? nullptr : &control->control();
    }
    Control* found = nullptr;
    HWND parent = window_;
    for (;;) {
        POINT inside = place;
        ScreenToClient(parent, &inside);
        const HWND child = ChildWindowFromPointEx(parent, inside, CWP_SKIPINVISIBLE);
        const ControlWindow* const control = child == nullptr || child == parent ? nullptr : find(child);
        if (control == nullptr) return found;
        found = &control->control();
        parent = child;
    }
}

} // namespace corvelle::forms
