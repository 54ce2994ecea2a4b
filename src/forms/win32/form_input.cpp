#include "forms/win32/form_window.h"
#include "forms/win32/win32_desktop.h"

#include <utility>

// The keyboard and the focus of a form's window.
namespace corvelle::forms {

namespace {

// The button's own style besides being the default one or not.
constexpr WPARAM buttonStyle = BS_NOTIFY | BS_MULTILINE;

} // namespace

bool FormWindow::takeKey(MSG& message) {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST || !message.hwnd) return false;
    FormWindow* const form = of(GetAncestor(message.hwnd, GA_ROOT));
    if (!form) return false;
    const Serving serving(*form);
    return form->desktop_.guarded(true, [&] { return form->key(message); });
}

bool FormWindow::key(MSG& message) {
    if (!form_) return false;
    if (message.message == WM_KEYDOWN) {
        const ControlWindow* const at = find(message.hwnd);
        const bool controls = at && (at->wantsKey(static_cast<int>(message.wParam)) ||
                                     (message.wParam == VK_RETURN && at->control().takesEnter()));
        switch (message.wParam) {
        case VK_TAB:
            form_->keyboard().moveOn(GetKeyState(VK_SHIFT) < 0);
            return true;
        case VK_RETURN:
            if (controls) break;
            form_->keyboard().pressEnter();
            return true;
        case VK_ESCAPE:
            if (controls) break;
            form_->keyboard().pressEscape();
            return true;
        default:
            break;
        }
        // Arrows, where the control has no use for them itself.
        if (!controls && IsDialogMessageA(window_, &message)) return true;
    }
    if (message.message == WM_SYSCHAR &&
        form_->keyboard().pressAccelerator(static_cast<char>(message.wParam)))
        return true;
    TranslateMessage(&message);
    DispatchMessageA(&message);
    return true;
}

void FormWindow::keyReleased(int keyCode) {
    if (form_) form_->userReleasedKey(keyCode);
}

void FormWindow::focus(Control& control) {
    ControlWindow* const found = find(control);
    if (!found || !found->canTakeFocus()) return;
    const Serving serving(*this);
    if (isActive() && IsWindowVisible(window_)) {
        SetFocus(found->window());
    } else {
        focusArrived(control); // it gets the keyboard when the window becomes the active one
    }
}

void FormWindow::focusArrived(Control& control) {
    if (form_) form_->keyboard().arrived(control);
}

void FormWindow::focusMoved() {
    const Control* const focused = form_->keyboard().focused();
    if (const ControlWindow* const at = focused ? find(*focused) : nullptr) scrollIntoView(at->window());
    showDefaultButton();
}

void FormWindow::focusNone() {
    SetFocus(window_);
}

bool FormWindow::isActive() const {
    return window_ && GetActiveWindow() == window_;
}

// The button that Enter presses is drawn so.
void FormWindow::showDefaultButton() {
    const Control* const pressed = form_->keyboard().enterButton();
    for (const auto& control : controls_) {
        if (control->control().kind() != ControlKind::CommandButton) continue;
        const WPARAM style =
            buttonStyle | (&control->control() == pressed ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
        const auto now = static_cast<WPARAM>(GetWindowLongPtrA(control->window(), GWL_STYLE)) & 0xFFFFU;
        if (now != style) SendMessageA(control->window(), BM_SETSTYLE, style, TRUE);
    }
}

// The mouse over a form's window and its controls.

bool FormWindow::mouse(HWND window, UINT message, LPARAM place, bool clickable) {
    POINT at{static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
    switch (message) {
    case WM_MOUSEMOVE: {
        ClientToScreen(window, &at);
        if (at.x == lastMouse_.x && at.y == lastMouse_.y)
            break; // the window moved, or changed, under the mouse
        lastMouse_ = at;
        Control* const control = under(at);
        if (control) {
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
        if (!control) {
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
        return control ? &control->control() : nullptr;
    }
    Control* found = nullptr;
    HWND parent = window_;
    for (;;) {
        POINT inside = place;
        ScreenToClient(parent, &inside);
        const HWND child = ChildWindowFromPointEx(parent, inside, CWP_SKIPINVISIBLE);
        const ControlWindow* const control = !child || child == parent ? nullptr : find(child);
        if (!control) return found;
        found = &control->control();
        parent = child;
    }
}

} // namespace corvelle::forms
