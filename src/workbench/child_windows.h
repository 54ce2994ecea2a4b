#pragma once

#include "ide/workspace/component.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>
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

/// The windows inside the main window: at most one of a kind for each component.
class ChildWindows : private ChildWindow::Owner {
  public:
    std::function<void(workspace::Component&)> onActivated;      ///< a window of it came to the front
    std::function<void()> onActiveCodeChanged;                   ///< see activeCode
    std::function<void(workspace::Component&)> onDesignerClosed; ///< by the user or anybody

    /// Makes the area that they stand in. The window menu lists them.
    void create(HWND frame, HMENU windowMenu);
    HWND client() const { return client_; }

    /// Brings a component's window to the front, opened where it is not open.
    void open(ChildWindow::Kind kind, workspace::Component& component);
    /// Closes it, if it is open.
    void close(ChildWindow::Kind kind, const workspace::Component& component);
    void closeAll();
    ChildWindow* find(ChildWindow::Kind kind, const workspace::Component& component) const;
    /// The window that is in front; nothing when none is open.
    ChildWindow* active() const;
    /// The component whose code window was in front last; nothing when none is open.
    workspace::Component* activeCode() const { return activeCode_; }
    /// The components whose code windows are open.
    std::vector<workspace::Component*> codePanes() const;
    void tick();

  private:
    void childActivated(ChildWindow& child) override;
    void childClosed(ChildWindow& child) override;
    void setActiveCode(workspace::Component* component);
    workspace::Component* topCode() const;

    HWND client_ = nullptr;
    workspace::Component* activeCode_ = nullptr;
    std::vector<std::unique_ptr<ChildWindow>> windows_;
};

} // namespace corvelle::workbench
