#pragma once

#include "workbench/child_windows.h"

namespace corvelle::workbench {

/// Stands for a component's designer: lists its controls.
class DesignerWindow : public ChildWindow {
  public:
    /// Opens the window.
    DesignerWindow(HWND client, workspace::Component& component, Owner& owner);

  private:
    HWND makeContent(HWND parent) override;
    void addControl(int row, const std::string& name, const std::string& className);

    HWND list_ = nullptr;
};

} // namespace corvelle::workbench
