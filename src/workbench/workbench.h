#pragma once

#include "workbench/add_ins.h"
#include "workbench/main_window.h"
#include "workbench/model/workbench_host.h"

#include <memory>
#include <string>
#include <vector>

namespace corvelle::workbench {

/// What the program was started with: `[/addin:PROGID]... [FILE]`.
struct CommandLine {
    CommandLine(int argc, const char* const* argv);

    std::string file;                ///< the project, group or module to open; empty for none
    std::vector<std::string> addIns; ///< to be loaded besides those that the user has chosen
};

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
