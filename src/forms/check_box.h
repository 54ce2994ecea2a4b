#pragma once

#include "forms/captioned.h"

#include <cstdint>

namespace corvelle::forms {

/// A box that is checked (1) or not (0).
class CheckBox : public Captioned {
  public:
    CheckBox(Form& form, std::string name, Control* container = nullptr)
        : Captioned(form, ControlKind::CheckBox, std::move(name), container) {}

    std::uint8_t value() const { return touch(), value_; }
    /// Raises Click if the value is another one.
    void setValue(std::uint8_t value) {
        if (change(value_, value, Aspect::Value)) raise(onClick);
    }

    void userClicked() override { setValue(value() == 0 ? 1 : 0); }

    void reset() override {
        Captioned::reset();
        value_ = 0;
    }

  private:
    std::uint8_t value_ = 0;
};

} // namespace corvelle::forms
