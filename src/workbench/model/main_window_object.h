#pragma once

#include "workbench/model/serving.h"

namespace corvelle::workbench {

/// The Window that is the host's main window.
class MainWindowObject : public Served<MainWindowObject, Serving> {
  public:
    using Served::Served;
    static Members<MainWindowObject> members();
};

} // namespace corvelle::workbench
