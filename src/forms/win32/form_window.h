#pragma once

#include "forms/form.h"
#include "forms/win32/control_window.h"
#include "forms/window_state.h"

#include <memory>
#include <optional>
#include <vector>
#include <windows.h>

namespace corvelle::forms {

class Win32Desktop;

/// The top-level window of a loaded form, with a child window for every control. A handler may unload the
/// form inside a message of this very window: the form then lets go at once, and the windows, hidden, are
/// destroyed when the outermost message is done.
class FormWindow : public std::enable_shared_from_this<FormWindow> {
  public:
    /// The form window that a top-level window is; null if it is none.
    static FormWindow* of(HWND top);
    /// Takes a key message for one of our windows: Tab, Enter, Esc and accelerators do their work, others go
    /// to the control. False for any other message.
    static bool takeKey(MSG& message);
    /// The procedure of their class.
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    FormWindow(Win32Desktop& desktop, Form& form) : desktop_(desktop), form_(&form) {}
    ~FormWindow();
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    /// Makes the windows, after the form's and the controls' properties.
    void make();
    /// The form is being unloaded: touches neither the form nor its controls.
    void detach();

    // What the form asks for.
    void show();
    void hide();
    void bringToFront();
    void formChanged(FormAspect aspect);
    void controlChanged(Control& control, Aspect aspect);
    void focus(Control& control);
    bool isActive() const;
    void focusNone();
    void focusMoved();

    // For the desktop.
    /// The next show is modal above that window, or above none.
    void setModal(HWND owner) { modalOwner_ = owner; }
    HWND window() const { return window_; }
    /// The control's window; the form's own for one that has none.
    HWND windowOf(const Control& control) const;
    /// False when somebody else has destroyed the window.
    bool isThere() const { return window_ != nullptr; }
    void writeLateText();
    void boxesClosed();
    bool waitsForFocus() const;

    // For the control windows.
    Win32Desktop& desktop() const { return desktop_; }
    /// Null once the form has been unloaded.
    Form* form() const { return form_; }
    void textIsLate(ControlWindow& control);
    /// How far the inside has been scrolled.
    const POINT& scrolledBy() const { return scrolled_; }
    void focusArrived(Control& control);
    void keyReleased(int keyCode);
    /// The mouse over one of the windows. True: that was a press or a click on something that is no native
    /// control.
    bool mouse(HWND window, UINT message, LPARAM place, bool clickable);
    /// What a control says to its parent, be that the form's window or a frame. True if the result is set.
    bool reflect(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    /// Stands on the stack while a message of these windows is served.
    class Serving {
      public:
        explicit Serving(FormWindow& window) : window_(window.shared_from_this()) { ++window_->serving_; }
        ~Serving();
        Serving(const Serving&) = delete;
        Serving& operator=(const Serving&) = delete;

      private:
        std::shared_ptr<FormWindow> window_;
    };

  private:
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
    void makeControls();
    ControlWindow* find(const Control& control) const;
    ControlWindow* find(HWND window) const;
    void showIcon();
    void setClientSize();
    void placeOver(HWND owner);
    void countAsModeless(bool before);
    void limitSize(MINMAXINFO& limits) const;
    SIZE leastInside() const;
    void fitScrollBars();
    void scrollTo(POINT place);
    void scrolled(int bar, int code);
    void scrollIntoView(HWND control);
    void handFocusOn();
    void activated(bool active, HWND other);
    void showDefaultButton();
    bool key(MSG& message);
    void sized(int width, int height);
    void laidOut();
    Control* under(POINT place) const;
    bool usesHourglass() const;
    bool belongsToThread(HWND window) const;
    void releaseOwned();
    void destroy();

    Win32Desktop& desktop_;
    Form* form_;
    HWND window_ = nullptr;
    std::vector<std::unique_ptr<ControlWindow>> controls_; // in the order of the form's controls
    std::vector<ControlWindow*> late_;

    WindowState state_;
    std::optional<HWND> modalOwner_; // while it is shown modally, or about to be
    int serving_ = 0;
    bool gone_ = false;                          // to be destroyed when nothing is served any more
    std::shared_ptr<FormWindow> beingDestroyed_; // itself, while somebody else destroys the window

    SIZE client_{};
    POINT scrolled_{};
    bool fitting_ = false; // scroll bars come and go
    POINT lastMouse_{-1, -1};
    HWND pressed_ = nullptr;
};

} // namespace corvelle::forms
