#include "forms/headless/headless_peer.h"

#include "forms/controls.h"

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
    if (aspect == Aspect::Bounds) sizeSurface(control);
}

void HeadlessPeer::sizeSurface(Control& control) {
    constexpr int twipsPerPixel = 15;
    if (control.kind() != ControlKind::Surface) return;
    static_cast<Surface&>(control).userResized(control.bounds().width / twipsPerPixel,
                                               control.bounds().height / twipsPerPixel);
}

} // namespace corvelle::forms
