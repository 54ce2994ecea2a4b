#pragma once

#include "host/add_in.h"
#include "indexer/forms/frm_index_main.h"
#include "ui/window_owner.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace corvelle::indexer {
class FrmIndex_Main;
class FrmIndexer;
class FrmTxt;
} // namespace corvelle::indexer

namespace corvelle::host {

/// The connect class of the help context ID indexer.
class ContextHelpIndexer : public AddIn, public ui::WindowOwner, public indexer::StartMenuOwner {
  public:
    explicit ContextHelpIndexer(forms::Desktop& desktop);
    ~ContextHelpIndexer() override;

    /// Whether the start menu's user has chosen a command.
    bool bOK() const { return bOK_; }
    void setbOK(bool chosen) override { bOK_ = chosen; }

    /// Asks the start menu and shows the wizard or the editor. A call while the start menu waits brings it to
    /// the front. A disconnection or the program's end closes the start menu, and then nothing is shown. Nor
    /// is anything if the start menu fails: there would be nothing to wait for.
    void Show() override;
    /// The editor is not touched.
    void Hide() override;

  protected:
    void unloadMainWindow() override;
    void disconnected() override;

  private:
    std::optional<std::int16_t> getStartChoice();

    std::shared_ptr<indexer::FrmIndex_Main> startMenu_; // only while it waits
    std::shared_ptr<indexer::FrmIndexer> FrmIndexer_;
    std::shared_ptr<indexer::FrmTxt> FrmTxt_;
    bool bOK_ = false;
};

} // namespace corvelle::host
