#pragma once

#include "workbench/model/serving.h"

namespace corvelle::workbench {

/// VBE.
class VBEObject : public Served<VBEObject, Serving> {
  public:
    using Served::Served;
    static Members<VBEObject> members();
};

} // namespace corvelle::workbench
