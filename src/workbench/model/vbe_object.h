#pragma once

#include "com/ptr.h"
#include "workbench/model/serving.h"
#include "workbench/model/workbench_host.h"

#include <memory>
#include <ole2.h>

namespace corvelle::workbench {

/// The IDE's object model over the host's workspace: the VBE object, from which every other is reached. While
/// one lives, the same component, control or command is the same object.
com::Ptr<IDispatch> serveVBE(const std::weak_ptr<WorkbenchHost>& host);

/// VBE.
class VBEObject : public Served<VBEObject, Serving> {
  public:
    using Served::Served;
    static Members<VBEObject> members();
};

} // namespace corvelle::workbench
