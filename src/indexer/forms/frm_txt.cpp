#include "indexer/forms/frm_txt.h"

#include "base/file_descriptor.h"
#include "base/paths.h"
#include "base/run_time_error.h"
#include "forms/desktop.h"
#include "forms/message_box.h"
#include "indexer/entry_edits.h"
#include "indexer/existing_index.h"
#include "indexer/forms/dialog_design.h"
#include "indexer/forms/show_file_dialog.h"
#include "indexer/paths.h"
#include "indexer/text_file.h"

#include <utility>

namespace corvelle::indexer {

namespace {

constexpr unsigned newFileMode = 0666;

} // namespace

FrmTxt::FrmTxt(forms::Desktop& desktop)
    : Form(desktop, "FrmTxt"),
      editor_({cboDsr, CboCtl, LblType, LblID, txtHelp, CmdDef, CmdDel}, [this] { return filesToUpdate(); }) {
    Command2.onClick = [this] { Command2_Click(); };
    cboDsr.onClick = [this] { cboDsr_Click(); };
    cboDsr.onKeyDown = [this](int keyCode) { cboDsr_KeyDown(static_cast<std::int16_t>(keyCode)); };
    CboCtl.onClick = [this] { CboCtl_Click(); };
    CboCtl.onKeyDown = [this](int keyCode) { CboCtl_KeyDown(static_cast<std::int16_t>(keyCode)); };
    txtHelp.onKeyPress = [this] { txtHelp_KeyPress(); };
    txtHelp.onChange = [this] { txtHelp_Change(); };
    CmdDef.onClick = [this] { CmdDef_Click(); };
    CmdDel.onClick = [this] { CmdDel_Click(); };
    CmdProc.onClick = [this] { CmdProc_Click(); };
    CmdClose.onClick = [this] { CmdClose_Click(); };
}

void FrmTxt::ShowTextEdit(const std::shared_ptr<ide::VBE>& refInst,
                          const std::shared_ptr<ui::WindowOwner>& refClass) {
    VBInstance_ = refInst;
    ThisMgr_ = refClass;
    show();
}

void FrmTxt::Form_Load() {
    setIcon(forms::Picture("icon101"));
    lblInfo.setCaption(textEntriesInfo);
    editor_.reset();
    projectPath_.clear();
    opened_.fill({});
    info_.fill({});
    valid_ = false;
    saved_ = true;
}

int FrmTxt::msgBox(const Message& message) {
    return desktop().msgBox(message.text, message.flags, message.title);
}

// Commands that must not meet one another

void FrmTxt::runAlone(const std::function<void()>& command) {
    const auto alive = shared_from_this();
    if (lone_.run(*this, command) == Closing::Window) unload();
}

bool FrmTxt::mustClose() const {
    return lone_.closing() != Closing::None || desktop().isQuitting();
}

// Opening a project

void FrmTxt::Command2_Click() {
    runAlone([this] {
        forms::CommonDialog dialog(desktop());
        dialog.dialogTitle = "Open Indexer Project";
        dialog.filter = "Indexer Project(*.icp)|*.icp";
        dialog.initDir = getFilePath(Text1.text());
        dialog.flags = forms::file_dialog::pathMustExist;
        dialog.cancelError = true;
        if (!base::ignoringErrors([&] { dialog.showOpen(); }) || dialog.fileName.empty()) return;
        if (!mustClose()) openProject(dialog.fileName);
    });
}

void FrmTxt::openProject(const std::string& path) {
    Text1.setText(path);
    projectPath_ = path;
    valid_ = ReadProjectFile(path, opened_);
    CmdProc.setEnabled(valid_);
    if (!valid_) {
        leaveIndex();
        txtPrj.setText(std::string(invalidProjectFile));
        return;
    }
    showProject();
    checkStatusOrNewText();
}

void FrmTxt::leaveIndex() {
    if (!saved_) return; // what was typed can still be saved at the close
    editor_.reset();
    info_.fill({});
}

void FrmTxt::showProject() {
    std::string text;
    for (std::size_t which = slot::projectName; which <= slot::text; ++which)
        text.append("\r\n").append(opened_.at(which));
    txtPrj.setText(text + "\r\nProject file loades successfully.");
}

void FrmTxt::ChkStatus() {
    runAlone([this] { checkStatusOrNewText(); });
}

void FrmTxt::checkStatusOrNewText() {
    if (checkStatus() == Status::NoTextFile && !mustClose()) chooseTextFile();
}

FrmTxt::Status FrmTxt::checkStatus() {
    if (!CmdProc.enabled()) {
        setStatus(" Status: Not ready file path(s) empty");
        return Status::NotReady;
    }
    setStatus(" Status: Ready to load data....");
    return loadData();
}

FrmTxt::Status FrmTxt::loadData() {
    auto info = withPathsFound(opened_, projectPath_);
    if (!indexFilesExist(info)) {
        CmdProc.setEnabled(false);
        leaveIndex();
        msgBox(indexFilesMissing());
        return fileExists(info[slot::configuration]) ? Status::NoTextFile : Status::NotReady;
    }
    const bool loaded = run([&] { loadIndex(info); });
    run([this] { Indic.stopNow(); });
    setMousePointer(forms::MousePointer::Default);
    if (!loaded) return Status::NotReady;
    setStatus(" Status: Ready to accept Text entries...");
    return Status::Loaded;
}

void FrmTxt::loadIndex(const ProjectInfo& info) {
    info_.fill({}); // half an index must not be saved
    setMousePointer(forms::MousePointer::Hourglass);
    Indic.StartNow();
    setStatus(" Status: Loading Mappings..");
    editor_.reset();
    saved_ = true;
    editor_.takeMappings(LoadMappings(info[slot::configuration]));
    setStatus(" Status: Finished loading Mappings..");
    LoadTextEntries(info[slot::text], editor_.index(), LastDefault::Read);
    setStatus(" Status: Finished loading Text entries...");
    info_ = info;
    editor_.chooseFirst();
}

void FrmTxt::NewText() {
    runAlone([this] { chooseTextFile(); });
}

void FrmTxt::chooseTextFile() {
    const int answer =
        msgBox({"Do you wish to create new Text file ..?", forms::box::yesNo | forms::box::question});
    if (answer == forms::answer::no || mustClose()) return;
    forms::CommonDialog dialog(desktop());
    const auto path =
        ShowFileDialog("Text Files(*.txt)|*.txt", std::string(getFilePath(opened_[slot::text])), "", dialog);
    if (path.empty() || mustClose()) return;
    // The dialog has asked whether to make it. One that is there stays.
    base::ignoringErrors([&] { base::openNew(base::pathOf(path), newFileMode); });
    opened_[slot::text] = path;
    if (valid_) {
        CmdProc.setEnabled(true); // the project may have lacked nothing else
        showProject();
    }
    checkStatus(); // the question has just been answered: it is not asked again
}

// Editing

void FrmTxt::CmdDef_Click() {
    runAlone([this] { editor_.CmdDef_Click(); });
}

void FrmTxt::CmdDel_Click() {
    runAlone([this] { editor_.CmdDel_Click(); });
}

void FrmTxt::txtHelp_Change() {
    // The mouse can paste without a key.
    if (!editor_.isShowing()) saved_ = false;
}

std::vector<std::string_view> FrmTxt::filesToUpdate() const {
    return {info_[slot::configuration], info_[slot::text], info_[slot::moduleName], info_[slot::moduleFile]};
}

// Saving

void FrmTxt::CmdProc_Click() {
    runAlone([this] { save(); });
}

void FrmTxt::save() {
    const auto result = saveExistingIndex(info_, editor_.index(), editor_.bFilesPrompted(),
                                          [this](std::string_view status) { setStatus(status); });
    msgBox(result.message);
    if (result.texts) saved_ = true;
    setStatus(result.status);
}

// Closing

void FrmTxt::Form_QueryUnload(bool& cancel, forms::UnloadMode /*mode*/) {
    if (lone_.isRunning()) {
        // The command's stack still works on this window. It closes when the command has ended.
        lone_.closeAfterwards(Closing::Window);
        cancel = true;
        return;
    }
    // Nobody can answer while the program quits.
    if (saved_ || desktop().isQuitting()) return;
    const int answer = msgBox({"You have not saved the changes.\rDo you whish to save before closing..?",
                               forms::box::yesNo | forms::box::question, "Save ?"});
    if (answer == forms::answer::yes) save();
}

void FrmTxt::Form_Unload(bool& /*cancel*/) {
    VBInstance_.reset();
    if (const auto manager = std::exchange(ThisMgr_, {}).lock()) manager->Hide();
}

// How the editor for an existing index looks.

using namespace dialog;

namespace {

constexpr int left = infoWidth + 2 * edge + margin;
constexpr int width = 7005;
constexpr int infoTop = 420;
constexpr int frameTop = 2700;
constexpr int frameHeight = 3690;
constexpr int bottom = frameTop + frameHeight;
constexpr forms::Size designSize{left + width + margin, bottom + 2 * margin + buttonHeight};

} // namespace

void FrmTxt::design() {
    setCaption("Help ID Indexer: Create /Modify Text Entries");
    setSize(designSize);

    dialog::design(lblSubtitle, "Add  pop up text entries for your controls",
                   {margin, margin, designSize.width - 2 * margin, 240});
    auto bold = lblSubtitle.font();
    bold.bold = true;
    lblSubtitle.setFont(bold);
    dialog::designInfo(lblInfo, infoTop, bottom - infoTop);

    dialog::design(lblProject, "Select Indexer Project File:", {left, infoTop, width, lineHeight});
    Text1.setLocked(true); // a path comes from the dialog alone
    Text1.setBounds({left, infoTop + below, width - browseWidth - 60, boxHeight});
    Command2.setCaption("....");
    Command2.setBounds({left + width - browseWidth, infoTop + below, browseWidth, boxHeight});
    constexpr int projectTop = infoTop + below + boxHeight + margin;
    txtPrj.setMultiLine(true);
    txtPrj.setLocked(true);
    txtPrj.setText("No Information");
    txtPrj.setBounds({left, projectTop, width, frameTop - projectTop - margin});

    Frame1.setCaption("Text Pop Up Entries");
    Frame1.setBounds({left, frameTop, width, frameHeight});
    editor_.design({lblDesigner, lblControl, lblTypeIs, lblIDIs, lblHelp}, 300, width - 2 * margin,
                   frameHeight);

    constexpr int buttonsTop = bottom + margin;
    constexpr int right = left + width - buttonWidth;
    constexpr int indicatorWidth = 1200;
    Lblstat.setCaption(" Status: Not ready file path(s) empty");
    Lblstat.setBordered(true);
    Lblstat.setBounds({edge, buttonsTop + 45,
                       right - 2 * (buttonWidth + margin) - edge + buttonWidth - indicatorWidth - margin,
                       285});
    IndicSurface.setBounds(
        {right - buttonWidth - margin - indicatorWidth - margin, buttonsTop + 45, indicatorWidth, 285});
    dialog::design(CmdProc, "&Save", right - buttonWidth - margin, buttonsTop);
    CmdProc.setEnabled(false);
    dialog::design(CmdClose, "&Close", right, buttonsTop);
}

} // namespace corvelle::indexer
