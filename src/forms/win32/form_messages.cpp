// The messages of a form's window, and when it is the active one.

#include "forms/win32/form_window.h"
#include "forms/win32/win32_desktop.h"

#include <algorithm>
#include <cstdlib>

namespace corvelle::forms {

namespace {

constexpr UINT activateLater = WM_APP; // the focus has come back from another window of the thread

} // namespace

LRESULT CALLBACK FormWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const self = reinterpret_cast<FormWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (!self) return DefWindowProcA(window, message, wParam, lParam);
    const Serving serving(*self);
    if (message == WM_NCDESTROY) { // somebody else's doing: with its owner, for one
        SetWindowLongPtrA(window, GWLP_USERDATA, 0);
        self->window_ = nullptr;
        self->beingDestroyed_.reset();
        return DefWindowProcA(window, message, wParam, lParam);
    }
    return self->desktop_.guarded<LRESULT>(0, [&] { return self->handle(message, wParam, lParam); });
}

LRESULT FormWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = window_;
    if (!form_) return DefWindowProcA(window, message, wParam, lParam);
    if ((message == WM_HSCROLL || message == WM_VSCROLL) && lParam == 0) { // the window's own bar
        scrolled(message == WM_VSCROLL ? SB_VERT : SB_HORZ, LOWORD(wParam));
        return 0;
    }
    LRESULT result = 0;
    if (reflect(message, wParam, lParam, result)) return result;
    switch (message) {
    case WM_DESTROY: // not by us, who listen no more then
        beingDestroyed_ = shared_from_this();
        form_->hostClosed(); // while its texts can still be read
        return 0;
    case WM_CLOSE:
        if (form_->borderStyle() != BorderStyle::FixedWithoutCloseBox) form_->userClosed();
        return 0;
    case WM_ACTIVATE:
        activated(LOWORD(wParam) != WA_INACTIVE, reinterpret_cast<HWND>(lParam));
        break;
    case activateLater:
        if (state_.mayRaise(desktop_.boxIsOpen())) form_->userActivated();
        return 0;
    case WM_SETFOCUS:
        if (!state_.isShowing()) form_->keyboard().restore();
        return 0;
    case WM_SIZE:
        if (wParam != SIZE_MINIMIZED) sized(LOWORD(lParam), HIWORD(lParam));
        return 0;
    case WM_GETMINMAXINFO:
        limitSize(*reinterpret_cast<MINMAXINFO*>(lParam));
        return 0;
    case WM_MOUSEWHEEL: {
        constexpr int linesPerStep = 3;
        const int steps = GET_WHEEL_DELTA_WPARAM(wParam) / WHEEL_DELTA;
        for (int line = 0; line < std::abs(steps) * linesPerStep; ++line)
            scrolled(SB_VERT, steps > 0 ? SB_LINEUP : SB_LINEDOWN);
        return 0;
    }
    case WM_MOUSEMOVE:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_CAPTURECHANGED:
        mouse(window, message, lParam, true);
        return 0;
    case WM_KEYUP:
    case WM_SYSKEYUP:
        keyReleased(static_cast<int>(wParam));
        break;
    case WM_SETCURSOR:
        if (LOWORD(lParam) == HTCLIENT && usesHourglass()) {
            SetCursor(LoadCursor(nullptr, IDC_WAIT));
            return TRUE;
        }
        break;
    case WM_SYSCOLORCHANGE:
        for (const auto& control : controls_) SendMessageA(control->window(), message, wParam, lParam);
        InvalidateRect(window, nullptr, TRUE);
        break;
    default:
        break;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

bool FormWindow::reflect(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case WM_COMMAND:
        if (ControlWindow* const from = find(reinterpret_cast<HWND>(lParam))) from->commanded(HIWORD(wParam));
        return true;
    case WM_HSCROLL:
        if (ControlWindow* const from = find(reinterpret_cast<HWND>(lParam))) from->scrolled(LOWORD(wParam));
        return true;
    case WM_NOTIFY: {
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        if (ControlWindow* const from = find(header.hwndFrom)) from->notified(header);
        return false;
    }
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
        if (const ControlWindow* const from = find(reinterpret_cast<HWND>(lParam))) {
            result = reinterpret_cast<LRESULT>(from->colours(reinterpret_cast<HDC>(wParam)));
            return true;
        }
        return false;
    default:
        return false;
    }
}

void FormWindow::sized(int width, int height) {
    if (client_.cx == width && client_.cy == height) return;
    client_ = {width, height};
    if (fitting_) return; // it is told once, at the end
    fitScrollBars();
    laidOut();
}

void FormWindow::laidOut() {
    const Scale& scale = desktop_.scale();
    const SIZE least = leastInside();
    form_->userResized({scale.twips(static_cast<int>(std::max(client_.cx, least.cx))),
                        scale.twips(static_cast<int>(std::max(client_.cy, least.cy)))});
}

bool FormWindow::usesHourglass() const {
    return form_->mousePointer() == MousePointer::Hourglass;
}

// Activation: an event when the focus comes back from another window of the thread, but not from a box of
// ours or from another program.

bool FormWindow::belongsToThread(HWND window) const {
    return window && GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
}

void FormWindow::activated(bool active, HWND other) {
    const bool another = belongsToThread(other) && !desktop_.boxIsOpen();
    if (!active) return state_.left(another);
    if (state_.came(another)) PostMessageA(window_, activateLater, 0, 0);
}

void FormWindow::boxesClosed() {
    if (state_.boxesClosed()) PostMessageA(window_, activateLater, 0, 0);
    if (waitsForFocus()) SetActiveWindow(window_);
}

} // namespace corvelle::forms
