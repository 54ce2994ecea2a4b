#include "indexer/forms/show_file_dialog.h"

#include "base/run_time_error.h"

namespace corvelle::indexer {

std::string ShowFileDialog(const std::string& filter, const std::string& initialFolder,
                           const std::string& initialName, forms::CommonDialog& dialog) {
    dialog.cancelError = true;
    dialog.filter = filter;
    dialog.initDir = initialFolder;
    dialog.fileName = initialName;
    dialog.flags = forms::file_dialog::overwritePrompt | forms::file_dialog::createPrompt;
    return base::ignoringErrors([&] { dialog.showSave(); }) ? dialog.fileName : std::string();
}

} // namespace corvelle::indexer
