#pragma once

#include "formatter/engine.h"
#include "formatter/forms/frm_error.h"
#include "formatter/pass_observer.h"
#include "formatter/structured_pass.h"
#include "forms/controls.h"
#include "forms/form.h"
#include "forms/list_controls.h"
#include "forms/lone_command.h"
#include "ide/vbe.h"
#include "settings/editor_config.h"
#include "ui/indicator.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvelle::formatter {

class frmMain;

/// The formatter's dialog: options, the two passes over a module, results, backup and write-back. One object
/// serves one module. The passes and the write-back yield once a line; meanwhile the commands do nothing, and
/// a close waits until the pass has stopped or the write-back is complete.
class FrmFormatter : public forms::Form, private PassObserver {
  public:
    explicit FrmFormatter(forms::Desktop& desktop);

    // Set by the calling page.

    std::shared_ptr<ide::CodeModule> FmtCodeModule;
    std::shared_ptr<ide::CodePane> FmtCodePane;
    /// Where backups go; empty: beside the project. Ends in a backslash.
    std::string BackDir;
    /// The page; it owns the dialog.
    std::weak_ptr<frmMain> FrmCalled;
    /// Reads the .editorconfig files above the module's file.
    settings::EditorConfig::Read ReadSettings;
    /// Makes the structured layout, for modules of which such a file says so.
    StructuredPass::LayOut LayOutStructured = [](const ModuleCode& code,
                                                 const structured::StructuredOptions& options) {
        return formatCode(code, options);
    };

    // Controls, in tab order.

    forms::Image Image2{*this, "Image2"};
    forms::CommandButton CmdFmt{*this, "CmdFmt"};
    forms::CommandButton CmdAdd{*this, "CmdAdd"};
    forms::Label lblModuleIs{*this, "lblModuleIs"};
    forms::Label lblModule{*this, "lblModule"};
    forms::Label lblBackup{*this, "lblBackup"};
    forms::TextBox Text1{*this, "Text1"};
    forms::CommandButton CmdFile{*this, "CmdFile"};
    forms::Frame Frame1{*this, "Frame1"};
    forms::CheckBox ChkNoEmpty{*this, "ChkNoEmpty", &Frame1};
    forms::CheckBox ChkNoCmnt{*this, "ChkNoCmnt", &Frame1};
    forms::CheckBox ChkNoAll{*this, "ChkNoAll", &Frame1};
    forms::Label Lbl6{*this, "Lbl6", &Frame1};
    forms::Slider Slider1{*this, "Slider1", &Frame1};
    forms::Label lblTab{*this, "lblTab", &Frame1};
    forms::Frame frmeResult{*this, "frmeResult"};
    /// One picture a mode, in one place.
    std::array<forms::Image, 4> Image1{{{*this, "Image1(0)", &frmeResult},
                                        {*this, "Image1(1)", &frmeResult},
                                        {*this, "Image1(2)", &frmeResult},
                                        {*this, "Image1(3)", &frmeResult}}};
    forms::Label Label1{*this, "Label1", &frmeResult};
    forms::Label Label2{*this, "Label2", &frmeResult};
    forms::Surface IndicSurface{*this, "Indic", &frmeResult};
    ui::Indicator Indic{desktop(), IndicSurface};
    /// The status text.
    forms::TextBox txtInfo{*this, "txtInfo"};
    forms::CommandButton CmdBack{*this, "CmdBack"};
    forms::CommandButton CmdClose{*this, "CmdClose"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};
    forms::Label lblInfo{*this, "lblInfo"};

    /// Hides the page and shows the dialog; returns when it has been closed.
    void FormatModule(const std::shared_ptr<frmMain>& FrmRef, const forms::Picture& mIcon);
    /// Stops a running indentation pass at its next line.
    void DisableProc();
    /// Forgets the last run; nothing happens while one is under way.
    void InitBtns();

