#pragma once

#include "forms/win32/every_control.h"
#include "forms/win32/win32_desktop.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>
#include <windows.h>

namespace corvelle::forms::tests {

/// Runs beside the test's thread and is waited for at the end.
class Helper {
  public:
    explicit Helper(std::function<void()> work) : thread_(std::move(work)) {}
    ~Helper() { thread_.join(); }
    Helper(const Helper&) = delete;
    Helper& operator=(const Helper&) = delete;

  private:
    std::thread thread_;
};

/// Tests of real windows. One that waits for something that never comes is told to quit.
class ScreenTest : public testing::Test {
  protected:
    ScreenTest();
    ~ScreenTest() override;

    /// A fresh form, loaded and shown.
    std::shared_ptr<EveryControl> shownForm();
    HWND windowOf(Form& form) const;
    HWND windowOf(Control& control) const;

    /// Serves messages until something is so, 5 s at most; whether it is.
    bool pumpUntil(const std::function<bool()>& isSo);
    /// Serves what waits.
    void pump();

    // What a user does, as the window system would report it. Served by pump().
    void postClick(HWND window, int x = 3, int y = 3);
    void postMove(HWND window, int x, int y);
    void postKey(HWND window, int keyCode);
    /// Alt and the letter.
    void postAccelerator(HWND window, char letter);
    void click(Control& control);
    /// A key for whatever has the focus, pressed and released.
    void press(int keyCode);

    /// Waits, on a helper's thread, for a message box with that title; null if none comes within 5 s.
    static HWND waitForBox(const std::string& title);
    /// The text of the message box.
    static std::string textOfBox(HWND box);
    /// Answers the next message box with that title.
    std::unique_ptr<Helper> answerBox(const std::string& title, int answer, std::string* text = nullptr);

    HINSTANCE module() const { return GetModuleHandleA(nullptr); }
    Win32Desktop& desktop() { return *desktop_; }
    /// Makes the desktop anew, at another resolution.
    void useDpi(int dpi);

  private:
    void removeQuitMessage();

    DWORD thread_ = GetCurrentThreadId();
    HANDLE done_ = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    std::unique_ptr<Win32Desktop> desktop_;
    std::thread limit_;
};

} // namespace corvelle::forms::tests
