#pragma once

namespace corvelle::workspace {

class Component;

/// Is told what an embedded IDE with windows has to show.
class WorkspaceObserver {
  public:
    virtual ~WorkspaceObserver() = default;

    /// The designer's window was opened, shown, hidden or closed: its DesignerWindow tells which.
    virtual void designerChanged(Component& component) = 0;
    /// The designer's window, which is visible now, goes to the front.
    virtual void designerFocused(Component& component) = 0;
    /// The code of a component without a designer goes to the front.
    virtual void codeActivated(Component& component) = 0;
};

} // namespace corvelle::workspace
