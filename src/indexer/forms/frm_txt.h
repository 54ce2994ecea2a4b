#pragma once

#include "forms/controls.h"
#include "forms/form.h"
#include "forms/list_controls.h"
#include "forms/lone_command.h"
#include "ide/vbe.h"
#include "indexer/forms/text_entry_editor.h"
#include "indexer/message.h"
#include "indexer/project_info.h"
#include "ui/indicator.h"
#include "ui/window_owner.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

namespace corvelle::indexer {

/// The editor for the text entries of an index that was made earlier: opens its indexer project file, and
/// saves the text file and, after a Set Default or Delete, the configuration file. While a command is under
/// way, which may yield, the others do nothing and a close waits.
class FrmTxt : public forms::Form {
  public:
    explicit FrmTxt(forms::Desktop& desktop);

    /// Keeps the IDE object and the connect object, of which the latter is told when the window has gone, and
    /// shows the window.
    void ShowTextEdit(const std::shared_ptr<ide::VBE>& refInst,
                      const std::shared_ptr<ui::WindowOwner>& refClass);

    // Controls, in tab order.

    forms::Label lblSubtitle{*this, "lblSubtitle"};
    forms::Label lblInfo{*this, "lblInfo"};
    forms::Label lblProject{*this, "lblProject"};
    /// The project file's path.
    forms::TextBox Text1{*this, "Text1"};
    forms::CommandButton Command2{*this, "Command2"};
    /// What was read from the project file.
    forms::TextBox txtPrj{*this, "txtPrj"};
    forms::Frame Frame1{*this, "Frame1"};
    forms::Label lblDesigner{*this, "lblDesigner", &Frame1};
    forms::ComboBox cboDsr{*this, "cboDsr", &Frame1};
    forms::Label lblControl{*this, "lblControl", &Frame1};
    forms::ComboBox CboCtl{*this, "CboCtl", &Frame1};
    forms::Label lblTypeIs{*this, "lblTypeIs", &Frame1};
    forms::Label LblType{*this, "LblType", &Frame1};
    forms::Label lblIDIs{*this, "lblIDIs", &Frame1};
    forms::Label LblID{*this, "LblID", &Frame1};
    forms::Label lblHelp{*this, "lblHelp", &Frame1};
    forms::TextBox txtHelp{*this, "txtHelp", &Frame1};
    forms::CommandButton CmdDef{*this, "CmdDef", &Frame1};
    forms::CommandButton CmdDel{*this, "CmdDel", &Frame1};
    /// The status line.
    forms::Label Lblstat{*this, "Lblstat"};
    forms::Surface IndicSurface{*this, "Indic"};
    ui::Indicator Indic{desktop(), IndicSurface};
    forms::CommandButton CmdProc{*this, "CmdProc"};
    forms::CommandButton CmdClose{*this, "CmdClose"};

    /// Lets the user choose a new text file for the index, and loads it. The project file stays as it is.
    void NewText();
    /// Tells whether the window is ready, and if so loads the index. Where nothing but the text file is
    /// missing, NewText follows.
    void ChkStatus();

    /// Whether nothing has been typed since the index was loaded or saved.
    bool saved() const { return saved_; }
    const HelpIndex& index() const { return editor_.index(); }

  protected:
    void design() override;
    void Form_Load() override;
    void Form_QueryUnload(bool& cancel, forms::UnloadMode mode) override;
    void Form_Unload(bool& cancel) override;

  private:
    enum class Status : std::uint8_t { NotReady, NoTextFile, Loaded };
    enum class Closing : std::uint8_t { None, Window };

    void cboDsr_Click() { editor_.cboDsr_Click(); }
    void CboCtl_Click() { editor_.CboCtl_Click(); }
    void cboDsr_KeyDown(std::int16_t KeyCode) { TextEntryEditor::KeyDown(KeyCode); }
    void CboCtl_KeyDown(std::int16_t KeyCode) { TextEntryEditor::KeyDown(KeyCode); }
    void CmdDef_Click();
    void CmdDel_Click();
    void Command2_Click();
    void CmdProc_Click();
    void CmdClose_Click() { unload(); }
    void txtHelp_KeyPress() { saved_ = false; }
    void txtHelp_Change();

    void runAlone(const std::function<void()>& command);
    bool mustClose() const;
    void openProject(const std::string& path);
    void showProject();
    void leaveIndex();
    void checkStatusOrNewText();
    Status checkStatus();
    Status loadData();
    void loadIndex(const ProjectInfo& info);
    void chooseTextFile();
    void save();
    void setStatus(std::string_view text) { Lblstat.setCaption(std::string(text)); }
    int msgBox(const Message& message);
    std::vector<std::string_view> filesToUpdate() const;

    TextEntryEditor editor_;
    std::shared_ptr<ide::VBE> VBInstance_;
    std::weak_ptr<ui::WindowOwner> ThisMgr_;
    std::string projectPath_; // of opened_
    ProjectInfo opened_;      // the project that was opened last
    bool valid_ = false;      // its file is
    ProjectInfo info_;        // the project whose index is being edited, with paths that can be reached
    bool saved_ = true;
    forms::LoneCommand<Closing> lone_;
};

} // namespace corvelle::indexer
