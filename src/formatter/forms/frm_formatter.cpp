#include "formatter/forms/frm_formatter.h"

#include "base/run_time_error.h"
#include "formatter/forms/frm_main.h"
#include "formatter/forms/wizard_title.h"
#include "forms/desktop.h"
#include "forms/message_box.h"
#include "ide/required.h"

#include <utility>

namespace corvelle::formatter {

using base::ignoringErrors;

FrmFormatter::FrmFormatter(forms::Desktop& desktop) : Form(desktop, "FrmFormatter") {
    CmdFmt.onClick = [this] { CmdFmt_Click(); };
    CmdAdd.onClick = [this] { CmdAdd_Click(); };
    CmdFile.onClick = [this] { CmdFile_Click(); };
    CmdBack.onClick = [this] { CmdBack_Click(); };
    CmdClose.onClick = [this] { CmdClose_Click(); };
    CmdHelp.onClick = [this] { CmdHelp_Click(); };
    ChkNoEmpty.onClick = [this] { ChkNoEmpty_Click(); };
    ChkNoCmnt.onClick = [this] { ChkNoCmnt_Click(); };
    ChkNoAll.onClick = [this] { ChkNoAll_Click(); };
    Slider1.onChange = [this] { Slider1_Change(); };
    connectHints();
}

void FrmFormatter::FormatModule(const std::shared_ptr<frmMain>& FrmRef, const forms::Picture& mIcon) {
    const auto alive = shared_from_this();
    FrmCalled = FrmRef;
    FrmRef->hide();
    setIcon(mIcon);
    // Without a module, or when the IDE fails, the label keeps saying so.
    ignoringErrors([this] { lblModule.setCaption(ide::required(FmtCodeModule).Name()); });
    showModal();
    unload(); // still there if the program quits
}

void FrmFormatter::Form_Load() {
    options_.mTab = 2;
    options_.bNoEmpty = 1;
    takeSettings();
    InitBtns();
    Form_MouseMove(); // the hint that stands there at first
    const auto page = FrmCalled.lock();
    std::string project;
    ignoringErrors([&] { project = activeProjectName(page ? page->VBInstance : nullptr); });
    setCaption(wizardTitle(project));
    constexpr int textHelp = 1000;
    Text1.setHelpContextID(textHelp);
    Text1.setWhatsThisHelpID(textHelp);
}

// Texts and pictures

void FrmFormatter::setInfo(std::string_view mTxt) {
    txtInfo.setText(" Status: " + std::string(mTxt));
}

void FrmFormatter::SetProcInfo(std::string_view mRes) {
    Label1.setCaption(" " + std::string(mRes));
}

void FrmFormatter::SetResults(std::string_view mRes) {
    Label2.setCaption("      " + std::string(mRes));
}

void FrmFormatter::setImage(int Mode) {
    for (std::size_t i = 0; i < Image1.size(); ++i) Image1[i].setVisible(static_cast<int>(i) == Mode);
}

void FrmFormatter::objectNotSet() {
    desktop().msgBox("Error while accessing object.. Aborting.", forms::box::exclamation,
                     "Object variable not set..");
}

// Commands that must not meet one another

void FrmFormatter::runAlone(const std::function<void()>& command) {
    leave(lone_.run(*this, command));
}

bool FrmFormatter::mustClose() const {
    return lone_.closing() != Closing::None || desktop().isQuitting();
}

void FrmFormatter::DisableProc() {
    if (!inPass_) return;
    if (structured_) {
        structured_->DisableProc();
    } else {
        engine_.DisableProc();
    }
}

void FrmFormatter::doEvents() {
    desktop().doEvents();
    if (desktop().isQuitting()) DisableProc();
}

// Closing

void FrmFormatter::CmdClose_Click() {
    leave(Closing::Wizard);
}

void FrmFormatter::leave(Closing what) {
    if (what == Closing::None) return;
    const auto page = FrmCalled.lock();
    if (what == Closing::Wizard && page && page->isLoaded()) {
        if (lone_.isRunning()) lone_.closeAfterwards(what);
        page->CloseNotify();
    } else {
        unload();
    }
}

bool FrmFormatter::confirmExit() {
    if (!formatted_ || bSave_) return true;
    return desktop().msgBox(
               "You have not added the formatted code to the code module..!\rSure you wish to exit ?",
               forms::box::yesNo | forms::box::question, "Add code ..?") == forms::answer::yes;
}

void FrmFormatter::Form_QueryUnload(bool& cancel, forms::UnloadMode /*mode*/) {
    if (lone_.isRunning()) {
        // The command's stack still works on this window. It closes when the command has ended.
        DisableProc();
        if (lone_.closing() == Closing::None) lone_.closeAfterwards(Closing::Dialog);
        cancel = true;
        return;
    }
    // Nobody can answer while the program quits.
    if (!desktop().isQuitting()) cancel = !confirmExit();
}

void FrmFormatter::Form_Unload(bool& /*cancel*/) {
    engine_.takeLineBuffer();
    structured_.reset();
    maxIndx_ = -1;
    if (const auto list = std::exchange(errors_, nullptr)) list->unload();
    const std::string path = Text1.text();
    if (const auto page = FrmCalled.lock()) page->FormatterClosed(path.substr(0, path.rfind('\\') + 1));
}

} // namespace corvelle::formatter
