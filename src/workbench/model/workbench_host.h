#pragma once

#include "com/ptr.h"
#include "ide/workspace/workspace.h"

#include <memory>
#include <ole2.h>
#include <vector>

namespace corvelle::workbench {

/// What the served object model asks of the program that plays the IDE. The objects ask while they are used,
/// so the answers may change at any time; once the host is gone every call of theirs fails as on a closed
/// program.
///
/// The rest stands in the workspace itself: the program tells it the active code pane and project
/// (`setActiveCodePane`, `setActiveVBProject`) and listens to its WorkspaceObserver for designer windows.
class WorkbenchHost {
  public:
    virtual ~WorkbenchHost() = default;

    /// The open projects; null while none is open.
    virtual std::shared_ptr<workspace::Workspace> workspace() = 0;
    /// The menus, which outlive a change of projects.
    virtual workspace::Menus& menus() = 0;
    /// The components whose code windows are open.
    virtual std::vector<workspace::Component*> codePanes() = 0;
    /// Opens a component's code window or brings it to the front.
    virtual void showCode(workspace::Component& component) = 0;
    /// The component that is selected in the project's list; null if there is none.
    virtual workspace::Component* selectedComponent() = 0;
    virtual HWND mainWindow() = 0;
    /// The collection of add-ins; null if there is none.
    virtual com::Ptr<IDispatch> addIns() = 0;
    /// Asks the program to end.
    virtual void quit() = 0;
};

} // namespace corvelle::workbench
