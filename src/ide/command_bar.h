#pragma once

#include "ide/command_bar_controls.h"

#include <memory>

namespace corvelle::ide {

/// A menu or tool bar of the IDE.
class CommandBar {
  public:
    virtual ~CommandBar() = default;

    virtual std::shared_ptr<CommandBarControls> Controls() = 0;
};

} // namespace corvelle::ide
