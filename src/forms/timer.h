#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace corvelle::forms {

class Desktop;

/// Raises Timer again and again while enabled, whenever messages are served; never twice at once.
class Timer {
  public:
    /// The desktop must outlive the timer.
    explicit Timer(Desktop& desktop) : desktop_(desktop) {}
    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    std::function<void()> onTimer;

    /// Milliseconds; 0 is off.
    std::int32_t interval() const { return interval_; }
    /// 0 to 65,535, else "Invalid property value". A running timer starts a full interval.
    void setInterval(std::int32_t milliseconds);
    bool enabled() const { return enabled_; }
    /// Enabling starts a full interval.
    void setEnabled(bool enabled);

    /// An interval has passed; called by the desktop. The timer may be gone afterwards.
    void ticked();

  private:
    void restart();

    Desktop& desktop_;
    std::int32_t interval_ = 0;
    bool enabled_ = false;
    bool running_ = false; // as the desktop knows it
    // Outlives the timer if its own handler destroys it.
    std::shared_ptr<bool> inHandler_ = std::make_shared<bool>(false);
};

} // namespace corvelle::forms
