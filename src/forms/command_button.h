#pragma once

#include "forms/captioned.h"

namespace corvelle::forms {

/// A push button. Enter presses the form's default button, Esc its cancel button.
class CommandButton : public Captioned {
  public:
    CommandButton(Form& form, std::string name, Control* container = nullptr)
        : Captioned(form, ControlKind::CommandButton, std::move(name), container) {}
};

} // namespace corvelle::forms
