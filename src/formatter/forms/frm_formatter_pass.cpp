#include "base/run_time_error.h"
#include "base/scope_exit.h"
#include "formatter/forms/frm_formatter.h"
#include "formatter/forms/frm_main.h"
#include "forms/desktop.h"

#include <algorithm>

// Format Code: the cleaning pass while the module is read, then the indentation pass.
namespace corvelle::formatter {

void FrmFormatter::InitBtns() {
    if (!lone_.isRunning()) ResetAll();
}

void FrmFormatter::ResetAll() {
    maxIndx_ = -1;
    formatted_ = false;
    bSave_ = false;
    CmdAdd.setEnabled(false); // there is nothing to add any more
    if (structured_) {
        structured_->ResetAll();
    } else {
        engine_.ResetAll();
    }
}

void FrmFormatter::CmdFmt_Click() {
    std::int32_t errorCount = 0;
    runAlone([this, &errorCount] {
        bool ended = false;
        run([&] {
            errorCount = formatModule();
            ended = true;
        });
        if (ended) return;
        setImage(1);
        Frame1.setEnabled(true);
        setMousePointer(forms::MousePointer::Default);
        Indic.stopNow();
    });
    if (errorCount > 0 && isLoaded() && !desktop().isQuitting()) showErrors(errorCount);
}

std::int32_t FrmFormatter::formatModule() {
    setImage(3);
    formatted_ = false;
    if (settingsProblem_) throw settings::SettingsError(*settingsProblem_);
    // A module that is not set is LoadDataArray's to report.
    initialLines_ = FmtCodeModule ? FmtCodeModule->CountOfLines() : 0;
    setMousePointer(forms::MousePointer::Hourglass);
    ResetAll();
    setInfo("Loading file to internal buffer..");
    const std::int32_t maxIndx = LoadDataArray();
    if (maxIndx == -1) {
        setImage(1);
        setMousePointer(forms::MousePointer::Default);
        Indic.stopNow();
        return -1;
    }
    maxIndx_ = maxIndx;
    Frame1.setEnabled(false);
    const std::int32_t errorCount = runPass();
    Frame1.setEnabled(true);
    setMousePointer(forms::MousePointer::Default);
    SetProcInfo("No Process..");
    showResult(errorCount);
    Indic.stopNow();
    return errorCount;
}

std::int32_t FrmFormatter::LoadDataArray() {
    const auto module = FmtCodeModule;
    if (!module) {
        objectNotSet();
        return -1;
    }
    const std::int32_t n = module->CountOfLines();
    setInfo("Reading Module Pane..");
    Indic.StartNow();
    const std::int32_t maxIndx = readModule(*module, n);
    Indic.stopNow();
    SetProcInfo("No Process..");
    setInfo("Code Module Successfully loaded ..");
    return maxIndx;
}

// The user can reach the options until the module is read: they are taken before.
std::int32_t FrmFormatter::readModule(ide::CodeModule& module, std::int32_t n) {
    const auto lines = static_cast<std::size_t>(std::max(n, 0));
    if (structured_) {
        const auto options = structuredOptions();
        structured_->beginReading(lines);
        for (std::int32_t i = 1; i <= n && !mustClose(); ++i) structured_->readLine(module.Lines(i, 1));
        return structured_->endReading(options);
    }
    engine_.options = options_;
    engine_.beginCleaning(lines);
    for (std::int32_t i = 1; i <= n && !mustClose(); ++i) engine_.cleanLine(module.Lines(i, 1));
    return engine_.lineBuffer().maxIndx();
}

std::int32_t FrmFormatter::runPass() {
    inPass_ = true;
    const base::ScopeExit ended([this] { inPass_ = false; });
    if (mustClose()) DisableProc();
    if (!structured_) return engine_.VB_Format(maxIndx_);
    const std::int32_t errorCount = structured_->run();
    maxIndx_ = structured_->lineBuffer().maxIndx();
    return errorCount;
}

void FrmFormatter::showResult(std::int32_t errorCount) {
    if (errorCount == -1) {
        setInfo("Formatting was aborted by user..");
        setImage(0);
        return;
    }
    std::string remarks;
    if (structured_) {
        for (const std::string& remark : structured_->remarks()) remarks.append(" ").append(remark);
    }
    if (errorCount == 0) {
        setInfo("Formatting completed successfully..." + remarks);
        setImage(2);
        CmdAdd.setEnabled(true);
    } else {
        setInfo("Formatting was not successful." + std::to_string(errorCount) + " errors detected.." +
                remarks);
        setImage(1);
    }
    SetResults("Module contains " + std::to_string(initialLines_) +
               " Lines | Formatted code contains:  " + std::to_string(maxIndx_ + 1) + " Lines");
    formatted_ = true;
    if (const auto page = FrmCalled.lock()) page->ModuleFormatted();
}

FrmError& FrmFormatter::errors() {
    if (!errors_) errors_ = std::make_shared<FrmError>(desktop());
    return *errors_;
}

void FrmFormatter::showErrors(std::int32_t errorCount) {
    FrmError& list = errors();
    list.lblCaption.setCaption("Total " + std::to_string(errorCount) + " errors detected..");
    list.showModal();
}

// Add to Module: the module's code is replaced by the buffer's lines.

using base::ignoringErrors;

namespace {

// Gives a module its old text back after a write-back has failed half-way. The old text comes in before
// anything else goes, so that a failure here takes nothing away.
void putBack(ide::CodeModule& module, const std::string& oldText) {
    const std::int32_t written = module.CountOfLines();
    if (written > 0 && module.Lines(1, written) == oldText) return;
    module.InsertLines(1, oldText);
    if (written > 0) module.DeleteLines(module.CountOfLines() - written + 1, written);
}

} // namespace

void FrmFormatter::CmdAdd_Click() {
    runAlone([this] {
        bool ended = false;
        run([&] {
            addToModule();
            ended = true;
        });
        if (ended) return;
        setImage(1);
        Indic.stopNow();
    });
}

void FrmFormatter::addToModule() {
    CmdFmt.setEnabled(false);
    setInfo("Please Wait writing to code module..");
    setImage(3);
    if (writeToModule()) {
        CmdAdd.setEnabled(false);
        bSave_ = true;
        setInfo("Formatted code written to the code module..");
        setImage(2);
    } else {
        setInfo("Error while writing to the code module..");
        setImage(1);
        desktop().msgBox("errors occured while adding code to module..", 0);
    }
}

bool FrmFormatter::writeToModule() {
    Indic.StartNow();
    bool written = false;
    if (maxIndx_ >= 0) {
        if (const auto module = FmtCodeModule) {
            std::string oldText;
            written = ignoringErrors([&] { replaceLines(*module, oldText); });
            if (!written && !oldText.empty()) ignoringErrors([&] { putBack(*module, oldText); });
        } else {
            objectNotSet();
        }
    }
    SetProcInfo("No Process..");
    Indic.stopNow();
    return written;
}

// Half a module is worse than either: once the old text is gone, no stop request, close or quit ends this.
void FrmFormatter::replaceLines(ide::CodeModule& module, std::string& oldText) {
    const std::int32_t oldCount = module.CountOfLines();
    if (oldCount > 0) {
        oldText = module.Lines(1, oldCount);
        module.DeleteLines(1, oldCount);
    }
    const std::string total = std::to_string(maxIndx_ + 1);
    for (std::int32_t i = 0; i <= maxIndx_; ++i) {
        SetProcInfo("In Line: " + std::to_string(i + 1) + " of " + total);
        desktop().doEvents();
        module.InsertLines(i + 1, lineBuffer().line(i));
    }
}

} // namespace corvelle::formatter
