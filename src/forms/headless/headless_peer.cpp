#include "forms/headless/headless_peer.h"

#include "forms/surface.h"

namespace corvelle::forms {

HeadlessPeer::~HeadlessPeer() {
    desktop_.remove(form_);
}

void HeadlessPeer::controlChanged(Control& control, Aspect aspect) {
    if (aspect == Aspect::Bounds) sizeSurface(control);
}

void HeadlessPeer::focus(Control& control) {
    if (focused_ == &control) return;
    Control* const before = focused_;
    focused_ = &control;
    if (before != nullptr) before->userLeft();
    if (focused_ == &control) control.userFocused();
}

void HeadlessPeer::sizeSurface(Control& control) {
    constexpr int twipsPerPixel = 15;
    if (control.kind() != ControlKind::Surface) return;
    static_cast<Surface&>(control).userResized(control.bounds().width / twipsPerPixel,
                                               control.bounds().height / twipsPerPixel);
}

} // namespace corvelle::forms
