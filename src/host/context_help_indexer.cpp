#include "host/context_help_indexer.h"

#include "base/run_time_error.h"
#include "indexer/forms/frm_index_main.h"
#include "indexer/forms/frm_indexer.h"
#include "indexer/forms/frm_txt.h"

#include <utility>

namespace corvelle::host {

using indexer::FrmIndex_Main;

ContextHelpIndexer::ContextHelpIndexer(forms::Desktop& desktop) : AddIn(desktop, "Help ID Indexer") {}

ContextHelpIndexer::~ContextHelpIndexer() = default;

void ContextHelpIndexer::Show() {
    desktop().calledFromOutside();
    const auto self = std::static_pointer_cast<ContextHelpIndexer>(shared_from_this());
    if (const auto waiting = startMenu_) {
        if (!bOK_) base::ignoringErrors([&] { waiting->show(); });
        return;
    }
    const auto choice = getStartChoice();
    if (!choice) return;
    if (*choice == FrmIndex_Main::Nothing) return Hide();

    base::ignoringErrors([this] {
        if (!FrmIndexer_) FrmIndexer_ = std::make_shared<indexer::FrmIndexer>(desktop());
    });
    const auto wizard = FrmIndexer_;
    if (wizard) wizard->ThisMgr = self;
    if (*choice == FrmIndex_Main::CreateIndex) {
        if (wizard) base::ignoringErrors([&] { wizard->ShowIndexer(VBInstance()); });
    } else {
        base::ignoringErrors([&] {
            const auto editor = std::make_shared<indexer::FrmTxt>(desktop());
            FrmTxt_ = editor;
            editor->ShowTextEdit(VBInstance(), self);
        });
    }
    if (wizard == FrmIndexer_) setIsLoaded(true); // else all was closed behind a message box
}

// None when the wait ended without a choice.
std::optional<std::int16_t> ContextHelpIndexer::getStartChoice() {
    std::shared_ptr<FrmIndex_Main> menu;
    base::ignoringErrors([&] { menu = std::make_shared<FrmIndex_Main>(desktop()); });
    if (!menu) return std::nullopt; // there is nobody to wait for
    bOK_ = false;
    menu->ThisMgr = std::static_pointer_cast<ContextHelpIndexer>(shared_from_this());
    startMenu_ = menu;
    if (base::ignoringErrors([&] { menu->show(); })) {
        while (!bOK_ && startMenu_ == menu && desktop().waitForEvents()) {
        }
    }
    const bool chosen = bOK_ && startMenu_ == menu && !desktop().isQuitting();
    const std::int16_t choice = menu->myMode;
    unload(*menu);
    if (startMenu_ == menu) startMenu_.reset();
    return chosen ? std::optional(choice) : std::nullopt;
}

void ContextHelpIndexer::Hide() {
    const auto alive = shared_from_this();
    setIsLoaded(false);
    unloadMainWindow();
}

void ContextHelpIndexer::unloadMainWindow() {
    if (const auto wizard = std::exchange(FrmIndexer_, nullptr)) unload(*wizard);
}

void ContextHelpIndexer::disconnected() {
    if (const auto menu = std::exchange(startMenu_, nullptr)) unload(*menu);
}

} // namespace corvelle::host
