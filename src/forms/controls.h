#pragma once

#include "forms/control.h"
#include "forms/drawing.h"

#include <cstdint>
#include <functional>
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

/// A titled box that contains other controls. Disabling it disables them.
class Frame : public Captioned {
  public:
    Frame(Form& form, std::string name, Control* container = nullptr)
        : Captioned(form, ControlKind::Frame, std::move(name), container) {}
};

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

/// A control to draw on, in pixels of the screen. It keeps what is drawn when it repaints itself.
class Surface : public Control {
  public:
    Surface(Form& form, std::string name, Control* container = nullptr)
        : Control(form, ControlKind::Surface, std::move(name), container) {}

    /// Raised when the canvas has another size, and once when the window is made, before Form_Load.
    std::function<void()> onResize;
    /// Raised when the surface loses its values: as the form loads, before design(), and when it has
    /// unloaded. The handler must not use a control.
    std::function<void()> onReset;

    Canvas& canvas() { return touch(), canvas_; }
    /// Shows what has been drawn.
    void refresh() { touch(), changed(Aspect::Drawing); }

    /// The window's inside has that many pixels.
    void userResized(int width, int height);

    void reset() override;

  private:
    Canvas canvas_;
    bool sized_ = false; // since the window was made
};

} // namespace corvelle::forms
