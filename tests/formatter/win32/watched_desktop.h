#pragma once

#include "formatter/win32/user.h"
#include "forms/win32/win32_desktop.h"

#include <atomic>
#include <functional>

namespace corvelle::formatter::tests {

/// Counts how often it has waited for messages; it does so only when nothing is under way.
class WatchedDesktop : public forms::Win32Desktop {
  public:
    using Win32Desktop::Win32Desktop;
    /// Takes back the user's word to quit.
    ~WatchedDesktop() override;
    bool waitForEvents() override;

    /// Shows the windows and serves messages while a user works, on another thread. Once.
    void letUserWork(const std::function<void()>& show, const std::function<void(const User&)>& user);

  private:
    std::atomic<unsigned> waits_{0};
};

} // namespace corvelle::formatter::tests
