#pragma once

#include "base/scope_exit.h"
#include "forms/form.h"

#include <functional>
#include <utility>

namespace corvelle::forms {

/// The commands of a window that yield and must not meet one another: one that is given while another runs is
/// passed over, and a close that is asked for waits for the command's end. `Closing` says what is to be
/// closed, its first value nothing.
template <class Closing>
class LoneCommand {
  public:
    bool isRunning() const { return running_; }
    /// What has been asked for since the command began.
    Closing closing() const { return closing_; }
    void closeAfterwards(Closing what) { closing_ = what; }

    /// Runs the command as a handler of the form, which must be the one that this belongs to. What is to be
    /// closed now; nothing if another command goes on.
    Closing run(Form& form, const std::function<void()>& command) {
        if (running_) return Closing{};
        const auto alive = form.shared_from_this();
        running_ = true;
        const base::ScopeExit ended([this] { running_ = false; });
        form.run(command);
        return std::exchange(closing_, Closing{});
    }

  private:
    bool running_ = false;
    Closing closing_{};
};

} // namespace corvelle::forms
