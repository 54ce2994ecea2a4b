#pragma once

namespace corvelle::forms {

/// How a form's window stands: whether it is shown, and whether its becoming the active one is an event of
/// the form. It is one when the focus comes back from another window of the program's, not from a box of ours
/// and not from another program.
class WindowState {
  public:
    bool isModeless() const { return shown_ == Shown::Modeless; }
    bool isModal() const { return shown_ == Shown::Modal; }
    /// Whether it has been on the screen.
    bool wasShown() const { return shown_ != Shown::Never; }
    /// Whether show() is at work, which raises the event itself.
    bool isShowing() const { return focus_ == Focus::Showing; }
    /// Whether it was shown while it took no input, below a modal window or a box.
    bool focusIsDue() const { return focus_ == Focus::Due; }

    void show(bool modal) { shown_ = modal ? Shown::Modal : Shown::Modeless; }
    void hide() { shown_ = Shown::Hidden; }
    /// Before the window appears, and once it stands there as the active one.
    void activating(bool takesInput) { focus_ = takesInput ? Focus::Showing : Focus::Due; }
    void activated() { focus_ = Focus::Settled; }

    /// Another window has become the active one: one of the program's, or another program's or a box.
    void left(bool forAnother) {
        if (forAnother && (focus_ == Focus::Settled || focus_ == Focus::Waiting)) focus_ = Focus::Away;
    }
    /// It has become the active one. Whether that is an event.
    bool came(bool fromAnother) {
        if (focus_ == Focus::Showing) return false;
        const bool event = fromAnother || focus_ == Focus::Away || focus_ == Focus::Due;
        if (focus_ != Focus::Waiting) focus_ = Focus::Settled;
        return event;
    }
    /// The event is about to be raised. False: it waits for a box to be closed.
    bool mayRaise(bool boxIsOpen) {
        if (boxIsOpen) {
            focus_ = Focus::Waiting;
        } else if (focus_ == Focus::Waiting) {
            focus_ = Focus::Settled;
        }
        return !boxIsOpen;
    }
    /// All boxes are closed. Whether an event has waited for it.
    bool boxesClosed() {
        if (focus_ != Focus::Waiting) return false;
        focus_ = Focus::Settled;
        return true;
    }

  private:
    enum class Shown { Never, Hidden, Modeless, Modal };
    enum class Focus {
        Settled, ///< nothing is due
        Showing, ///< show() is at work
        Due,     ///< shown while it took no input
        Away,    ///< another window of the program has it
        Waiting, ///< the event waits for a box to be closed
    };

    Shown shown_ = Shown::Never;
    Focus focus_ = Focus::Settled;
};

} // namespace corvelle::forms
