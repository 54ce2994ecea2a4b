#include "forms/win32/form_window.h"

#include "base/run_time_error.h"
#include "forms/controls.h"
#include "forms/win32/win32_desktop.h"

#include <utility>

namespace corvelle::forms {

namespace {

constexpr int firstControlNumber = 100;

struct WindowFrame {
    DWORD style, extendedStyle;
};

WindowFrame frameOf(BorderStyle style) {
    constexpr DWORD dialog = WS_POPUP | WS_CLIPCHILDREN | WS_CAPTION;
    switch (style) {
    case BorderStyle::Sizable:
        return {dialog | WS_SYSMENU | WS_THICKFRAME | WS_MAXIMIZEBOX, WS_EX_CONTROLPARENT};
    case BorderStyle::FixedWithoutCloseBox:
        return {dialog, WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME};
    case BorderStyle::FixedDialog:
        break;
    }
    return {dialog | WS_SYSMENU, WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME};
}

BOOL CALLBACK releaseIfOwned(HWND window, LPARAM going) {
    const HWND owner = reinterpret_cast<HWND>(going);
    if (GetWindow(window, GW_OWNER) != owner || !FormWindow::of(window)) return TRUE;
    SetWindowLongPtrA(window, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(GetWindow(owner, GW_OWNER)));
    return TRUE;
}

} // namespace

FormWindow* FormWindow::of(HWND top) {
    if (!top || reinterpret_cast<WNDPROC>(GetClassLongPtrA(top, GCLP_WNDPROC)) != &procedure) {
        return nullptr;
    }
    return reinterpret_cast<FormWindow*>(GetWindowLongPtrA(top, GWLP_USERDATA));
}

FormWindow::~FormWindow() {
    destroy();
}

// Making and destroying

void FormWindow::make() {
    const WindowFrame frame = frameOf(form_->borderStyle());
    window_ =
        CreateWindowExA(frame.extendedStyle, desktop_.formClass(), form_->caption().c_str(), frame.style,
                        CW_USEDEFAULT, CW_USEDEFAULT, 0, 0, nullptr, nullptr, desktop_.module(), nullptr);
    if (!window_) throw base::RunTimeError(base::ErrorNumber::OutOfMemory);
    setClientSize();
    if (form_->borderStyle() == BorderStyle::FixedDialog) {
        const HMENU menu = GetSystemMenu(window_, FALSE);
        for (const UINT command : {SC_RESTORE, SC_SIZE, SC_MINIMIZE, SC_MAXIMIZE}) {
            DeleteMenu(menu, command, MF_BYCOMMAND);
        }
    }
    makeControls();
    showIcon();
    showDefaultButton();
    // As in all VB windows the accelerators are underlined from the start.
    SendMessageA(window_, WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS), 0);
    RECT inside{};
    GetClientRect(window_, &inside);
    client_ = {inside.right, inside.bottom};
    desktop_.add(*this);
    SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this)); // from here on it listens
    for (const auto& control : controls_) {
        if (form_->isLoaded()) control->start();
    }
}

void FormWindow::makeControls() {
    int number = firstControlNumber;
    for (Control* control : form_->controls()) {
        HWND parent = window_;
        if (control->container()) {
            if (const ControlWindow* const frame = find(*control->container())) parent = frame->window();
        }
        controls_.push_back(ControlWindow::make(*this, *control));
        controls_.back()->create(parent, number++);
    }
}

void FormWindow::detach() {
    if (!form_) return;
    Form& form = *form_;
    form_ = nullptr;
    late_.clear();
    desktop_.remove(*this);
    const bool wasModeless = state_.isModeless();
    state_.hide();
    countAsModeless(wasModeless);
    desktop_.endModal(form);
    if (!window_ || beingDestroyed_) return;
    releaseOwned();
    handFocusOn();
    ShowWindow(window_, SW_HIDE);
    gone_ = true;
    if (serving_ == 0) destroy();
}

void FormWindow::destroy() {
    gone_ = false;
    if (!window_) return;
    const HWND window = window_;
    window_ = nullptr;
    SetWindowLongPtrA(window, GWLP_USERDATA, 0);
    DestroyWindow(window);
}

FormWindow::Serving::~Serving() {
    if (--window_->serving_ == 0 && window_->gone_) window_->destroy();
}

// Windows that belong to this one must not go with it.
void FormWindow::releaseOwned() {
    // There may be no memory for a list of them.
    EnumThreadWindows(GetCurrentThreadId(), releaseIfOwned, reinterpret_cast<LPARAM>(window_));
}

ControlWindow* FormWindow::find(const Control& control) const {
    for (const auto& window : controls_) {
        if (&window->control() == &control) return window.get();
    }
    return nullptr;
}

