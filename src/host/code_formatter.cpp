#include "host/code_formatter.h"

#include "base/run_time_error.h"
#include "formatter/forms/frm_main.h"

#include <utility>

namespace corvelle::host {

CodeFormatter::CodeFormatter(forms::Desktop& desktop) : AddIn(desktop, "Code Formatter") {}

CodeFormatter::~CodeFormatter() = default;

void CodeFormatter::Show() {
    desktop().calledFromOutside();
    const auto self = std::static_pointer_cast<CodeFormatter>(shared_from_this());
    base::ignoringErrors([this] {
        if (!frmMain_) frmMain_ = std::make_shared<formatter::frmMain>(desktop());
    });
    const auto page = frmMain_;
    if (page) {
        page->VBInstance = VBInstance();
        page->ThisAddInMgr = self;
        base::ignoringErrors([&] { page->show(); });
    }
    if (page == frmMain_) setIsLoaded(true); // else it was closed behind a message box of its own
}

void CodeFormatter::Hide() {
    const auto alive = shared_from_this();
    setIsLoaded(false);
    unloadMainWindow();
}

void CodeFormatter::unloadMainWindow() {
    if (const auto page = std::exchange(frmMain_, nullptr)) unload(*page);
}

} // namespace corvelle::host
