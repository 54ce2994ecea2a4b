#pragma once

#include "forms/captioned.h"

namespace corvelle::forms {

/// A titled box that contains other controls. Disabling it disables them.
class Frame : public Captioned {
  public:
    Frame(Form& form, std::string name, Control* container = nullptr)
        : Captioned(form, ControlKind::Frame, std::move(name), container) {}
};

} // namespace corvelle::forms
