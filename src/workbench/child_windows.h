#pragma once

#include "workbench/child_window.h"

#include <functional>
#include <memory>
#include <vector>
#include <windows.h>

namespace corvelle::workbench {

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
