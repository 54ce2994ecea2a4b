#include "base/file.h"
#include "base/paths.h"
#include "base/run_time_error.h"
#include "formatter/backup.h"
#include "formatter/forms/frm_formatter.h"
#include "formatter/forms/frm_main.h"
#include "forms/desktop.h"
#include "ide/required.h"

// A copy of the module's code, saved before it is replaced.
namespace corvelle::formatter {

using base::ignoringErrors;

namespace {

// The path that the user chooses; empty on cancel.
std::string askForFile(forms::Desktop& desktop, const std::string& name, const std::string& folder) {
    forms::CommonDialog dialog(desktop);
    dialog.fileName = name;
    dialog.initDir = folder;
    dialog.filter = "All Files(*.*)|*.*|VB_Forms(*.frm)|*.frm|Vb_Modules(*.bas)|*.bas|VB_Class(*.cls)|*.cls|"
                    "VB_Controls(*.ctl)|*.ctl";
    dialog.flags = forms::file_dialog::overwritePrompt | forms::file_dialog::createPrompt;
    dialog.cancelError = true;
    return ignoringErrors([&] { dialog.showSave(); }) ? dialog.fileName : std::string();
}

} // namespace

void FrmFormatter::CmdFile_Click() {
    runAlone([this] {
        setImage(3);
        const std::string path = askForFile(desktop(), getBackupName(), getProjectDir());
        Text1.setText(path);
        CmdFmt.setEnabled(false);
        CmdAdd.setEnabled(false);
        if (path.empty()) {
            setInfo("Not Saving exiting..");
            return;
        }
        setInfo("Saving file -->" + path);
        if (SaveToFile(path, lineBuffer())) {
            setImage(2);
            setInfo("File--> " + path + " was saved successfully..");
            CmdFmt.setEnabled(true);
        } else {
            setImage(1);
            setInfo("Error while saving file: " + path + " please verify..");
        }
    });
}

std::string FrmFormatter::getBackupName() {
    std::string name;
    ignoringErrors([&] {
        const auto component = ide::required(FmtCodeModule).Parent();
        name = backupName(ide::required(component).Name(), component->Type());
    });
    return name;
}

std::string FrmFormatter::getProjectDir() {
    if (!BackDir.empty()) return BackDir;
    std::string file;
    ignoringErrors([&] {
        const auto page = FrmCalled.lock();
        const auto project = ide::required(page ? page->VBInstance : nullptr).ActiveVBProject();
        file = ide::required(project).FileName();
    });
    return file.substr(0, file.rfind('\\') + 1);
}

bool FrmFormatter::SaveToFile(const std::string& FileName, const base::LineBuffer& /*mArr*/) {
    const auto module = FmtCodeModule;
    if (!module) {
        objectNotSet();
        return false;
    }
    return ignoringErrors([&] {
        base::replaceFile(base::pathOf(FileName),
                          [&](base::FileWriter& file) {
                              const std::int32_t count = module->CountOfLines();
                              for (std::int32_t i = 1; i <= count; ++i) {
                                  file.write(module->Lines(i, 1));
                                  file.write("\r\n");
                              }
                          },
                          {.breakLinks = true});
    });
}

} // namespace corvelle::formatter
