#pragma once

#include "forms/control.h"

#include <memory>
#include <string>
#include <windows.h>

namespace corvelle::forms {

class FormWindow;

/// The child window of a control: shows its properties and tells it what the user does. One class derives
/// from this for each kind of control.
class ControlWindow {
  public:
    static std::unique_ptr<ControlWindow> make(FormWindow& form, Control& control);

    virtual ~ControlWindow();
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;

    Control& control() const { return control_; }
    HWND window() const { return window_; }

    /// Makes the window in its parent.
    void create(HWND parent, int number);
    /// The property has changed.
    virtual void update(Aspect aspect);
    /// All windows of the form are there: what needs them, and what raises an event.
    virtual void start() {}
    /// Brings to the screen what update() put off.
    virtual void writeLateText() {}

    /// Whether the user can bring the focus here now.
    bool canTakeFocus() const;
    /// Whether the control, as it is now, wants the key that is pressed, Enter and Esc included.
    virtual bool wantsKey(int /*keyCode*/) const { return false; }

    // What the native control says.
    virtual void commanded(int /*code*/) {}
    virtual void scrolled(int /*code*/) {}
    virtual void notified(const NMHDR& /*header*/) {}
    /// The brush behind the control and the colours of its text.
    virtual HBRUSH colours(HDC device) const;

  protected:
    struct Native {
        const char* className = nullptr;
        DWORD style = 0;
        DWORD extendedStyle = 0;
    };

    ControlWindow(FormWindow& form, Control& control) : form_(form), control_(control) {}

    virtual Native native() const = 0;
    virtual std::string text() const { return {}; }
    /// The window is there: what only messages can set.
    virtual void created() {}
    virtual LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
    /// Whether a click is one on a part of the form rather than the native control's own business.
    virtual bool isPartOfForm() const { return false; }
    /// Place and size in pixels.
    virtual RECT place() const;
    void setStyle(DWORD mask, DWORD style);
    void setText(const std::string& text) { SetWindowTextA(window_, text.c_str()); }
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageA(window_, message, wParam, lParam);
    }
    std::string windowText() const;
    void repaint() const { InvalidateRect(window_, nullptr, TRUE); }

    FormWindow& form_;

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    Control& control_;
    HWND window_ = nullptr;
    WNDPROC native_ = nullptr;
};

} // namespace corvelle::forms
