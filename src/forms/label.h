#pragma once

#include "forms/captioned.h"

namespace corvelle::forms {

enum class Alignment { Left, Right, Centre };

/// Text on the form, wrapped to the control's width. Its accelerator moves the focus to the next control in
/// tab order. It may be written once a module line: the property changes at once, the screen follows.
class Label : public Captioned {
  public:
    Label(Form& form, std::string name, Control* container = nullptr)
        : Captioned(form, ControlKind::Label, std::move(name), container) {}

    Alignment alignment() const { return touch(), alignment_; }
    void setAlignment(Alignment alignment) { change(alignment_, alignment, Aspect::Bounds); }
    /// Whether a sunken line is drawn around it.
    bool bordered() const { return touch(), bordered_; }
    void setBordered(bool bordered) { change(bordered_, bordered, Aspect::Bounds); }

    void reset() override {
        Captioned::reset();
        alignment_ = Alignment::Left;
        bordered_ = false;
    }

  private:
    Alignment alignment_ = Alignment::Left;
    bool bordered_ = false;
};

} // namespace corvelle::forms
