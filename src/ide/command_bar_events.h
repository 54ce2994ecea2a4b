#pragma once

#include "ide/command_bar_control.h"

#include <functional>

namespace corvelle::ide {

/// The source of one command's clicks. Whoever wants the clicks keeps it.
class CommandBarEvents {
  public:
    /// The command that was clicked, and two answers to the IDE that are false before the call.
    using ClickHandler = std::function<void(CommandBarControl& control, bool& handled, bool& cancelDefault)>;

    virtual ~CommandBarEvents() = default;

    /// Names the procedure that runs at each click, in place of the one before; an empty one ends that.
    virtual void setClick(ClickHandler handler) = 0;
};

} // namespace corvelle::ide
