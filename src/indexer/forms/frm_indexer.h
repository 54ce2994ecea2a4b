#pragma once

#include "forms/controls.h"
#include "forms/form.h"
#include "forms/list_controls.h"
#include "ide/vbe.h"
#include "indexer/analysis.h"
#include "indexer/forms/text_entry_editor.h"
#include "indexer/index_options.h"
#include "indexer/message.h"
#include "indexer/report.h"
#include "ui/indicator.h"
#include "ui/window_owner.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::indexer {

/// A path that the user types or chooses, with its label and the button that shows the file dialog.
struct PathField {
    PathField(forms::Form& form, const std::string& index, forms::Frame& frame)
        : label(form, "lblPath(" + index + ")", &frame), path(form, "Text1(" + index + ")", &frame),
          browse(form, "Command2(" + index + ")", &frame) {}

    forms::Label label;
    forms::TextBox path;
    forms::CommandButton browse;
};

/// The indexer's wizard. Stage 1 analyses the active project and takes the options, stage 2 creates the index
/// files, stage 3 collects the text entries, stage 4 shows the report and saves it and the indexer project.
/// The analysis and the creation yield; every command stays in reach meanwhile. An analysis started meanwhile
/// takes the place of the one under way, a second creation does not start. A window that is unloaded ends
/// both: the analysis at once, the creation when its designer is complete.
class FrmIndexer : public forms::Form {
  public:
    explicit FrmIndexer(forms::Desktop& desktop);

    /// The connect object, which is told of every close.
    std::weak_ptr<ui::WindowOwner> ThisMgr;

    // Controls, in tab order.

    /// Describes the current stage.
    forms::Label lblInfo{*this, "lblInfo"};

    // Stage 1

    forms::Frame FrameOne{*this, "FrameOne"};
    forms::TabStrip TBS{*this, "TBS", &FrameOne};
    forms::Frame FrameInfo{*this, "FrameInfo", &FrameOne};
    forms::Label lblProj{*this, "lblProj", &FrameInfo};
    forms::Label lblPrjStat{*this, "lblPrjStat", &FrameInfo};
    forms::Label LblForms{*this, "LblForms", &FrameInfo};
    forms::Label lblMDI{*this, "lblMDI", &FrameInfo};
    forms::Label lblActive{*this, "lblActive", &FrameInfo};
    forms::Label LblProp{*this, "LblProp", &FrameInfo};
    forms::Label LblDOB{*this, "LblDOB", &FrameInfo};
    forms::Label LblDsr{*this, "LblDsr", &FrameInfo};
    forms::Label lblMsFrm{*this, "lblMsFrm", &FrameInfo};
    forms::Label lblControls{*this, "lblControls", &FrameInfo};
    forms::Frame FrameOption{*this, "FrameOption", &FrameOne};
    forms::Label lblSelect{*this, "lblSelect", &FrameOption};
    forms::CheckBox ChkFrm{*this, "ChkFrm", &FrameOption};
    forms::CheckBox ChkMDI{*this, "ChkMDI", &FrameOption};
    forms::CheckBox ChkDsr{*this, "ChkDsr", &FrameOption};
    forms::CheckBox ChkDOB{*this, "ChkDOB", &FrameOption};
    forms::CheckBox ChkPG{*this, "ChkPG", &FrameOption};
    forms::CheckBox ChkActiveXCtl{*this, "ChkActiveXCtl", &FrameOption};
    forms::Label lblExclude{*this, "lblExclude", &FrameOption};
    forms::CheckBox ChkExclLbl{*this, "ChkExclLbl", &FrameOption};
    forms::CheckBox ChKExcFrame{*this, "ChKExcFrame", &FrameOption};
    forms::CheckBox ChkExcShape{*this, "ChkExcShape", &FrameOption};
    forms::CheckBox ChkExcMenu{*this, "ChkExcMenu", &FrameOption};
    forms::CheckBox ChkExcLine{*this, "ChkExcLine", &FrameOption};
    forms::CheckBox ChkExcToolbar{*this, "ChkExcToolbar", &FrameOption};
    forms::CheckBox ChkIDMap{*this, "ChkIDMap", &FrameOption};
    forms::CheckBox ChkAutoLoad{*this, "ChkAutoLoad", &FrameOption};
    forms::Label lblAutoLoad{*this, "lblAutoLoad", &FrameOption};
    forms::Frame FrameDefault{*this, "FrameDefault", &FrameOption};
    /// The default topic's text.
    forms::TextBox txtDefault{*this, "txtDefault", &FrameDefault};

    // Stage 2

    forms::Frame FrameTwo{*this, "FrameTwo"};
    PathField headerField{*this, "0", FrameTwo};
    PathField configurationField{*this, "1", FrameTwo};
    forms::Label lblModuleName{*this, "lblModuleName", &FrameTwo};
    forms::TextBox txtModule{*this, "txtModule", &FrameTwo};
    PathField moduleField{*this, "3", FrameTwo};
    forms::Label LblProc{*this, "LblProc", &FrameTwo};
    forms::Label LblProcModule{*this, "LblProcModule", &FrameTwo};
    forms::Surface IndicSurface{*this, "Indic", &FrameTwo};
    ui::Indicator Indic{desktop(), IndicSurface};

    // Stage 3

