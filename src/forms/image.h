#pragma once

#include "forms/control.h"
#include "forms/picture.h"

#include <utility>

namespace corvelle::forms {

/// Shows a picture, fitted into its bounds. Has no window of its own and takes no focus.
class Image : public Control {
  public:
    Image(Form& form, std::string name, Control* container = nullptr)
        : Control(form, ControlKind::Image, std::move(name), container) {}

    const Picture& picture() const { return touch(), picture_; }
    void setPicture(const Picture& picture) { change(picture_, picture, Aspect::Picture); }

    void reset() override {
        Control::reset();
        picture_ = Picture();
    }

  private:
    Picture picture_;
};

} // namespace corvelle::forms
