#include "forms/headless/headless_peer.h"

#include "forms/surface.h"

#include <algorithm>
#include <utility>

namespace corvelle::forms {

HeadlessPeer::HeadlessPeer(HeadlessDesktop& desktop, Form& form) : desktop_(desktop), form_(form) {
    desktop_.loaded_.push_back(&form_);
}

HeadlessPeer::~HeadlessPeer() {
    auto& loaded = desktop_.loaded_;
    loaded.erase(std::find(loaded.begin(), loaded.end(), &form_));
    desktop_.remove(form_);
}

void HeadlessPeer::show() {
    const std::weak_ptr<const bool> life = life_;
    if (!std::exchange(shown_, true)) form_.userResized(form_.size());
    if (!life.expired() && form_.visible()) desktop_.raise(form_);
}

void HeadlessPeer::formChanged(FormAspect aspect) {
    // Code that sizes a window causes the same messages as the user's dragging.
    if (aspect == FormAspect::Size) form_.userResized(form_.size());
}

void HeadlessPeer::controlChanged(Control& control, Aspect aspect) {
    if (aspect == Aspect::Bounds) return sizeSurface(control);
    if (aspect != Aspect::Enabled && aspect != Aspect::Visible) return;
    if (focused_ != nullptr && !focused_->reachable() && desktop_.active() == &form_) focusNext();
}

void HeadlessPeer::focus(Control& control) {
    if (focused_ == &control || !takesFocus(control)) return;
    const std::weak_ptr<const bool> life = life_;
    Control* const before = focused_;
    focused_ = &control;
    if (before != nullptr) before->userLeft();
    if (!life.expired() && focused_ == &control) control.userFocused();
}

void HeadlessPeer::restoreFocus() {
    if (focused_ == nullptr || !focused_->reachable()) focusNext();
}

void HeadlessPeer::focusNext() {
    const auto& controls = form_.controls();
    const auto reachable = [](const Control* control) {
        return takesFocus(*control) && control->reachable();
    };
    const auto here = std::find(controls.begin(), controls.end(), focused_);
    auto next = std::find_if(here, controls.end(), reachable);
    if (next == controls.end()) next = std::find_if(controls.begin(), here, reachable);
    if (next != here && next != controls.end()) return focus(**next);
    Control* const before = std::exchange(focused_, nullptr); // there is nowhere to go
    if (before != nullptr) before->userLeft();
}

void HeadlessPeer::sizeSurface(Control& control) {
    constexpr int twipsPerPixel = 15;
    if (control.kind() != ControlKind::Surface) return;
    static_cast<Surface&>(control).userResized(control.bounds().width / twipsPerPixel,
                                               control.bounds().height / twipsPerPixel);
}

bool HeadlessPeer::takesFocus(const Control& control) {
    switch (control.kind()) {
    case ControlKind::Label:
    case ControlKind::Frame:
    case ControlKind::Image:
    case ControlKind::Surface:
        return false;
    default:
        return true;
    }
}

} // namespace corvelle::forms
