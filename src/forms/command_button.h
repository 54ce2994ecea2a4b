#pragma once

#include "forms/captioned.h"

#include <string>
#include <utility>

namespace corvelle::forms {

/// A push button. Enter presses the form's default button, Esc its cancel button.
class CommandButton : public Captioned {
  public:
    CommandButton(Form& form, std::string name, Control* container = nullptr)
        : Captioned(form, ControlKind::CommandButton, std::move(name), container) {}

    /// What a small window tells when the mouse rests on it; empty: nothing.
    const std::string& toolTipText() const { return touch(), toolTipText_; }
    void setToolTipText(std::string text) { touch(), toolTipText_ = std::move(text); }

    void reset() override {
        Captioned::reset();
        toolTipText_.clear();
    }

  private:
    std::string toolTipText_;
};

} // namespace corvelle::forms
