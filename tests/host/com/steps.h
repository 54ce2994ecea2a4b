#pragma once

#include <deque>
#include <functional>
#include <string>
#include <windows.h>

namespace corvelle::host::test {

/// What a user does while the thread serves messages, whoever serves them: one step after the other, each
/// tried again until it returns true. A step that takes too long fails the test and tells the thread to quit.
class Steps {
  public:
    Steps();
    ~Steps();
    Steps(const Steps&) = delete;
    Steps& operator=(const Steps&) = delete;

    void then(const std::string& what, std::function<bool()> step);
    /// Presses the button of the visible window with that title, once it takes input.
    void thenPress(const std::string& title, const std::string& button);
    /// Serves messages until all steps are done.
    void serve();

    /// The visible window of this thread with that title; null if there is none.
    static HWND window(const std::string& title);
    static HWND button(HWND window, const std::string& text);

  private:
    struct Step {
        std::string what;
        std::function<bool()> run;
    };
    static void CALLBACK tick(HWND window, UINT message, UINT_PTR timer, DWORD time);
    void next();

    std::deque<Step> steps_;
    UINT_PTR timer_;
    DWORD since_ = 0;
    bool late_ = false;
};

} // namespace corvelle::host::test
