#pragma once

namespace corvelle::forms {

class Control;
class Form;

/// Where a loaded form's keyboard focus is, and the keys that are the form's own: Tab, Enter, Esc and the
/// accelerators. The window behind the form brings the keyboard to a control and says when it is there.
class Keyboard {
  public:
    explicit Keyboard(Form& form) : form_(form) {}

    /// The control that has the focus; null if none has.
    Control* focused() const { return focused_; }
    /// The button that Enter presses: the one with the focus, else the form's default button; null if none.
    Control* enterButton() const;

    /// The keyboard has come to the control: raises LostFocus for the one before and GotFocus for this one.
    void arrived(Control& control);
    /// The window has become the active one: somewhere the focus has to be.
    void restore();
    /// Controls have been disabled or hidden: where the focus cannot stay it goes on, else the keyboard would
    /// be dead.
    void leaveUnreachable();
    /// The window has gone.
    void forget() { focused_ = nullptr; }

    /// Tab, back with Shift: the next control in tab order, after the last the first.
    void moveOn(bool back = false);
    /// Presses its button. False if there is none that can be pressed.
    bool pressEnter();
    /// Presses the form's cancel button. False if there is none that can be pressed.
    bool pressEscape();
    /// Alt and a letter: clicks the control that has it, a label's or a frame's takes the focus to the
    /// control that follows. Where several have it the focus goes from one to the next and none is clicked.
    /// False if none has it.
    bool pressAccelerator(char letter);

  private:
    static bool press(Control* button);
    Control* next(const Control* from, bool back) const;
    bool bring(Control* control);
    void moveAway();

    Form& form_;
    Control* focused_ = nullptr;
};

} // namespace corvelle::forms
