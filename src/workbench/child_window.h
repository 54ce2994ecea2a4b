#pragma once

#include "ide/workspace/component.h"

#include <string>
#include <windows.h>

namespace corvelle::workbench {

/// A window of a component inside the main window.
class ChildWindow {
  public:
    enum class Kind { Code, Designer };
    /// Whoever owns the windows.
    class Owner {
      public:
        virtual ~Owner() = default;
        /// It has come to the front.
        virtual void childActivated(ChildWindow& child) = 0;
        /// It is gone; this may end the object's life.
        virtual void childClosed(ChildWindow& child) = 0;
    };

    virtual ~ChildWindow();
    ChildWindow(const ChildWindow&) = delete;
    ChildWindow& operator=(const ChildWindow&) = delete;

    Kind kind() const { return kind_; }
    workspace::Component& component() const { return component_; }
    HWND window() const { return window_; }
    /// Looks from time to time whether the component has changed under it.
    virtual void tick() {}

  protected:
    ChildWindow(Kind kind, workspace::Component& component, Owner& owner);
    /// Makes the window; what it shows is the content's task.
    void open(HWND client);
    void setCaption(const std::string& caption) { SetWindowTextA(window_, caption.c_str()); }

    /// Makes the control that fills the window.
    virtual HWND makeContent(HWND parent) = 0;
    /// A WM_COMMAND of the content.
    virtual void notified(UINT) {}

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT take(UINT message, WPARAM wParam, LPARAM lParam);

    Kind kind_;
    workspace::Component& component_;
    Owner& owner_;
    HWND window_ = nullptr;
    HWND content_ = nullptr;
};

} // namespace corvelle::workbench
