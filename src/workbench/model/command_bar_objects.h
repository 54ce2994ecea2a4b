#pragma once

#include "workbench/model/serving.h"

namespace corvelle::workbench {

/// CommandBars: the host's menus.
class CommandBarsObject : public Served<CommandBarsObject, Serving> {
  public:
    using Served::Served;
    static Members<CommandBarsObject> members();
};

/// CommandBar.
class CommandBarObject : public Served<CommandBarObject, workspace::Menu> {
  public:
    using Served::Served;
    static Members<CommandBarObject> members();
};

/// CommandBarControls of a menu. Only buttons can be added.
class CommandBarControlsObject : public Served<CommandBarControlsObject, workspace::Menu> {
  public:
    using Served::Served;
    static Members<CommandBarControlsObject> members();
};

/// CommandBarControl: a button.
class CommandBarControlObject : public Served<CommandBarControlObject, workspace::MenuCommand> {
  public:
    using Served::Served;
    static Members<CommandBarControlObject> members();
};

} // namespace corvelle::workbench
