#pragma once

#include "ide/workspace/menus.h"

#include <memory>
#include <vector>
#include <windows.h>

namespace corvelle::workbench {

/// The "Add-Ins" menu on the screen: the manager's command, then the add-ins' own as the model has them.
class AddInMenu {
  public:
    AddInMenu(HMENU popup, workspace::Menu& model) : popup_(popup), model_(model) {}

    /// Is called before the menu opens.
    void update();
    /// Clicks the add-ins' command of that number; whether there is one.
    bool run(int command);
    HMENU popup() const { return popup_; }

  private:
    HMENU popup_;
    workspace::Menu& model_;
    std::vector<std::shared_ptr<workspace::MenuCommand>> shown_;
};

} // namespace corvelle::workbench
