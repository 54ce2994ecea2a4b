#pragma once

#include "forms/control.h"

namespace corvelle::forms {

enum class FormAspect { Caption, Icon, MousePointer, Size, Enabled };

/// The window behind a loaded form. It reads the form's and the controls' properties when it is made and when
/// it is told that one changed, and calls their user...() functions for what the user does. A visible one is
/// hidden before it is destroyed, unless the form itself is destroyed without an unload. Any handler may
/// unload the form and so destroy the peer inside one of its functions.
class FormPeer {
  public:
    virtual ~FormPeer() = default;

    /// Shows the window and makes it the active one. Form_Resize comes before Form_Activate the first time.
    virtual void show() = 0;
    virtual void hide() = 0;
    virtual void bringToFront() = 0;
    virtual void formChanged(FormAspect aspect) = 0;
    virtual void controlChanged(Control& control, Aspect aspect) = 0;
    /// Whether it is the window that gets the keys.
    virtual bool isActive() = 0;
    /// Brings the keyboard to a control that can be reached, or has it there when the window becomes the
    /// active one. Tells the form's Keyboard once it has arrived.
    virtual void focus(Control& control) = 0;
    /// Takes the keyboard away from all controls.
    virtual void focusNone() {}
    /// The keyboard has come to another control, which its events are about to tell.
    virtual void focusMoved() {}
};

} // namespace corvelle::forms
