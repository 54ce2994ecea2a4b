#pragma once

#include "forms/control.h"

#include <string>
#include <utility>

namespace corvelle::forms {

/// A control with a caption. `&` marks the accelerator, `&&` is a plain ampersand; but for a label that uses
/// none.
class Captioned : public Control {
  public:
    using Control::Control;

    const std::string& caption() const { return touch(), caption_; }
    void setCaption(const std::string& caption) { change(caption_, caption, Aspect::Text); }
    virtual bool useMnemonic() const { return true; }
    /// Whether Alt and the letter, small or capital, stand for the control.
    bool hasAccelerator(char letter) const;

    void reset() override {
        Control::reset();
        caption_.clear();
    }

  private:
    std::string caption_;
};

} // namespace corvelle::forms
