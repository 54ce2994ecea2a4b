#pragma once

#include "formatter/forms/add_in_manager.h"
#include "host/add_in.h"

#include <memory>

namespace corvelle::formatter {
class frmMain;
}

namespace corvelle::host {

/// The connect class of the code formatter.
class CodeFormatter : public AddIn, public formatter::AddInManager {
  public:
    explicit CodeFormatter(forms::Desktop& desktop);
    ~CodeFormatter() override;

    /// Shows the module selection page; the same one if it is there already.
    void Show() override;
    void Hide() override;

  protected:
    void unloadMainWindow() override;

  private:
    std::shared_ptr<formatter::frmMain> frmMain_;
};

} // namespace corvelle::host
