#pragma once

#include "workbench/add_ins.h"
#include "workbench/command_line.h"
#include "workbench/main_window.h"
#include "workbench/model/workbench_host.h"

#include <memory>
#include <vector>

namespace corvelle::workbench {

/// The program: its window, the add-ins, and the object model that they are given.
class Workbench : public WorkbenchHost {
  public:
    Workbench();
    ~Workbench() override;

    /// Runs the program until the user ends it; returns the exit status. `self` is this object.
    int run(const std::shared_ptr<Workbench>& self, const CommandLine& arguments);

    std::shared_ptr<workspace::Workspace> workspace() override { return window_.session().ide(); }
    workspace::Menus& menus() override { return window_.menus(); }
    std::vector<workspace::Component*> codePanes() override { return window_.children().codePanes(); }
    void showCode(workspace::Component& component) override { window_.showCode(component); }
    workspace::Component* selectedComponent() override { return window_.tree().selected(); }
    HWND mainWindow() override { return window_.window(); }
    com::Ptr<IDispatch> addIns() override { return addIns_.collection(); }
    void quit() override;

  private:
    MainWindow window_;
    AddIns addIns_;
};

} // namespace corvelle::workbench
