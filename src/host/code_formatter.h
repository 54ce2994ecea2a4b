#pragma once

#include "host/add_in.h"
#include "ui/window_owner.h"

#include <memory>

namespace corvelle::formatter {
class frmMain;
}

namespace corvelle::host {

/// The connect class of the code formatter.
class CodeFormatter : public AddIn, public ui::WindowOwner {
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
