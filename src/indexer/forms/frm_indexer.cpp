#include "indexer/forms/frm_indexer.h"

#include "base/run_time_error.h"
#include "forms/desktop.h"
#include "forms/message_box.h"
#include "ide/required.h"
#include "indexer/forms/show_file_dialog.h"
#include "indexer/paths.h"

#include <array>

namespace corvelle::indexer {

using base::ignoringErrors;
using ide::required;

FrmIndexer::FrmIndexer(forms::Desktop& desktop) : Form(desktop, "FrmIndexer") {
    CmdProc.onClick = [this] { CmdProc_Click(); };
    CmdNext.onClick = [this] { CmdNext_Click(); };
    CmdClose.onClick = [this] { CmdClose_Click(); };
    TBS.onClick = [this] { TBS_Click(); };
    for (std::size_t index = 0; index < 4; ++index) {
        Text1(index).onChange = [this] { Text1_Change(); };
        Command2(index).onClick = [this, index] { Command2_Click(index); };
    }
    txtModule.onLostFocus = [this] { txtModule_LostFocus(); };
    cboDsr.onClick = [this] { cboDsr_Click(); };
    CboCtl.onClick = [this] { CboCtl_Click(); };
    cboDsr.onKeyDown = [this](int keyCode) { cboDsr_KeyDown(static_cast<std::int16_t>(keyCode)); };
    CboCtl.onKeyDown = [this](int keyCode) { CboCtl_KeyDown(static_cast<std::int16_t>(keyCode)); };
    CmdDef.onClick = [this] { CmdDef_Click(); };
    CmdDel.onClick = [this] { CmdDel_Click(); };
    cmdRpt.onClick = [this] { cmdRpt_Click(); };
}

PathField& FrmIndexer::pathField(std::size_t index) {
    const std::array<PathField*, 4> fields{&headerField, &configurationField, &textField, &moduleField};
    return *fields.at(index);
}

int FrmIndexer::msgBox(const Message& message) {
    return desktop().msgBox(message.text, message.flags, message.title);
}

std::shared_ptr<ide::VBProject> FrmIndexer::activeProject() const {
    return required(VBInstance_).ActiveVBProject();
}

std::string FrmIndexer::chooseFile(const std::string& filter) {
    const auto session = session_;
    std::string folder;
    ignoringErrors([&] { folder = getFilePath(required(activeProject()).FileName()); });
    forms::CommonDialog dialog(desktop());
    const auto path = ShowFileDialog(filter, folder, "", dialog);
    return session == session_ ? path : std::string();
}

// Start-up and end

void FrmIndexer::ShowIndexer(const std::shared_ptr<ide::VBE>& refIDE) {
    const auto alive = shared_from_this();
    VBInstance_ = refIDE;
    load();
    if (isLoaded()) StageNew();
}

void FrmIndexer::Form_Load() {
    const auto session = session_;
    texts_.reset();
    ignoringErrors([this] { setIcon(forms::Picture("icon101")); });
    loadExcludeList();
    if (session == session_) ignoringErrors([this] { presetOptions(); });
}

void FrmIndexer::loadExcludeList() {
    const char* const section = "Indexer";
    const char* const key = "ExcludeList_Path";
    const auto session = session_;
    auto& settings = desktop().settings();
    const auto& application = desktop().application.productName;
    std::string path;
    ignoringErrors([&] { path = settings.get(application, section, key, ""); });
    if (path.empty()) {
        path = locateExcludeList();
        if (path.empty()) return;
        ignoringErrors([&] { settings.save(application, section, key, path); });
    }
    ReadExcludeList(path, session->excludeList);
}

std::string FrmIndexer::locateExcludeList() {
    const auto answer =
        msgBox({"The filepath containing list of controls which are to be excluded from \r"
                " indexing was not found. This file must be a text file and it contains the control \r"
                "class names delimited with single space. The control class name found in the file are  \r"
                "generally does not have a Context Help ID property.\rDo you wish to locate it ?",
                forms::box::yesNo | forms::box::question, "File not found.."});
    if (answer != forms::answer::yes || !isLoaded()) return {};
    forms::CommonDialog dialog(desktop());
    dialog.flags = forms::file_dialog::pathMustExist;
    dialog.cancelError = true;
    return ignoringErrors([&] { dialog.showOpen(); }) ? dialog.fileName : std::string();
}

void FrmIndexer::Form_Unload(bool& /*cancel*/) {
    session_ = std::make_shared<Session>();
    VBInstance_ = nullptr;
    if (const auto manager = ThisMgr.lock()) manager->Hide(); // however it was closed
}

// The stages

void FrmIndexer::StageNew() {
    showStage(Stage::New);
    TBS_Click();
    show();
    desktop().doEvents();
}

void FrmIndexer::StageIndex() {
    showStage(Stage::Index);
}

void FrmIndexer::StageTxtPopup() {
    showStage(Stage::TxtPopup);
    prepareTextEntries();
}

void FrmIndexer::StageReport() {
    showStage(Stage::Report);
}

void FrmIndexer::enableNext() {
    const std::array<bool, 4> enabled{session_->analysed, session_->indexCreated, true, false};
    CmdNext.setEnabled(enabled.at(static_cast<std::size_t>(session_->stage)));
}

void FrmIndexer::CmdProc_Click() {
    switch (session_->stage) {
    case Stage::New:
        return analyseProject();
    case Stage::Index:
        return createIndex();
    case Stage::TxtPopup:
        return saveTextFile();
    case Stage::Report:
        return saveProject();
    }
}

void FrmIndexer::CmdNext_Click() {
    switch (session_->stage) {
    case Stage::New:
        return StageIndex();
    case Stage::Index:
        return StageTxtPopup();
    case Stage::TxtPopup:
        return StageReport();
    case Stage::Report:
        return;
    }
}

void FrmIndexer::CmdClose_Click() {
    switch (session_->stage) {
    case Stage::Index:
        return StageNew();
    case Stage::TxtPopup:
        return StageIndex();
    case Stage::New:
    case Stage::Report:
        if (const auto manager = ThisMgr.lock()) return manager->Hide();
        unload(); // nobody owns the window any more
    }
}

void FrmIndexer::TBS_Click() {
    const bool information = TBS.selected() == 1;
    FrameOption.setVisible(!information);
    FrameInfo.setVisible(information);
}

} // namespace corvelle::indexer
