#pragma once

#include <vector>
#include <windows.h>

namespace corvelle::forms {

/// The thread's top-level windows, the host's and ours, from the top.
std::vector<HWND> threadWindows();

/// Disables every visible top-level window of the thread and every form but one, and enables them again at
/// its end or before.
class DisabledWindows {
  public:
    explicit DisabledWindows(HWND except);
    ~DisabledWindows() { enable(); }
    DisabledWindows(const DisabledWindows&) = delete;
    DisabledWindows& operator=(const DisabledWindows&) = delete;

    void enable();

  private:
    std::vector<HWND> windows_;
};

} // namespace corvelle::forms
