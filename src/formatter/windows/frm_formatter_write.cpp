#include "base/ignoring_errors.h"
#include "formatter/windows/frm_formatter.h"
#include "forms/desktop.h"

// Add to Module: the module's code is replaced by the buffer's lines.
namespace corvelle::formatter {

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
