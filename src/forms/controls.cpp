#include "forms/controls.h"

#include "base/text.h"
#include "forms/desktop.h"
#include "forms/form.h"

namespace corvelle::forms {

bool Captioned::hasAccelerator(char letter) const {
    if (!useMnemonic()) return false;
    const std::string& text = caption();
    for (auto i = text.find('&'); i != std::string::npos && i + 1 < text.size(); i = text.find('&', i + 2)) {
        if (text[i + 1] != '&') return base::upper(text[i + 1]) == base::upper(letter);
    }
    return false;
}

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
