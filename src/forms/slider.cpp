#include "forms/slider.h"

#include "base/run_time_error.h"

#include <algorithm>

namespace corvelle::forms {

void Slider::setRange(const Range& range) {
    if (range.min > range.max) throw base::RunTimeError(base::ErrorNumber::InvalidPropertyValue);
    if (change(range_, range, Aspect::Items)) setValue(std::clamp(value_, range.min, range.max));
}

void Slider::setValue(int value) {
    touch();
    if (value < range_.min || value > range_.max) {
        throw base::RunTimeError(base::ErrorNumber::InvalidPropertyValue);
    }
    if (change(value_, value, Aspect::Value)) raise(onChange);
}

void Slider::userDragged(int value) {
    if (value == this->value()) return;
    value_ = value;
    raise(onScroll);
    raise(onChange);
}

void Slider::reset() {
    Control::reset();
    range_ = Range();
    value_ = 0;
}

} // namespace corvelle::forms
