#pragma once

#include "base/temporary_folder.h"
#include "formatter/win32/user.h"

#include <atomic>
#include <functional>
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
    /// Chooses from the add-ins' menu by the keyboard: 0 is the manager, the add-ins' commands follow.
    void chooseFromAddIns(int row) const;
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
    /// What a window of the program answers; throws where it does not answer for long.
    static LRESULT ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    /// All of a window's text.
    static std::string allText(HWND window);
    static void type(HWND edit, const std::string& text);
    HWND tree() const;
    void waitForTitle(const std::string& title) const;

    /// Whether a box of that title is there. Nobody is asked, so that one that is opening is not disturbed.
    bool seesBox(const std::string& title) const;
    /// Answers a question of the program itself.
    std::string answer(int button) const { return user().answer("Corvelle Workbench", button); }
    /// Presses a button until something is so: one that is pressed while a command runs does nothing.
    void clickUntil(HWND form, const std::string& button, const std::string& what,
                    const std::function<bool()>& isSo) const;
    /// Saves a picture of the screen under build/screens/workbench.
    static void takePicture(const std::string& name);

    corvelle::test::TemporaryFolder folder;

  private:
    void end();

    PROCESS_INFORMATION process_{};
    HWND window_ = nullptr;
    std::atomic<unsigned> waits_{0};
};

/// Registers the add-ins for the tests of the suite, and takes them out again.
class WithAddIns : public WorkbenchTest {
  protected:
    static constexpr int formatter = 1; ///< rows of the menu, with both loaded
    static constexpr int indexer = 2;

    static void SetUpTestSuite();
    static void TearDownTestSuite();
    void startBoth(const std::string& file = "Stockroom.vbp");

    /// Opens the Add-In Manager.
    HWND openManager() const;
    /// Chooses an add-in's command, again if need be, until a window with that button stands there.
    HWND openFromAddIns(int row, const std::string& button) const;
    /// Selects an add-in there and presses one of the check boxes.
    static void toggle(HWND manager, const std::string& progId, int box);
    /// Presses OK.
    static void accept(HWND manager);
    /// Loads or unloads an add-in, which is not so yet, through the manager.
    void toggleLoaded(const std::string& progId) const;
    /// The setting that an add-in leaves behind.
    static std::string autoShow();

  private:
    void chooseUntil(int row, const std::string& what, const std::function<bool()>& isThere) const;
};

} // namespace corvelle::workbench::tests
