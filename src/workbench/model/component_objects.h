#pragma once

#include "workbench/model/serving.h"

namespace corvelle::workbench {

/// VBComponent.
class VBComponentObject : public Served<VBComponentObject, workspace::Component> {
  public:
    using Served::Served;
    static Members<VBComponentObject> members();
};

/// The Window of a component's designer.
class DesignerWindowObject : public Served<DesignerWindowObject, workspace::DesignerWindow> {
  public:
    using Served::Served;
    static Members<DesignerWindowObject> members();
};

} // namespace corvelle::workbench
