// The keyboard and the focus of a form's window.

#include "forms/win32/form_window.h"
#include "forms/win32/win32_desktop.h"

#include <algorithm>
#include <vector>

namespace corvelle::forms {

namespace {

// The button's own style besides being the default one or not.
constexpr WPARAM buttonStyle = BS_NOTIFY | BS_MULTILINE;

} // namespace

bool FormWindow::takeKey(MSG& message) {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST || message.hwnd == nullptr)
        return false;
    FormWindow* const form = of(GetAncestor(message.hwnd, GA_ROOT));
    if (form == nullptr) return false;
    const Serving serving(*form);
    return form->desktop_.guarded(true, [&] { return form->key(message); });
}

bool FormWindow::key(MSG& message) {
    if (form_ == nullptr) return false;
    if (message.message == WM_KEYDOWN) {
        const ControlWindow* const at = find(message.hwnd);
        const bool controls = at != nullptr && at->wantsKey(static_cast<int>(message.wParam));
        switch (message.wParam) {
        case VK_TAB:
            focusNext(at, GetKeyState(VK_SHIFT) < 0);
            return true;
        case VK_RETURN:
            if (!controls) return pressEnter();
            break;
        case VK_ESCAPE:
            if (!controls) return pressEscape();
            break;
        default:
            break;
        }
        // Arrows, where the control has no use for them itself.
        if (!controls && IsDialogMessageA(window_, &message)) return true;
    }
    if (message.message == WM_SYSCHAR && pressAccelerator(static_cast<char>(message.wParam))) return true;
    TranslateMessage(&message);
    DispatchMessageA(&message);
    return true;
}

bool FormWindow::pressEnter() {
    Control* const at = focused_;
    Control* const button =
        at != nullptr && at->kind() == ControlKind::CommandButton ? at : form_->defaultButton();
    if (button != nullptr && button->reachable()) button->userClicked();
    return true;
}

bool FormWindow::pressEscape() {
    Control* const button = form_->cancelButton();
    if (button != nullptr && button->reachable()) button->userClicked();
    return true;
}

void FormWindow::keyReleased(int keyCode) {
    if (form_ != nullptr) form_->userReleasedKey(keyCode);
}

void FormWindow::focus(Control& control) {
    ControlWindow* const found = find(control);
    if (found == nullptr || !found->canTakeFocus()) return;
    const Serving serving(*this);
    if (GetActiveWindow() == window_ && IsWindowVisible(window_)) {
        SetFocus(found->window());
    } else {
        focusArrived(*found); // it gets the keyboard when the window becomes the active one
    }
}

void FormWindow::focusArrived(ControlWindow& window) {
    Control& control = window.control();
    if (form_ == nullptr || focused_ == &control) return;
    Control* const before = focused_;
    focused_ = &control;
    scrollIntoView(window.window());
    showDefaultButton();
    if (before != nullptr) before->userLeft();
    if (form_ != nullptr && focused_ == &control) control.userFocused();
}

void FormWindow::restoreFocus() {
    const ControlWindow* const at = focused_ == nullptr ? nullptr : find(*focused_);
    if (at != nullptr && at->canTakeFocus()) {
        SetFocus(at->window());
    } else {
        focusNext(at, false);
    }
}

// Where several controls have the letter, the focus goes from one to the next and none is clicked.
bool FormWindow::pressAccelerator(char letter) {
    std::vector<const ControlWindow*> found;
    for (const auto& control : controls_) {
        if (control->control().reachable() && control->hasAccelerator(letter)) found.push_back(control.get());
    }
    if (found.empty()) return false;
    const ControlWindow* const at = focused_ == nullptr ? nullptr : find(*focused_);
    auto next = std::find(found.begin(), found.end(), at);
    next = next == found.end() || next + 1 == found.end() ? found.begin() : next + 1;
    const ControlWindow& target = **next;
    if (!target.takesFocus()) { // a label's or a frame's stands for the control that follows
        focusNext(&target, false);
        return true;
    }
    SetFocus(target.window());
    if (found.size() == 1 && form_ != nullptr && target.control().reachable()) target.control().userClicked();
    return true;
}

// A control that has been disabled or hidden hands the focus on: else the keyboard would be dead.
void FormWindow::leaveUnreachable() {
    if (focused_ == nullptr || focused_->reachable() || GetActiveWindow() != window_) return;
    const ControlWindow* const at = find(*focused_);
    focusNext(at, false);
    if (form_ == nullptr || at == nullptr || focused_ != &at->control()) return;
    focused_ = nullptr; // there is nowhere to go
    SetFocus(window_);
    at->control().userLeft();
}

void FormWindow::focusNext(const ControlWindow* from, bool back) {
    const auto count = controls_.size();
    if (count == 0) return;
    std::size_t at = back ? 0 : count - 1;
    for (std::size_t i = 0; i < count; ++i) {
        if (controls_[i].get() == from) at = i;
    }
    for (std::size_t step = 1; step <= count; ++step) {
        const std::size_t i = back ? (at + count - step) % count : (at + step) % count;
        if (!controls_[i]->canTakeFocus()) continue;
        SetFocus(controls_[i]->window());
        return;
    }
}

// The button that Enter presses is drawn so: the one with the focus, else the form's default button.
void FormWindow::showDefaultButton() {
    const Control* const pressed = focused_ != nullptr && focused_->kind() == ControlKind::CommandButton
                                       ? focused_
                                       : form_->defaultButton();
    for (const auto& control : controls_) {
        if (control->control().kind() != ControlKind::CommandButton) continue;
        const WPARAM style =
            buttonStyle | (&control->control() == pressed ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
        const auto now = static_cast<WPARAM>(GetWindowLongPtrA(control->window(), GWL_STYLE)) & 0xFFFFU;
        if (now != style) SendMessageA(control->window(), BM_SETSTYLE, style, TRUE);
    }
}

} // namespace corvelle::forms
