#include "forms/common_dialog.h"

#include "base/run_time_error.h"
#include "forms/desktop.h"

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

} // namespace corvelle::forms
