#pragma once

#include <utility>

namespace corvelle::base {

/// Runs its action, which must not throw, when the scope is left, be it by an exception:
/// `const ScopeExit ended([&] { --open; });`.
template <class Action>
class ScopeExit {
  public:
    explicit ScopeExit(Action action) : action_(std::move(action)) {}
    ~ScopeExit() { action_(); }
    ScopeExit(const ScopeExit&) = delete;
    ScopeExit& operator=(const ScopeExit&) = delete;

  private:
    Action action_;
};

} // namespace corvelle::base
