#pragma once

#include "workbench/model/serving.h"

namespace corvelle::workbench {

/// CodeModule of a component.
class CodeModuleObject : public Served<CodeModuleObject, workspace::Component> {
  public:
    using Served::Served;
    static Members<CodeModuleObject> members();
};

/// CodePane of a component, whether its code window is open or not.
class CodePaneObject : public Served<CodePaneObject, workspace::Component> {
  public:
    using Served::Served;
    static Members<CodePaneObject> members();
};

/// CodePanes: the code windows that are open.
class CodePanesObject : public Served<CodePanesObject, Serving> {
  public:
    using Served::Served;
    static Members<CodePanesObject> members();
};

/// The code pane that the workspace calls the active one; Nothing if there is none.
com::Ptr<CodePaneObject> activeCodePane(Serving& serving);

} // namespace corvelle::workbench
