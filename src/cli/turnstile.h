#pragma once

#include "base/scope_exit.h"

#include <condition_variable>
#include <cstddef>
#include <mutex>

namespace corvelle::cli {

/// Lets numbered workers through one after the other, 0 first. Each number must pass exactly once.
class Turnstile {
  public:
    /// Runs the function when all smaller numbers have passed. The turn is given on even if it throws.
    template <class Function>
    void pass(std::size_t number, Function&& function) {
        std::unique_lock lock(mutex_);
        moved_.wait(lock, [&] { return next_ == number; });
        lock.unlock();
        const base::ScopeExit passed([this] { giveOn(); });
        function();
    }

  private:
    void giveOn() {
        {
            const std::lock_guard lock(mutex_);
            ++next_;
        }
        moved_.notify_all();
    }

    std::mutex mutex_;
    std::condition_variable moved_;
    std::size_t next_ = 0;
};

/// Lets so many workers at once do something, the others wait.
class Slots {
  public:
    explicit Slots(std::size_t count) : free_(count) {}

    /// Runs the function when a slot is free; the slot is given back even if it throws.
    template <class Function>
    void use(Function&& function) {
        take();
        const base::ScopeExit used([this] { give(); });
        function();
    }

  private:
    void take() {
        std::unique_lock lock(mutex_);
        freed_.wait(lock, [this] { return free_ > 0; });
        --free_;
    }

    void give() {
        {
            const std::lock_guard lock(mutex_);
            ++free_;
        }
        freed_.notify_one();
    }

    std::mutex mutex_;
    std::condition_variable freed_;
    std::size_t free_;
};

} // namespace corvelle::cli
