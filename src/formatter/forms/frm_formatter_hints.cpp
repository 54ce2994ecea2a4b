#include "base/paths.h"
#include "base/run_time_error.h"
#include "formatter/forms/frm_formatter.h"
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
    if (!control) return;
    desktop().showHelp(control, desktop().application.helpFile, contextNumber,
                       static_cast<std::uint32_t>(control->helpContextID()));
}

namespace {

struct Hint {
    const char* tag; // the hint line keeps the tag of the hint it shows
    const char* text;
};

constexpr Hint home{"0", "Move the mouse pointer over a control to learn what the control means.."};

} // namespace

void FrmFormatter::connectHints() {
    const auto hint = [this](forms::Control& control, Hint hint) {
        control.onMouseMove = [this, hint] { showHint(hint.tag, hint.text); };
    };
    hint(lblInfo, home);
    hint(CmdFile,
         {"1", "Let you select a file to which you must save a backup copy first.. It is good idea to "
               "create a backup directory under project directory to store backups."});
    hint(CmdFmt,
         {"2", "This command formats the code module and stores in a internal butffer. Code module is "
               "not updated any way at this stage.."});
    hint(CmdAdd,
         {"3", "This command removes any existing code and  adds the formatted code to the module .. "});
    hint(CmdBack, {"4", "Go back to previous window to select another module.."});
    hint(CmdClose, {"5", "Close this Add In Program.."});
    hint(CmdHelp, {"6", "Displays a help file to assist you.."});
    hint(Slider1,
         {"7", "It is highly recommended that you set the 'TAB WIDTH' equal to the value set in VB IDE.."});
    hint(ChkNoEmpty, {"8", "If this option is selected then all empty lines will be discarded..."});
    hint(ChkNoCmnt, {"9", "If this option is selected then all commented lines will be discarded..."});
    hint(ChkNoAll,
         {"10", "If this option is selected then all trailing comments in code lines will be removed. "
                "It is a risky option be carefull..."});
    // One tag for two: straight from one to the other the first one's text stays.
    hint(frmeResult, {"11", "These are passive controls meant for displaying informatons.."});
    hint(Image2, {"11", "This diagram depicts how you have to proceed in using this Add-In.."});
}

void FrmFormatter::Form_MouseMove() {
    showHint(home.tag, home.text);
}

void FrmFormatter::showHint(const char* tag, const char* text) {
    if (lblInfo.tag() == tag) return;
    lblInfo.setTag(tag);
    lblInfo.setCaption(text);
}

} // namespace corvelle::formatter
