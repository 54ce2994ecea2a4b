#pragma once

#include "ide/command_bar_control.h"

#include <memory>

namespace corvelle::ide {

/// The commands of a command bar, in their order.
class CommandBarControls {
  public:
    virtual ~CommandBarControls() = default;

    /// Adds a command at the end.
    virtual std::shared_ptr<CommandBarControl> Add(CommandBarControlType type) = 0;
};

} // namespace corvelle::ide