ControlWindow* FormWindow::find(HWND window) const {
    for (const auto& control : controls_) {
        if (control->window() == window) return control.get();
    }
    return nullptr;
}

HWND FormWindow::windowOf(const Control& control) const {
    const ControlWindow* const found = find(control);
    return found ? found->window() : window_;
}

// What the form asks for

void FormWindow::show() {
    if (!window_) return;
    const Serving serving(*this);
    desktop_.flush();
    HWND owner = modalOwner_ ? *modalOwner_ : desktop_.ownerNow(window_);
    // A modeless window belongs to the host's, not to one of ours that may go before it.
    if (!modalOwner_ && owner) owner = GetAncestor(owner, GA_ROOTOWNER);
    if (owner && owner != window_ && of(owner) == this) owner = nullptr;
    SetWindowLongPtrA(window_, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
    const bool first = !state_.wasShown();
    const bool wasModeless = state_.isModeless();
    state_.show(modalOwner_.has_value());
    countAsModeless(wasModeless);
    if (first) placeOver(owner);
    state_.activating(IsWindowEnabled(window_) != FALSE);
    if (state_.focusIsDue()) {
        ShowWindow(window_, SW_SHOWNOACTIVATE);
        if (first) laidOut();
        return;
    }
    ShowWindow(window_, SW_SHOW);
    SetForegroundWindow(window_);
    SetActiveWindow(window_);
    state_.activated();
    if (first && form_) laidOut();
    if (form_) form_->userActivated();
    if (form_ && GetFocus() == window_) form_->keyboard().restore();
}

void FormWindow::hide() {
    if (!window_) return;
    const Serving serving(*this);
    const bool wasModeless = state_.isModeless();
    state_.hide();
    countAsModeless(wasModeless);
    desktop_.endModal(*form_);
    modalOwner_.reset();
    handFocusOn();
    ShowWindow(window_, SW_HIDE);
}

void FormWindow::countAsModeless(bool before) {
    const int more = static_cast<int>(state_.isModeless()) - static_cast<int>(before);
    if (more != 0) desktop_.modelessShown(more);
}

// Before this window goes another one gets the focus; they take input again already.
void FormWindow::handFocusOn() {
    if (GetActiveWindow() != window_) return;
    if (const FormWindow* const waiting = desktop_.waitingForFocus()) {
        SetActiveWindow(waiting->window());
        return;
    }
    const HWND owner = GetWindow(window_, GW_OWNER);
    if (owner && IsWindowVisible(owner) && IsWindowEnabled(owner)) SetActiveWindow(owner);
}

bool FormWindow::waitsForFocus() const {
    return state_.focusIsDue() && IsWindowVisible(window_) && IsWindowEnabled(window_);
}

void FormWindow::bringToFront() {
    const Serving serving(*this);
    SetForegroundWindow(window_);
    SetActiveWindow(window_);
}

void FormWindow::formChanged(FormAspect aspect) {
    if (!window_) return;
    switch (aspect) {
    case FormAspect::Caption:
        SetWindowTextA(window_, form_->caption().c_str());
        break;
    case FormAspect::Icon:
        showIcon();
        break;
    case FormAspect::MousePointer: {
        POINT place{};
        GetCursorPos(&place);
        const HWND under = WindowFromPoint(place);
        if (under == window_ || IsChild(window_, under)) {
            SendMessageA(under, WM_SETCURSOR, reinterpret_cast<WPARAM>(under),
                         MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        }
        break;
    }
    case FormAspect::Size:
        setClientSize();
        break;
    case FormAspect::Enabled:
        EnableWindow(window_, form_->enabled());
        break;
    }
}

void FormWindow::controlChanged(Control& control, Aspect aspect) {
    ControlWindow* const found = find(control);
    if (!found || !found->window()) return;
    const Serving serving(*this);
    found->update(aspect);
}

void FormWindow::showIcon() {
    const std::string& icon = form_->icon().name();
    for (const auto& [kind, metric] : {std::pair{ICON_SMALL, SM_CXSMICON}, std::pair{ICON_BIG, SM_CXICON}}) {
        const HICON image = icon.empty() ? nullptr : desktop_.gdi().icon(icon, GetSystemMetrics(metric));
        SendMessageA(window_, WM_SETICON, static_cast<WPARAM>(kind), reinterpret_cast<LPARAM>(image));
    }
}

// Late text

void FormWindow::textIsLate(ControlWindow& control) {
    late_.push_back(&control);
    desktop_.textIsLate();
}

void FormWindow::writeLateText() {
    while (!late_.empty()) {
        late_.back()->writeLateText();
        late_.pop_back();
    }
}

} // namespace corvelle::forms
