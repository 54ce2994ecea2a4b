#include "formatter/forms/frm_error.h"

namespace corvelle::formatter {

FrmError::FrmError(forms::Desktop& desktop) : Form(desktop, "FrmError") {
    Command1.onClick = [this] { Command1_Click(); };
}

void FrmError::design() {
    setCaption("Formatting Errors");
    setIcon(forms::Picture("formatter"));
    setSize({4560, 3735});
    setDefaultButton(Command1);
    setCancelButton(Command1);
    lblCaption.setBounds({120, 120, 4320, 195});
    List1.setBounds({120, 420, 4320, 2700});
    Command1.setBounds({3225, 3240, 1215, 375});
    Command1.setCaption("&Close");
}

} // namespace corvelle::formatter
