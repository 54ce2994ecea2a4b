#include "base/paths.h"
#include "base/scope_exit.h"
#include "version.h"
#include "workbench/main_window.h"
#include "workbench/resource.h"
#include "workbench/title.h"
#include "workbench/window_procedure.h"

#include <array>
#include <commdlg.h>
#include <utility>

namespace corvelle::workbench {

namespace {

std::string linesOf(const std::vector<std::string>& lines) {
    constexpr std::size_t most = 20; // a message box has no scroll bar
    std::string text;
    for (std::size_t i = 0; i < lines.size() && i < most; ++i) text += "\n" + lines[i];
    if (lines.size() > most) text += "\n... and " + std::to_string(lines.size() - most) + " more";
    return text;
}

/// The dialog's choice; nothing when it was cancelled.
std::optional<std::filesystem::path> choose(HWND owner, bool save, const char* title, const char* filter,
                                            const std::string& name, const std::string& folder) {
    std::array<char, 4096> file{};
    name.copy(file.data(), file.size() - 1);
    OPENFILENAMEA wanted{};
    wanted.lStructSize = sizeof wanted;
    wanted.hwndOwner = owner;
    wanted.lpstrTitle = title;
    wanted.lpstrFilter = filter;
    wanted.lpstrFile = file.data();
    wanted.nMaxFile = static_cast<DWORD>(file.size());
    wanted.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
    wanted.lpstrDefExt = save ? "bas" : nullptr;
    wanted.Flags = OFN_HIDEREADONLY | OFN_NOCHANGEDIR | (save ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST);
    const BOOL chosen = save ? GetSaveFileNameA(&wanted) : GetOpenFileNameA(&wanted);
    if (!chosen) return std::nullopt;
    return base::pathOf(file.data());
}

} // namespace

// The commands that ask the user, or tell something. The window cannot be closed meanwhile.
bool MainWindow::runDialog(int command) {
    ++dialogs_;
    const base::ScopeExit closed([this] { --dialogs_; });
    switch (command) {
    case IDM_OPEN:
        chooseProject();
        return true;
    case IDM_SAVE:
        save();
        return true;
    case IDM_ADD_INS:
        if (commands.manageAddIns) commands.manageAddIns();
        return true;
    case IDM_ABOUT:
        MessageBoxA(window_,
                    "Corvelle Workbench " ADD_INS_FILE_VERSION_TEXT
                    "\n\nA small stand-in for the Visual Basic 6 IDE: it opens a project "
                    "and runs add-ins on it.",
                    "About Corvelle Workbench", MB_OK | MB_ICONINFORMATION);
        return true;
    default:
        return false;
    }
}

bool MainWindow::runCommand(int command) {
    const auto toClient = [this](UINT message, WPARAM wParam = 0) {
        SendMessageA(children_.client(), message, wParam, 0);
        return true;
    };
    switch (command) {
    case IDM_EXIT:
        PostMessageA(window_, WM_CLOSE, 0, 0);
        return true;
    case IDM_CODE:
        openSelected(ChildWindow::Kind::Code);
        return true;
    case IDM_OBJECT:
        openSelected(ChildWindow::Kind::Designer);
        return true;
    case IDM_TREE:
        SetFocus(tree_.window());
        return true;
    case IDM_CASCADE:
        return toClient(WM_MDICASCADE);
    case IDM_TILE_HORIZONTALLY:
        return toClient(WM_MDITILE, MDITILE_HORIZONTAL);
    case IDM_TILE_VERTICALLY:
        return toClient(WM_MDITILE, MDITILE_VERTICAL);
    case IDM_ARRANGE:
        return toClient(WM_MDIICONARRANGE);
    default:
        return (addInMenu_ && addInMenu_->run(command)) || runDialog(command);
    }
}

void MainWindow::chooseProject() {
    if (!mayLeave()) return;
    const auto path = choose(window_, false, "Open Project",
                             "Project Files (*.vbp;*.vbg)\0*.vbp;*.vbg\0"
                             "Modules (*.bas;*.cls;*.frm;*.ctl;*.pag;*.dob;*.dsr)\0"
                             "*.bas;*.cls;*.frm;*.ctl;*.pag;*.dob;*.dsr\0All Files (*.*)\0*.*\0",
                             {}, {});
    if (path) open(base::textOf(*path));
}

void MainWindow::open(const std::string& file) {
    std::vector<std::string> leftOut;
    const auto before = session_.ide(); // the tree still shows it
    try {
        ProjectSession opened;
        leftOut = opened.open(base::pathOf(file));
        children_.closeAll();
        if (before) before->setObserver(nullptr);
        session_ = std::move(opened);
        session_.ide()->setObserver(this);
    } catch (const std::exception& error) {
        reportError(window_, file + "\n\ncould not be opened: " + error.what());
        return;
    }
    tree_.update(session_.ide().get());
    updateTitle();
    if (!leftOut.empty())
        reportError(window_, "These files could not be read and are left out:\n" + linesOf(leftOut));
}

bool MainWindow::save() {
    const auto failures =
        session_.save([this](workspace::Component& component) { return chooseFileOf(component); });
    tick();
    if (!failures.empty()) reportError(window_, "These files could not be saved:\n" + linesOf(failures));
    return session_.unsaved().empty();
}

std::optional<std::filesystem::path> MainWindow::chooseFileOf(workspace::Component& component) {
    const auto project = session_.ide()->ActiveVBProject();
    const auto folder = base::textOf(base::pathOf(project->FileName()).parent_path());
    return choose(window_, true, "Save File As", "Basic Files (*.bas)\0*.bas\0All Files (*.*)\0*.*\0",
                  component.Name() + ".bas", folder);
}

bool MainWindow::mayLeave() {
    std::vector<std::string> names;
    for (auto* const component : session_.unsaved()) names.push_back(describe(*component));
    if (names.empty()) return true;
    const std::string question = "Save changes to the following files?\n" + linesOf(names);
    const int answer =
        MessageBoxA(window_, question.c_str(), programTitle, MB_YESNOCANCEL | MB_ICONEXCLAMATION);
    if (answer == IDYES) return save();
    return answer == IDNO;
}

void MainWindow::openSelected(ChildWindow::Kind kind) {
    const auto* const active = children_.active();
    // What the user works with: the window in front, unless the tree has the focus.
    auto* component = tree_.selected();
    if (active && GetFocus() != tree_.window()) component = &active->component();
    if (!component) return;
    if (kind == ChildWindow::Kind::Code) return showCode(*component);
    if (auto* const designer = component->designerWindow()) designer->SetFocus();
}

void MainWindow::openSelectedAsIs() {
    if (auto* const component = tree_.selected()) component->Activate();
}

void MainWindow::close() {
    if (dialogs_ > 0) return;
    ++dialogs_;
    const bool leave = mayLeave();
    --dialogs_;
    if (!leave) return;
    if (commands.leaving) commands.leaving();
    DestroyWindow(window_);
}

} // namespace corvelle::workbench
