#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <vector>
#include <windows.h>

namespace corvelle::formatter::tests {

/// A user in front of the screen: sees the windows of one thread by their texts and works them by messages,
/// from another thread. What is not there within a few seconds throws std::runtime_error.
class User {
  public:
    /// `waits` counts how often the thread has waited for messages.
    User(DWORD thread, const std::atomic<unsigned>& waits) : thread_(thread), waits_(waits) {}

    /// The window that shows such a button and takes input.
    HWND windowWith(const std::string& button) const;
    /// The window with that title.
    HWND windowTitled(const std::string& title) const;
    /// The message box or system dialog with that title.
    HWND box(const std::string& title) const;
    bool sees(const std::string& button) const { return findWindowWith(button) != nullptr; }
    bool seesBox(const std::string& title) const { return findBox(title) != nullptr; }

    /// The visible control of the class with the text.
    static HWND control(HWND window, const std::string& className, const std::string& text);
    /// The visible controls of a class, in tab order.
    static std::vector<HWND> controls(HWND window, const std::string& className);
    static std::string text(HWND window);
    /// Whether one of them shows the text now.
    static bool shows(HWND window, const std::string& className, const std::string& text);
    /// The entries of a list box.
    static std::vector<std::string> entries(HWND list);
    static bool isEnabled(HWND window, const std::string& button);
    static bool isChecked(HWND window, const std::string& checkBox);

    /// Presses a button or check box, which must take input, once the last command has ended: until then the
    /// others do nothing.
    void click(HWND window, const std::string& button) const;
    static void press(HWND control, int keyCode);
    /// The close box.
    static void close(HWND window) { PostMessageA(window, WM_SYSCOMMAND, SC_CLOSE, 0); }
    /// Answers a message box, whose text is given back.
    std::string answer(const std::string& title, int button) const;
    /// Gives a path to the system's file dialog with that title, says Yes to what it asks of the file, and
    /// waits until it has gone. What it had proposed.
    std::string chooseFile(const std::string& title, const std::string& path) const;
    /// Waits until a control of the class shows the text.
    static void waitForText(HWND window, const std::string& className, const std::string& text);
    static void waitUntil(const std::string& what, const std::function<bool()>& isSo);

  private:
    HWND findWindowWith(const std::string& button) const;
    HWND findBox(const std::string& title) const;

    DWORD thread_;
    const std::atomic<unsigned>& waits_;
};

} // namespace corvelle::formatter::tests
