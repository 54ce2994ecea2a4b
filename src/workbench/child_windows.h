#pragma once

#include "workbench/child_window.h"

#include <memory>
#include <vector>
#include <windows.h>

namespace corvelle::workbench {

/// The windows inside the main window: at most one of a kind for each component.
class ChildWindows {
  public:
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
    /// The code window that was in front last; nothing when none is open.
    ChildWindow* activeCode() const;
    void tick();

  private:
    void closed(const ChildWindow& child);

    HWND client_ = nullptr;
    std::vector<std::unique_ptr<ChildWindow>> windows_;
};

} // namespace corvelle::workbench
