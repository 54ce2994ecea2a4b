#include "forms/win32/control_window.h"

#include "base/run_time_error.h"
#include "forms/win32/form_window.h"
#include "forms/win32/win32_desktop.h"

#include <algorithm>

namespace corvelle::forms {

ControlWindow::~ControlWindow() {
    if (!window_) return;
    SetWindowLongPtrA(window_, GWLP_USERDATA, 0);
    SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(native_));
}

RECT ControlWindow::place() const {
    const Scale& scale = form_.desktop().scale();
    const Bounds& bounds = control_.bounds();
    const POINT by = control_.container() ? POINT{} : form_.scrolledBy();
    return {scale.pixels(bounds.left) - by.x, scale.pixels(bounds.top) - by.y,
            std::max(scale.pixels(bounds.width), 0), std::max(scale.pixels(bounds.height), 0)};
}

void ControlWindow::create(HWND parent, int number) {
    const Native kind = native();
    const RECT at = place();
    DWORD style = WS_CHILD | kind.style;
    if ((kind.extendedStyle & WS_EX_TRANSPARENT) == 0) style |= WS_CLIPSIBLINGS;
    if (control_.visible()) style |= WS_VISIBLE;
    if (!control_.enabled()) style |= WS_DISABLED;
    if (control_.takesFocus()) style |= WS_TABSTOP;
    window_ = CreateWindowExA(
        kind.extendedStyle, kind.className, text().c_str(), style, at.left, at.top, at.right, at.bottom,
        parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(number)), form_.desktop().module(), nullptr);
    if (!window_) throw base::RunTimeError(base::ErrorNumber::OutOfMemory);
    SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    native_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ControlWindow::procedure)));
    update(Aspect::Font);
    created();
}

void ControlWindow::update(Aspect aspect) {
    switch (aspect) {
    case Aspect::Text:
        setText(text());
        break;
    case Aspect::Enabled:
        EnableWindow(window_, control_.enabled());
        break;
    case Aspect::Visible:
        ShowWindow(window_, control_.visible() ? SW_SHOWNA : SW_HIDE);
        break;
    case Aspect::Bounds: {
        const RECT at = place();
        SetWindowPos(window_, nullptr, at.left, at.top, at.right, at.bottom, SWP_NOZORDER | SWP_NOACTIVATE);
        break;
    }
    case Aspect::Font:
        send(WM_SETFONT, reinterpret_cast<WPARAM>(form_.desktop().gdi().font(control_.font())), TRUE);
        break;
    case Aspect::Colours:
        repaint();
        break;
    case Aspect::Picture:
    case Aspect::Value:
    case Aspect::Items:
    case Aspect::Drawing:
        break; // of the kinds that have them
    }
}

bool ControlWindow::canTakeFocus() const {
    return control_.takesFocus() && window_ && control_.reachable();
}

HBRUSH ControlWindow::colours(HDC device) const {
    const Win32Desktop& desktop = form_.desktop();
    SetTextColor(device, desktop.resolve(control_.foreColor()));
    const Colour back = desktop.resolve(control_.backColor());
    SetBkColor(device, back);
    return form_.desktop().gdi().brush(back);
}

void ControlWindow::setStyle(DWORD mask, DWORD style) {
    const auto now = static_cast<DWORD>(GetWindowLongPtrA(window_, GWL_STYLE));
    SetWindowLongPtrA(window_, GWL_STYLE, static_cast<LONG_PTR>((now & ~mask) | style));
}

std::string ControlWindow::windowText() const {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window_)) + 1, '\0');
    text.resize(
        static_cast<std::size_t>(GetWindowTextA(window_, text.data(), static_cast<int>(text.size()))));
    return text;
}

LRESULT ControlWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto native = [&] { return CallWindowProcA(native_, window_, message, wParam, lParam); };
    if (!form_.form()) return native();
    switch (message) {
    case WM_NCHITTEST:
        if (isPartOfForm()) return HTCLIENT;
        break;
    case WM_MOUSEMOVE:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_CAPTURECHANGED:
        if (form_.mouse(window_, message, lParam, isPartOfForm())) return 0;
        break;
    case WM_SETFOCUS: {
        const LRESULT result = native();
        form_.focusArrived(control_);
        return result;
    }
    case WM_KEYUP:
    case WM_SYSKEYUP:
        if (form_.form()->keyPreview()) form_.keyReleased(static_cast<int>(wParam));
        break;
    default:
        break;
    }
    return native();
}

LRESULT CALLBACK ControlWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const self = reinterpret_cast<ControlWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (!self) return DefWindowProcA(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrA(window, GWLP_USERDATA, 0);
        self->window_ = nullptr;
        return CallWindowProcA(self->native_, window, message, wParam, lParam);
    }
    const FormWindow::Serving serving(self->form_);
    return self->form_.desktop().guarded<LRESULT>(0, [&] { return self->handle(message, wParam, lParam); });
}

} // namespace corvelle::forms
