#pragma once

#include "ide/code_pane.h"
#include "ide/command_bars.h"
#include "ide/events.h"
#include "ide/vb_project.h"

#include <memory>

/// The IDE's object model, as far as the add-ins use it, with the model's own names. Writing a property is
/// `setName(...)`. An object that may be missing is a null pointer where the model says Nothing; a call that
/// fails throws base::RunTimeError. Text is 8-bit ANSI.
namespace corvelle::ide {

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
