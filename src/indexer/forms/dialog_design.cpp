#include "indexer/forms/dialog_design.h"

namespace corvelle::indexer::dialog {

void design(forms::Label& label, const char* caption, const forms::Bounds& bounds) {
    label.setCaption(caption);
    label.setBounds(bounds);
}

void design(forms::CommandButton& button, const char* caption, int left, int top) {
    button.setCaption(caption);
    button.setBounds({left, top, buttonWidth, buttonHeight});
}

void designInfo(forms::Label& info, int top, int height) {
    info.setBounds({edge, top, infoWidth, height});
    info.setBordered(true);
    info.setUseMnemonic(false); // it only speaks of a button
}

} // namespace corvelle::indexer::dialog
