#include "forms/surface.h"

#include "forms/desktop.h"
#include "forms/form.h"

namespace corvelle::forms {

void Surface::userResized(int width, int height) {
    if (sized_ && canvas_.width() == width && canvas_.height() == height) return;
    sized_ = true;
    canvas_.resize(width, height, form().desktop().resolve(backColor()));
    raise(onResize);
}

void Surface::reset() {
    Control::reset();
    canvas_ = Canvas();
    sized_ = false;
    if (onReset) onReset();
}

} // namespace corvelle::forms
