#pragma once

#include "base/temporary_folder.h"
#include "formatter/win32/user.h"

#include <atomic>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>
#include <windows.h>

namespace corvelle::workbench::tests {

using formatter::tests::User;

/// The running program with a copy of the example project, worked by a user. Ends with the test.
class WorkbenchTest : public testing::Test {
  protected:
    WorkbenchTest();
    ~WorkbenchTest() override;

    /// Starts the program with these switches and the project, and waits for its window.
    void start(const std::vector<std::string>& switches = {}, const std::string& file = "Stockroom.vbp");
    User user() const { return User(process_.dwThreadId, waits_); }
    HWND window() const { return window_; }
    bool isRunning() const;
    /// The exit status, once the program has ended; throws where it does not.
    DWORD waitForEnd() const;

    /// What a menu's command does, by its number.
    void command(int number) const { PostMessageA(window_, WM_COMMAND, static_cast<WPARAM>(number), 0); }
    /// Opens the menu of that mnemonic and chooses by a letter, as the keyboard does.
    void chooseFromMenu(char menu, char letter) const;
    /// Keys for whatever has the focus; the modifiers are held meanwhile.
    static void press(WORD key, const std::vector<WORD>& modifiers = {});
    /// Makes the window the one that gets the keys.
    static void bringForward(HWND window);

    /// Selects a component in the tree by its name's beginning, and opens its code or its designer.
    HWND openCode(const std::string& name) const;
    HWND openDesigner(const std::string& name, const std::string& caption) const;
    /// The window inside the main one of that caption; none if there is none.
    HWND child(const std::string& caption) const;
    static HWND contentOf(HWND child) { return GetWindow(child, GW_CHILD); }
    /// All of a window's text.
    static std::string allText(HWND window);
    static void type(HWND edit, const std::string& text);
    HWND tree() const;
    void waitForTitle(const std::string& title) const;

    /// Answers a question of the program itself.
    std::string answer(int button) const { return user().answer("Corvelle Workbench", button); }
    /// Presses a button until something is so: one that is pressed while a command runs does nothing.
    void clickUntil(HWND form, const std::string& button, const std::string& what,
                    const std::function<bool()>& isSo) const;
    /// Saves a picture of the screen under build/screens/workbench.
    static void takePicture(const std::string& name);

    corvelle::test::TemporaryFolder folder;

  private:
    PROCESS_INFORMATION process_{};
    HWND window_ = nullptr;
    std::atomic<unsigned> waits_{0};
};

/// Registers the add-ins for the tests of the suite, and takes them out again.
class WithAddIns : public WorkbenchTest {
  protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();
    void startBoth(const std::string& file = "Stockroom.vbp");
};

} // namespace corvelle::workbench::tests
