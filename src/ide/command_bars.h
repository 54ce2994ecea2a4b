#pragma once

#include "ide/command_bar.h"

#include <memory>
#include <string_view>

namespace corvelle::ide {

/// The menus and tool bars of the IDE.
class CommandBars {
  public:
    virtual ~CommandBars() = default;

    /// The bar of that name, letter case aside. Nothing, or RunTimeError, if there is none.
    virtual std::shared_ptr<CommandBar> Item(std::string_view name) = 0;
};

} // namespace corvelle::ide
