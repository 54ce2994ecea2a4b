#pragma once

#include "workbench/model/serving.h"

namespace corvelle::workbench {

/// VBProjects: empty while no project is open.
class VBProjectsObject : public Served<VBProjectsObject, Serving> {
  public:
    using Served::Served;
    static Members<VBProjectsObject> members();
};

/// VBProject.
class VBProjectObject : public Served<VBProjectObject, workspace::Project> {
  public:
    using Served::Served;
    static Members<VBProjectObject> members();
};

/// VBComponents of a project. None can be removed.
class VBComponentsObject : public Served<VBComponentsObject, workspace::Project> {
  public:
    using Served::Served;
    static Members<VBComponentsObject> members();
};

} // namespace corvelle::workbench
