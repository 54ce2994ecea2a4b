#pragma once

#include "forms/control.h"

#include <functional>
#include <string>
#include <utility>

namespace corvelle::forms {

/// A box with text to edit, of one line or, fixed at design time, of several.
class TextBox : public Control {
  public:
    TextBox(Form& form, std::string name, Control* container = nullptr)
        : Control(form, ControlKind::TextBox, std::move(name), container) {}

    std::function<void()> onChange;
    /// The user types a key, whether or not it changes the text; comes before the change.
    std::function<void()> onKeyPress;

    const std::string& text() const { return touch(), text_; }
    /// Raises Change if the text is another one.
    void setText(const std::string& text) {
        if (change(text_, text, Aspect::Text)) raise(onChange);
    }
    /// A locked box can be read and copied from, not edited.
    bool locked() const { return touch(), locked_; }
    void setLocked(bool locked) { change(locked_, locked, Aspect::Enabled); }
    bool multiLine() const { return touch(), multiLine_; }
    void setMultiLine(bool multiLine) { change(multiLine_, multiLine, Aspect::Bounds); }

    bool takesEnter() const override { return multiLine(); }

    /// The user's editing: like setText, but the window has the text already.
    void userTyped(const std::string& text) {
        if (text == this->text()) return;
        text_ = text;
        raise(onChange);
    }

    void userPressedKey() { raise(onKeyPress); }

    void reset() override {
        Control::reset();
        text_.clear();
        locked_ = multiLine_ = false;
    }

  protected:
    Colour plainBackColor() const override { return colours::windowBackground; }
    Colour plainForeColor() const override { return colours::windowText; }

  private:
    std::string text_;
    bool locked_ = false;
    bool multiLine_ = false;
};

} // namespace corvelle::forms
