#include "formatter/forms/frm_main.h"

#include "base/run_time_error.h"
#include "base/scope_exit.h"
#include "formatter/forms/frm_formatter.h"
#include "formatter/forms/wizard_title.h"
#include "forms/desktop.h"
#include "forms/message_box.h"
#include "ide/required.h"
#include "ui/frm_abt.h"

namespace corvelle::formatter {

frmMain::frmMain(forms::Desktop& desktop) : Form(desktop, "frmMain") {
    CmdNext.onClick = [this] { CmdNext_Click(); };
    cmdCancel.onClick = [this] { cmdCancel_Click(); };
    CmdAbt.onClick = [this] { CmdAbt_Click(); };
    cmdRef.onClick = [this] { cmdRef_Click(); };
}

void frmMain::design() {
    setIcon(forms::Picture("formatter"));
    setCaption("Trellis");
    setSize({7200, 4395});
    setDefaultButton(CmdNext);
    setCancelButton(cmdCancel);

    Image1.setBounds({120, 120, 1800, 3540});
    lblIntro.setBounds({2040, 120, 5040, 1950});
    lblIntro.setCaption(
        "     This wizard will help you in compacting and beautifying your code module. You need to be carefull "
        "while using this  wizard. You must save a backup copy of the  code with the help of this wizard first so "
        "that you never suffer any code loss. This program is not 100% guaranteed. You may cancel this wizard "
        "now.");
    lblModule.setBounds({2040, 2430, 3720, 195});
    lblModule.setCaption("Active code module:");
    Text1.setBounds({2040, 2685, 3705, 315});
    Text1.setLocked(true);
    cmdRef.setBounds({5865, 2655, 1215, 375});
    cmdRef.setCaption("&Refresh");
    CmdAbt.setBounds({120, 3900, 1215, 375});
    CmdAbt.setCaption("&About ..?");
    cmdCancel.setBounds({4530, 3900, 1215, 375});
    cmdCancel.setCaption("&Cancel");
    CmdNext.setBounds({5865, 3900, 1215, 375});
    CmdNext.setCaption("&Next   >>");
}

void frmMain::Form_Load() {
    closing_ = false;
    desktop().application.helpFile = desktop().settings().get(
        desktop().application.productName, "Configurations", "Help File", "Formatter Help.chm");
    Image1.setPicture(forms::Picture("page"));
    constexpr int textHelp = 1000;
    Text1.setHelpContextID(textHelp);
}

// The active module

void frmMain::setActiveModule() {
    if (base::ignoringErrors([this] { takeActiveModule(); })) return;
    codePane_.reset();
    codeModule_.reset();
    Text1.setText("");
    CmdNext.setEnabled(false);
    desktop().msgBox("Activate a code module before activating this form.", forms::box::information);
}

void frmMain::takeActiveModule() {
    setCaption(wizardTitle(activeProjectName(VBInstance)));
    codePane_ = ide::required(VBInstance).ActiveCodePane();
    codeModule_ = ide::required(codePane_).CodeModule();
    const auto component = ide::required(codeModule_).Parent();
    const std::string name = ide::required(component).Name();
    Text1.setText(" " + name);
    if (Text1.text() != lastFormatted_ && component->IsDirty()) {
        desktop().msgBox("Before running this Add-In it is advicable that you save the Module:'" + name +
                             ".\rThis will avoid you from code loss in case of a failure formatting.",
                         forms::box::information, "Save Module first..");
        if (!isLoaded()) return; // closed behind the box
    }
    CmdNext.setEnabled(true);
}

bool frmMain::moduleIsDirty() {
    return ide::required(ide::required(codeModule_).Parent()).IsDirty();
}

// On to the dialog

void frmMain::CmdNext_Click() {
    if (formatter_) return;
    const auto dialog = std::make_shared<FrmFormatter>(desktop());
    formatter_ = dialog;
    const base::ScopeExit released([&] { // unless the dialog's own closing has done so
        if (formatter_ == dialog) formatter_.reset();
    });
    if (Text1.text() == lastFormatted_ && !confirmRepetition()) return;
    if (!isLoaded()) return; // closed behind the box
    handedOver_ = Text1.text();
    dialog->FmtCodeModule = codeModule_;
    dialog->FmtCodePane = codePane_;
    dialog->BackDir = BackupDir_;
    dialog->ReadSettings = ReadSettings;
    const auto self = std::static_pointer_cast<frmMain>(shared_from_this());
    dialog->FrmCalled = self;
    try {
        dialog->FormatModule(self, icon());
    } catch (...) {
        if (isLoaded()) show();
        throw;
    }
}

bool frmMain::confirmRepetition() {
    std::string question =
        "Please confirm that you wish to format \rModule:" + lastFormatted_ + " which was just formatted";
    if (moduleIsDirty()) {
        question += "\rAlso you have not saved the module after  formatting. \r"
                    "It is not a good idea to proceed at these circumstances.";
    }
    return desktop().msgBox(question, forms::box::yesNo | forms::box::exclamation,
                            "Repeate formatting ..?") == forms::answer::yes;
}

void frmMain::ModuleFormatted() {
    lastFormatted_ = handedOver_;
}

void frmMain::FormatterClosed(const std::string& backupDir) {
    BackupDir_ = backupDir;
    formatter_.reset();
    if (!closing_ && !desktop().isQuitting()) show();
}

// About, closing

void frmMain::CmdAbt_Click() {
    const auto box = ui::frmAbt::defaultInstance(desktop());
    box->setWarning(ui::codeLossWarning, ui::warningColour, forms::colours::white);
    box->setAboutPicture(Image1.picture());
    box->showModal();
}

void frmMain::CloseNotify() {
    const auto alive = shared_from_this();
    if (const auto dialog = formatter_) {
        closing_ = true;
        const bool gone = dialog->unload();
        closing_ = gone;
        if (!gone) return;
    }
    unload();
    hideAddIn();
}

void frmMain::Form_Unload(bool& /*cancel*/) {
    closing_ = true;
    if (const auto dialog = formatter_) dialog->unload();
    hideAddIn();
}

void frmMain::hideAddIn() {
    if (const auto manager = ThisAddInMgr.lock()) {
        manager->Hide();
    } else {
        unload();
    }
}

} // namespace corvelle::formatter
