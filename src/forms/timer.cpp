#include "forms/timer.h"

#include "base/run_time_error.h"
#include "base/scope_exit.h"
#include "forms/desktop.h"

#include <utility>

namespace corvelle::forms {

Timer::~Timer() {
    if (running_) desktop_.stopTimer(*this);
}

void Timer::setInterval(std::int32_t milliseconds) {
    if (milliseconds < 0 || milliseconds > 65535) {
        throw base::RunTimeError(base::ErrorNumber::InvalidPropertyValue);
    }
    if (interval_ == milliseconds) return;
    interval_ = milliseconds;
    restart();
}

void Timer::setEnabled(bool enabled) {
    if (enabled_ == enabled) return;
    enabled_ = enabled;
    restart();
}

void Timer::restart() {
    if (std::exchange(running_, false)) desktop_.stopTimer(*this);
    if (!enabled_ || interval_ == 0) return;
    desktop_.startTimer(*this, interval_);
    running_ = true;
}

void Timer::ticked() {
    if (!enabled_ || *inHandler_ || !onTimer) return;
    const auto handler = onTimer; // the timer may be destroyed inside
    *inHandler_ = true;
    const base::ScopeExit ended([inHandler = inHandler_] { *inHandler = false; });
    const InHandler handles(desktop_);
    handler();
}

} // namespace corvelle::forms