    forms::Frame FrameThree{*this, "FrameThree"};
    PathField textField{*this, "2", FrameThree};
    forms::Label lblDsr{*this, "lblDsr", &FrameThree};
    forms::ComboBox cboDsr{*this, "cboDsr", &FrameThree};
    forms::Label lblCtl{*this, "lblCtl", &FrameThree};
    forms::ComboBox CboCtl{*this, "CboCtl", &FrameThree};
    forms::Label lblTypeIs{*this, "lblTypeIs", &FrameThree};
    forms::Label LblType{*this, "LblType", &FrameThree};
    forms::Label lblIDIs{*this, "lblIDIs", &FrameThree};
    forms::Label LblID{*this, "LblID", &FrameThree};
    forms::Label lblHelp{*this, "lblHelp", &FrameThree};
    forms::TextBox txtHelp{*this, "txtHelp", &FrameThree};
    forms::CommandButton CmdDef{*this, "CmdDef", &FrameThree};
    forms::CommandButton CmdDel{*this, "CmdDel", &FrameThree};

    // Stage 4

    forms::Frame FrameFour{*this, "FrameFour"};
    forms::Label lblReview{*this, "lblReview", &FrameFour};
    /// The report.
    forms::TextBox TxtRV{*this, "TxtRV", &FrameFour};
    forms::CommandButton cmdRpt{*this, "cmdRpt", &FrameFour};

    // All stages

    forms::CommandButton CmdProc{*this, "CmdProc"};
    forms::CommandButton CmdNext{*this, "CmdNext"};
    forms::CommandButton CmdClose{*this, "CmdClose"};

    /// The paths: 0 header file, 1 configuration file, 2 text file, 3 mapping module file.
    forms::TextBox& Text1(std::size_t index) { return pathField(index).path; }
    /// Their file choosers.
    forms::CommandButton& Command2(std::size_t index) { return pathField(index).browse; }

    /// Shows the wizard's first stage for the IDE's active project.
    void ShowIndexer(const std::shared_ptr<ide::VBE>& refIDE);

    // The stages: each shows its own frame and sets the texts and buttons.

    void StageNew();
    void StageIndex();
    void StageTxtPopup();
    void StageReport();

    /// Counts the active project's designers and controls, and selects the designers by the options.
    void analyseProject();
    /// Creates the index of the selected designers.
    void createIndex();
    /// Whether a module of that name can be added to the active project; says so if not. Trims the name.
    bool validModule(std::string& mName);
    /// Begins the report anew with what the analysis tells.
    void AddInfo_Rpt();
    /// Lets the user choose a file for the indexer project, and saves it.
    void saveProject();

    /// Loads the index for stage 3; back to stage 2 if there is none.
    void prepareTextEntries();
    /// Stores the text on display into an entry of the index.
    void UpdateInfo(const std::int32_t& id) { texts_.UpdateInfo(id); }
    /// Whether the user lets the index files be updated.
    bool getPromptRet() { return texts_.getPromptRet(); }

  protected:
    void design() override;
    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

  private:
    class Observer;
    class Analysing;
    class Creating;

    enum class Stage : std::uint8_t { New, Index, TxtPopup, Report };

    /// What the window holds from its load to its unload. Whoever yields keeps it, and sees by its being
    /// another one that the window has gone meanwhile.
    struct Session {
        Stage stage = Stage::New;
        bool analysed = false;
        bool indexCreated = false;
        ExcludeList excludeList;
        std::shared_ptr<Analysis> analysis = std::make_shared<Analysis>(); ///< the latest
        Report report;
        bool creating = false; ///< a creation is under way
    };

    PathField& pathField(std::size_t index);
    int msgBox(const Message& message);
    std::shared_ptr<ide::VBProject> activeProject() const;

    void CmdProc_Click();
    void CmdNext_Click();
    void CmdClose_Click();
    void TBS_Click();
    void Command2_Click(std::size_t index);
    void Text1_Change();
    void txtModule_LostFocus();
    void cmdRpt_Click();
    void showStage(Stage stage);
    void enableNext();
    /// Lets the user choose a file to save into, first in the project's folder; empty when cancelled, or when
    /// the window has gone meanwhile.
    std::string chooseFile(const std::string& filter);

    // Start-up
    void loadExcludeList();
    std::string locateExcludeList();
    void presetOptions();
    IndexOptions options();
    void setCaptions(AnalysisCaptions captions);
    AnalysisCaptions captions();

    // The report
    /// Appends a line.
    void appendToReport(std::string_view line);
    void showReport();

    // Stage 3
    void cboDsr_Click();
    void CboCtl_Click();
    void cboDsr_KeyDown(std::int16_t KeyCode);
    void CboCtl_KeyDown(std::int16_t KeyCode);
    void CmdDef_Click();
    void CmdDel_Click();
    /// Reads the texts of the chosen text file into the index.
    void loadChosenTextFile();
    void saveTextFile();
    std::vector<std::string_view> filesToUpdate();

    void designInfo();
    void designOptions();
    void designStageTwo();
    void designStageThree();
    void designStageFour();

    TextEntryEditor texts_{{cboDsr, CboCtl, LblType, LblID, txtHelp, CmdDef, CmdDel},
                           [this] { return filesToUpdate(); }};
    std::shared_ptr<ide::VBE> VBInstance_;
    /// Never null; another one from each unload on.
    std::shared_ptr<Session> session_ = std::make_shared<Session>();
};

} // namespace corvelle::indexer
