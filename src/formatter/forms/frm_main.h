#pragma once

#include "forms/controls.h"
#include "forms/form.h"
#include "ide/vbe.h"
#include "settings/editor_config.h"
#include "ui/window_owner.h"

#include <memory>
#include <string>

namespace corvelle::formatter {

class FrmFormatter;

/// The formatter's first window, the module selection page: follows the IDE's active code module and hands
/// it to the dialog. It stays alive, hidden, while the dialog is open.
class frmMain : public forms::Form {
  public:
    explicit frmMain(forms::Desktop& desktop);

    // Set by the connect class.

    std::shared_ptr<ide::VBE> VBInstance;
    /// The connect object; it owns the page.
    std::weak_ptr<ui::WindowOwner> ThisAddInMgr;
    /// Reads the settings files of modules; from the disk if nobody says otherwise.
    settings::EditorConfig::Read ReadSettings = settings::readIfThere;

    // Controls, in tab order.

    forms::Image Image1{*this, "Image1"};
    forms::Label lblIntro{*this, "lblIntro"};
    forms::CommandButton CmdNext{*this, "CmdNext"};
    forms::CommandButton cmdCancel{*this, "cmdCancel"};
    forms::CommandButton CmdAbt{*this, "CmdAbt"};
    forms::Label lblModule{*this, "lblModule"};
    /// The active module's name.
    forms::TextBox Text1{*this, "Text1"};
    forms::CommandButton cmdRef{*this, "cmdRef"};

    /// Reads the IDE's active code module again.
    void setActiveModule();
    /// Closes the wizard, the dialog included, unless the dialog stays.
    void CloseNotify();
    /// A pass over the dialog's module has come to its end.
    void ModuleFormatted();
    /// The dialog has closed: lets go of it, keeps its backup directory and shows the page again.
    void FormatterClosed(const std::string& backupDir);

    /// The dialog while it exists.
    const std::shared_ptr<FrmFormatter>& formatter() const { return formatter_; }
    /// The last backup directory; empty at first.
    const std::string& backupDir() const { return BackupDir_; }

  protected:
    void design() override;
    void Form_Load() override;
    void Form_Activate() override { setActiveModule(); }
    void Form_Click() override { setActiveModule(); }
    void Form_Unload(bool& cancel) override;

  private:
    void CmdNext_Click();
    void cmdCancel_Click() { hideAddIn(); }
    void CmdAbt_Click();
    void cmdRef_Click() { setActiveModule(); }

    void takeActiveModule();
    bool confirmRepetition();
    bool moduleIsDirty();
    void hideAddIn();

    std::shared_ptr<ide::CodePane> codePane_;
    std::shared_ptr<ide::CodeModule> codeModule_;
    std::string handedOver_;    // the dialog's module, as Text1 showed it then
    std::string lastFormatted_; // the same of the module formatted last
    std::string BackupDir_;
    std::shared_ptr<FrmFormatter> formatter_;
    bool closing_ = false; // the page does not come back
};

} // namespace corvelle::formatter
