#pragma once

#include "ide/command_bar_control.h"
#include "ide/command_bar_events.h"

#include <memory>

namespace corvelle::ide {

/// Where the IDE's sources of events come from.
class Events {
  public:
    virtual ~Events() = default;

    virtual std::shared_ptr<ide::CommandBarEvents>
    CommandBarEvents(const std::shared_ptr<CommandBarControl>& control) = 0;
};

} // namespace corvelle::ide
