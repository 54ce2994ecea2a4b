#pragma once

#include <functional>
#include <windows.h>

namespace corvelle::forms::tests {

/// A window of a host program that knows nothing of ours, with a message loop that serves its own
/// accelerators first: Tab, Enter and F1 are commands of the host.
class HostWindow {
  public:
    HostWindow();
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    HWND window() const { return window_; }
    /// Runs the host's loop for what waits.
    void serve();

    int commands = 0;
    int activations = 0;
    /// Whether it took input each time it was activated.
    bool wasEnabled = true;

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND window_ = nullptr;
    HACCEL accelerators_ = nullptr;
};

} // namespace corvelle::forms::tests
