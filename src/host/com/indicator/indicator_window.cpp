#include "host/com/indicator/indicator_window.h"

#include "base/run_time_error.h"
#include "forms/win32/gdi.h"

#include <cstdint>
#include <string>

namespace corvelle::host {

namespace {

std::string className(const void* window) {
    return "Corvelle.Indicator." + std::to_string(reinterpret_cast<std::uintptr_t>(window));
}

} // namespace

IndicatorWindow::IndicatorWindow(HINSTANCE module, HWND parent, ui::IndicatorHome& home)
    : home_(home), class_(module, className(this), procedure, nullptr) {
    window_ = CreateWindowExA(0, class_.name(), "", WS_CHILD | WS_CLIPSIBLINGS, 0, 0, 0, 0, parent, nullptr,
                              module, nullptr);
    if (!window_) throw base::RunTimeError(base::ErrorNumber::OutOfMemory);
    SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

IndicatorWindow::~IndicatorWindow() {
    if (!window_) return;
    SetWindowLongPtrA(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

void IndicatorWindow::place(const RECT& position, const RECT* clip) {
    const int width = position.right - position.left, height = position.bottom - position.top;
    RECT seen = position;
    if (clip) IntersectRect(&seen, &position, clip); // leaves an empty one where they do not meet
    HRGN region = nullptr;
    if (!EqualRect(&seen, &position)) {
        OffsetRect(&seen, static_cast<int>(-position.left), static_cast<int>(-position.top));
        if (IsRectEmpty(&seen)) SetRectEmpty(&seen);
        region = CreateRectRgnIndirect(&seen);
    }
    if (!SetWindowRgn(window_, region, TRUE) && region) DeleteObject(region);
    SetWindowPos(window_, nullptr, position.left, position.top, width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void IndicatorWindow::hide() {
    ShowWindow(window_, SW_HIDE);
}

void IndicatorWindow::redraw() {
    if (!window_) return; // it would be every window of the screen
    InvalidateRect(window_, nullptr, FALSE);
    UpdateWindow(window_);
}

void IndicatorWindow::paint() {
    PAINTSTRUCT paint;
    const HDC device = BeginPaint(window_, &paint);
    const forms::Canvas& canvas = home_.canvas();
    forms::drawCanvas(device, canvas, {0, 0, canvas.width(), canvas.height()});
    EndPaint(window_, &paint);
}

LRESULT CALLBACK IndicatorWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const self = reinterpret_cast<IndicatorWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (!self) return DefWindowProcA(window, message, wParam, lParam);
    switch (message) {
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        self->paint();
        return 0;
    case WM_NCDESTROY:
        self->window_ = nullptr;
        break;
    case WM_MOUSEACTIVATE:
        if (const auto handler = self->onPress) handler(); // a copy: the window may go
        break;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        if (const auto handler = self->onFocus) handler(message == WM_SETFOCUS);
        break;
    default:
        break;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

} // namespace corvelle::host
