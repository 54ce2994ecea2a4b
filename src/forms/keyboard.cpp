#include "forms/keyboard.h"

#include "forms/controls.h"
#include "forms/form.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace corvelle::forms {

namespace {

bool hasAccelerator(const Control& control, char letter) {
    const auto* const captioned = dynamic_cast<const Captioned*>(&control);
    return captioned && captioned->hasAccelerator(letter);
}

} // namespace

Control* Keyboard::enterButton() const {
    return focused_ && focused_->kind() == ControlKind::CommandButton ? focused_ : form_.defaultButton();
}

void Keyboard::arrived(Control& control) {
    if (focused_ == &control) return;
    const auto alive = form_.shared_from_this();
    Control* const before = std::exchange(focused_, &control);
    if (FormPeer* const peer = form_.peer()) peer->focusMoved();
    if (before) before->userLeft();
    if (focused_ == &control) control.userFocused();
}

void Keyboard::restore() {
    if (!focused_ || !focused_->reachable()) return moveAway();
    bring(focused_);
}

void Keyboard::leaveUnreachable() {
    FormPeer* const peer = form_.peer();
    if (!focused_ || focused_->reachable() || !peer || !peer->isActive()) return;
    moveAway();
}

void Keyboard::moveOn(bool back) {
    bring(next(focused_, back));
}

bool Keyboard::bring(Control* control) {
    FormPeer* const peer = form_.peer();
    if (!control || !peer) return false;
    peer->focus(*control);
    return true;
}

void Keyboard::moveAway() {
    FormPeer* const peer = form_.peer();
    if (!peer || bring(next(focused_, false))) return;
    const auto alive = form_.shared_from_this();
    Control* const before = std::exchange(focused_, nullptr); // there is nowhere to go
    if (!before) return;
    peer->focusNone();
    before->userLeft();
}

Control* Keyboard::next(const Control* from, bool back) const {
    const auto& controls = form_.controls();
    const std::size_t count = controls.size();
    std::size_t at = back ? 0 : count - 1;
    for (std::size_t i = 0; i < count; ++i) {
        if (controls[i] == from) at = i;
    }
    for (std::size_t step = 1; step <= count; ++step) {
        Control* const control = controls[back ? (at + count - step) % count : (at + step) % count];
        if (control->takesFocus() && control->reachable()) return control;
    }
    return nullptr;
}

bool Keyboard::press(Control* button) {
    if (!button || !button->reachable()) return false;
    button->userClicked();
    return true;
}

bool Keyboard::pressEnter() {
    return press(enterButton());
}

bool Keyboard::pressEscape() {
    return press(form_.cancelButton());
}

bool Keyboard::pressAccelerator(char letter) {
    std::vector<Control*> found;
    for (Control* const control : form_.controls()) {
        if (control->reachable() && hasAccelerator(*control, letter)) found.push_back(control);
    }
    if (found.empty() || !form_.peer()) return false;
    const auto alive = form_.shared_from_this();
    auto target = std::find(found.begin(), found.end(), focused_);
    target = target == found.end() || target + 1 == found.end() ? found.begin() : target + 1;
    Control& control = **target;
    if (!control.takesFocus()) {
        bring(next(&control, false));
        return true;
    }
    bring(&control);
    if (found.size() == 1 && form_.peer() && control.reachable()) control.userClicked();
    return true;
}

} // namespace corvelle::forms
