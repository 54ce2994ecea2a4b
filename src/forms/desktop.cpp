#include "forms/desktop.h"

#include "base/run_time_error.h"
#include "base/scope_exit.h"
#include "forms/form.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace corvelle::forms {

void CommonDialog::showOpen() {
    show(false);
}

void CommonDialog::showSave() {
    show(true);
}

void CommonDialog::show(bool save) {
    if (auto chosen = desktop_.chooseFile(*this, save)) {
        fileName = *chosen;
    } else if (cancelError) {
        throw base::RunTimeError(base::ErrorNumber::CancelWasSelected);
    }
}

void Desktop::runModal(Form& form) {
    const int number = ++lastModal_;
    modals_.push_back({number, &form, disableOthers(form)});
    const base::ScopeExit ended([&] { endModal(form); }); // in every case the windows are enabled again
    // Once hidden or unloaded it is modal no more, whatever becomes of the form afterwards.
    const auto isOpen = [this, number] {
        return std::any_of(modals_.begin(), modals_.end(),
                           [number](const Modal& modal) { return modal.number == number; });
    };
    form.show();
    if (isOpen()) serveModal(form, isOpen);
}

void Desktop::endModal(const Form& form) {
    const auto found = std::find_if(modals_.rbegin(), modals_.rend(),
                                    [&form](const Modal& modal) { return modal.form == &form; });
    if (found == modals_.rend()) return;
    const auto ended = std::move(found->disabled);
    modals_.erase(std::next(found).base());
}

} // namespace corvelle::forms
