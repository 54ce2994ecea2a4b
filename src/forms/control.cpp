#include "forms/control.h"

#include "forms/form.h"

#include <utility>

namespace corvelle::forms {

Control::Control(Form& form, ControlKind kind, std::string name, Control* container)
    : form_(form), kind_(kind), name_(std::move(name)), container_(container) {
    form.add(*this);
}

bool Control::takesFocus() const {
    switch (kind_) {
    case ControlKind::Label:
    case ControlKind::Frame:
    case ControlKind::Image:
    case ControlKind::Surface:
        return false;
    default:
        return true;
    }
}

void Control::setFocus() {
    touch();
    if (reachable()) form_.focus(*this);
}

bool Control::reachable() const {
    touch();
    for (const Control* control = this; control; control = control->container_) {
        if (!control->base_.visible || !control->base_.enabled) return false;
    }
    return true;
}

void Control::userMovedMouse() {
    // Over a disabled control the form gets the mouse.
    for (const Control* control = this; control; control = control->container_) {
        if (!control->base_.enabled) return form_.userMovedMouse();
    }
    raise(onMouseMove);
}

void Control::reset() {
    base_ = Properties();
    base_.backColor = plainBackColor();
    base_.foreColor = plainForeColor();
}

void Control::touch() const {
    form_.load();
}

void Control::raise(const std::function<void()>& handler) {
    if (handler && form_.raisesEvents()) form_.run(handler);
}

void Control::changed(Aspect aspect) {
    form_.controlChanged(*this, aspect);
}

} // namespace corvelle::forms
