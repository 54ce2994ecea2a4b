#pragma once

#include "forms/controls.h"
#include "forms/form.h"
#include "forms/list_controls.h"

namespace corvelle::formatter {

/// The list of the structural errors that a run found.
class FrmError : public forms::Form {
  public:
    explicit FrmError(forms::Desktop& desktop);

    /// How many there are; set before the window is shown.
    forms::Label lblCaption{*this, "lblCaption"};
    /// One row an error, in buffer order.
    forms::ListBox List1{*this, "List1"};
    forms::CommandButton Command1{*this, "Command1"};

  protected:
    void design() override;

  private:
    void Command1_Click() { unload(); }
};

} // namespace corvelle::formatter
