#include "base/ignoring_errors.h"
#include "base/path_text.h"
#include "formatter/windows/frm_formatter.h"
#include "forms/common_dialog.h"
#include "forms/desktop.h"
#include "forms/message_box.h"

#include <filesystem>

namespace corvelle::formatter {

namespace {

// Commands of HTML Help.
constexpr int tableOfContents = 1;
constexpr int contextNumber = 15;

bool isFile(const std::string& path) {
    bool found = false;
    base::ignoringErrors([&] { found = std::filesystem::is_regular_file(base::pathOf(path)); });
    return found;
}

} // namespace

void FrmFormatter::CmdHelp_Click() {
    std::string& helpFile = desktop().application.helpFile;
    if (!isFile(helpFile)) {
        const std::string found = SetHelp();
        if (found.empty() || !isLoaded()) return;
        helpFile = found;
    }
    desktop().showHelp(&CmdHelp, helpFile, tableOfContents, 0);
}

std::string FrmFormatter::SetHelp() {
    const int answer = desktop().msgBox(
        "The help file FormatterHelp.chm could not be found.\rWould you like to search the file..?",
        forms::box::yesNo | forms::box::question, "Help file missing..");
    if (answer != forms::answer::yes) return {};
    forms::CommonDialog dialog(desktop());
    dialog.dialogTitle = "Search FormatterHelp.chm";
    dialog.filter = "Html help file(*.chm)|*.chm";
    dialog.fileName = "*.chm";
    dialog.flags = forms::file_dialog::pathMustExist;
    dialog.cancelError = true;
    return base::ignoringErrors([&] { dialog.showOpen(); }) ? dialog.fileName : std::string();
}

void FrmFormatter::Form_KeyUp(int keyCode) {
    if (keyCode != forms::keys::F1) return;
    forms::Control* const control = activeControl();
    if (control == nullptr) return;
    desktop().showHelp(control, desktop().application.helpFile, contextNumber,
                       static_cast<std::uint32_t>(control->helpContextID()));
}

} // namespace corvelle::formatter
