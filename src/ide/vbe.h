#pragma once

#include "ide/code.h"
#include "ide/component.h"
#include "ide/menus.h"

#include <memory>

/// The IDE's object model, as far as the add-ins use it, with the model's own names. Writing a property is
/// `setName(...)`. An object that may be missing is a null pointer where the model says Nothing; a call that
/// fails throws base::RunTimeError. Text is 8-bit ANSI.
namespace corvelle::ide {

/// Where the IDE's sources of events come from.
class Events {
  public:
    virtual ~Events() = default;

    virtual std::shared_ptr<ide::CommandBarEvents>
    CommandBarEvents(const std::shared_ptr<CommandBarControl>& control) = 0;
};

/// The IDE.
class VBE {
  public:
    virtual ~VBE() = default;

    /// Nothing when no project is open.
    virtual std::shared_ptr<VBProject> ActiveVBProject() = 0;
    /// Nothing when no code window is open.
    virtual std::shared_ptr<CodePane> ActiveCodePane() = 0;
    virtual std::shared_ptr<ide::CommandBars> CommandBars() = 0;
    virtual std::shared_ptr<ide::Events> Events() = 0;
};

} // namespace corvelle::ide