    /// Status text.
    void setInfo(std::string_view mTxt) override;
    /// Process text.
    void SetProcInfo(std::string_view mRes) override;
    /// Results text.
    void SetResults(std::string_view mRes);
    /// Shows a result picture: 0 aborted, 1 failed, 2 succeeded, 3 working.
    void setImage(int Mode);

    /// The default name of a backup; empty if the IDE does not tell the module's name and type.
    std::string getBackupName();
    /// The default folder of a backup, with its last backslash; empty if there is none.
    std::string getProjectDir();
    /// Writes the module's code as the IDE holds it. On failure the file, if there was one, is as it was. The
    /// line buffer is not looked at.
    bool SaveToFile(const std::string& FileName, const base::LineBuffer& mArr);
    /// Asks for the help file; empty if the user does not name one.
    std::string SetHelp();

    /// The formatted lines.
    const base::LineBuffer& lineBuffer() const {
        return structured_ ? structured_->lineBuffer() : engine_.lineBuffer();
    }

  protected:
    void design() override;
    void Form_Load() override;
    void Form_Resize() override;
    void Form_MouseMove() override;
    void Form_KeyUp(int keyCode) override;
    void Form_QueryUnload(bool& cancel, forms::UnloadMode mode) override;
    void Form_Unload(bool& cancel) override;

  private:
    /// A close that has to wait until a command has ended.
    enum class Closing { None, Dialog, Wizard };

    void CmdFmt_Click();
    void CmdAdd_Click();
    void CmdFile_Click();
    void CmdBack_Click() { unload(); }
    void CmdClose_Click();
    void CmdHelp_Click();
    void ChkNoEmpty_Click() { options_.bNoEmpty = ChkNoEmpty.value(); }
    void ChkNoCmnt_Click() { options_.bNoCmntLn = ChkNoCmnt.value(); }
    void ChkNoAll_Click() { options_.bNoAllCmnt = ChkNoAll.value(); }
    void Slider1_Change();

    // The module's settings
    void takeSettings();
    std::uint32_t ownUnit();
    structured::StructuredOptions structuredOptions() const;

    void layOut(forms::Size size);
    void connectHints();
    void showHint(const char* tag, const char* text);

    // Commands that must not meet one another
    void runAlone(const std::function<void()>& command);
    bool mustClose() const;
    void leave(Closing what);
    bool confirmExit();
    void objectNotSet();

    // The passes
    void ResetAll();
    std::int32_t formatModule();
    std::int32_t LoadDataArray();
    std::int32_t readModule(ide::CodeModule& module, std::int32_t n);
    std::int32_t runPass();
    void showResult(std::int32_t errorCount);
    void showErrors(std::int32_t errorCount);
    FrmError& errors();
    void startIndicator() override { Indic.StartNow(); }
    void stopIndicator() override { Indic.stopNow(); }
    void clearErrors() override { errors().List1.clear(); }
    void addError(const StructuralError& error) override { errors().List1.addItem(error.text()); }
    void doEvents() override;

    // Write-back
    void addToModule();
    bool writeToModule();
    void replaceLines(ide::CodeModule& module, std::string& oldText);

    Engine engine_{*this};
    FormatOptions options_;
    std::optional<StructuredPass> structured_; // takes the engine's place where the settings say so
    structured::StructuredOptions said_;       // by the settings
    std::optional<std::uint32_t> unit_;        // by the slider once it has been moved
    std::optional<settings::SettingsError> settingsProblem_;
    std::int32_t maxIndx_ = -1;     // of the buffer; -1: no run has filled it
    std::int32_t initialLines_ = 0; // the module's line count when formatting started
    bool formatted_ = false;        // a pass has been completed
    bool bSave_ = false;            // the formatted code has been written to the module
    bool inPass_ = false;           // the indentation pass is
    forms::LoneCommand<Closing> lone_;
    std::shared_ptr<FrmError> errors_;
};

} // namespace corvelle::formatter
