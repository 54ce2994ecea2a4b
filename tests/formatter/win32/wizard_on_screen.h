#pragma once

#include "base/temporary_folder.h"
#include "formatter/format_code.h"
#include "formatter/forms/frm_main.h"
#include "formatter/win32/watched_desktop.h"
#include "ide/workspace/workspace.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace corvelle::formatter::tests {

/// The connect object: owns the page and lets go of it.
class Manager : public ui::WindowOwner {
  public:
    std::shared_ptr<frmMain> page;
    int hides = 0;

    void Hide() override;
};

/// The formatter's real windows over a copy of the example project.
class WizardOnScreen : public testing::Test {
  protected:
    WizardOnScreen();
    ~WizardOnScreen() override;

    /// Shows the code of one of the project's components.
    void activate(const std::string& component);
    /// Opens a module of those lines instead of the project.
    void openModule(const std::vector<std::string>& lines);
    /// The lines of the active module.
    std::vector<std::string> code() const;
    /// What the engine makes of them.
    static std::vector<std::string> formatted(const std::vector<std::string>& lines, FormatOptions options);

    /// Shows the page and serves messages while a user works, on another thread. Once.
    void letUserWork(const std::function<void(const User&)>& user);

    /// The user's way from the page to the dialog, which is given back.
    static HWND openDialog(const User& user);
    static std::string status(const std::string& text) { return " Status: " + text; }

    corvelle::test::TemporaryFolder folder;
    WatchedDesktop desktop{GetModuleHandleA(nullptr)};
    std::shared_ptr<workspace::Workspace> ide;
    std::shared_ptr<Manager> manager = std::make_shared<Manager>();
};

} // namespace corvelle::formatter::tests
