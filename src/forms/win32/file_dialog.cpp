#include "forms/win32/file_dialog.h"

#include <algorithm>
#include <commdlg.h>
#include <vector>

namespace corvelle::forms {

namespace {

// The dialog changes the folder while the user browses; "no change" is not kept by every version of it. The
// folder may have a name that the code page lacks.
class CurrentFolder {
  public:
    CurrentFolder() : path_(GetCurrentDirectoryW(0, nullptr)) {
        path_.resize(GetCurrentDirectoryW(static_cast<DWORD>(path_.size()), path_.data()));
        path_.push_back(L'\0');
    }
    ~CurrentFolder() { SetCurrentDirectoryW(path_.data()); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

  private:
    std::vector<wchar_t> path_;
};

} // namespace

std::string systemFilter(const std::string& filter) {
    if (filter.empty()) return {};
    std::string parts = filter;
    std::replace(parts.begin(), parts.end(), '|', '\0');
    parts.append(2, '\0');
    return parts;
}

std::optional<std::string> showFileDialog(HWND owner, const CommonDialog& dialog, bool save) {
    static_assert(file_dialog::overwritePrompt == OFN_OVERWRITEPROMPT);
    static_assert(file_dialog::pathMustExist == OFN_PATHMUSTEXIST);
    static_assert(file_dialog::fileMustExist == OFN_FILEMUSTEXIST);
    static_assert(file_dialog::createPrompt == OFN_CREATEPROMPT);

    const CurrentFolder kept;
    constexpr std::size_t longestPath = 32768;
    std::vector<char> path(longestPath);
    dialog.fileName.copy(path.data(), path.size() - 1);
    const std::string filter = systemFilter(dialog.filter);

    OPENFILENAMEA request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.lpstrFilter = filter.empty() ? nullptr : filter.data();
    request.nFilterIndex = 1;
    request.lpstrFile = path.data();
    request.nMaxFile = static_cast<DWORD>(path.size());
    request.lpstrInitialDir = dialog.initDir.empty() ? nullptr : dialog.initDir.c_str();
    request.lpstrTitle = dialog.dialogTitle.empty() ? nullptr : dialog.dialogTitle.c_str();
    request.Flags = static_cast<DWORD>(dialog.flags) | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_EXPLORER;

    const auto show = [&request, save] {
        return (save ? GetSaveFileNameA(&request) : GetOpenFileNameA(&request)) != 0;
    };
    bool chosen = show();
    if (!chosen && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
        path.front() = '\0'; // what was proposed cannot be a file's name: propose nothing
        chosen = show();
    }
    if (!chosen) return std::nullopt;
    return std::string(path.data());
}

} // namespace corvelle::forms
