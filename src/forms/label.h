#pragma once

#include "forms/captioned.h"

namespace corvelle::forms {

/// Text on the form, wrapped to the control's width. Its accelerator moves the focus to the next control in
/// tab order. A running pass may write it once a module line: the property changes at once, the screen
/// follows, at the latest when the handler ends.
class Label : public Captioned {
  public:
    Label(Form& form, std::string name, Control* container = nullptr)
        : Captioned(form, ControlKind::Label, std::move(name), container) {}

    /// Whether a sunken line is drawn around it.
    bool bordered() const { return touch(), bordered_; }
    void setBordered(bool bordered) { change(bordered_, bordered, Aspect::Bounds); }
    /// Whether what lies below it shows between its letters.
    bool transparent() const { return touch(), transparent_; }
    void setTransparent(bool transparent) { change(transparent_, transparent, Aspect::Colours); }
    /// Whether it stands out from the form, by its line or its ground. Its text then keeps off its edges.
    bool standsOut() const { return bordered() || (!transparent_ && backColor() != colours::buttonFace); }
    /// Whether `&` marks an accelerator; otherwise it is shown as it stands, and so is `&&`.
    bool useMnemonic() const override { return touch(), useMnemonic_; }
    void setUseMnemonic(bool use) { change(useMnemonic_, use, Aspect::Colours); }

    void reset() override {
        Captioned::reset();
        bordered_ = transparent_ = false;
        useMnemonic_ = true;
    }

  private:
    bool bordered_ = false;
    bool transparent_ = false;
    bool useMnemonic_ = true;
};

} // namespace corvelle::forms
