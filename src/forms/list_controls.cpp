#include "forms/list_controls.h"

#include "base/run_time_error.h"

#include <algorithm>

namespace corvelle::forms {

const std::string& ListControl::list(int index) const {
    if (index < 0 || index >= listCount()) throw base::RunTimeError(base::ErrorNumber::InvalidPropertyValue);
    return items_[static_cast<std::size_t>(index)];
}

void ListControl::addItem(const std::string& text) {
    touch();
    items_.push_back(text);
    changed(Aspect::Items);
}

void ListControl::addItems(const std::vector<std::string>& texts) {
    touch();
    items_.insert(items_.end(), texts.begin(), texts.end());
    changed(Aspect::Items);
}

void ListControl::clear() {
    touch();
    items_.clear();
    listIndex_ = -1;
    changed(Aspect::Items);
}

void ListControl::setListIndex(int index) {
    if (index < -1 || index >= listCount()) throw base::RunTimeError(base::ErrorNumber::InvalidPropertyValue);
    if (change(listIndex_, index, Aspect::Value) && index >= 0) raise(onClick);
}

const std::string& ListControl::text() const {
    static const std::string none;
    return listIndex() < 0 ? none : list(listIndex_);
}

void ListControl::userPressedKey(int keyCode) {
    if (onKeyDown) raise([this, keyCode] { onKeyDown(keyCode); });
}

void ListControl::reset() {
    Control::reset();
    items_.clear();
    listIndex_ = -1;
}

void TabStrip::select(int index) {
    if (index < 1 || index > static_cast<int>(tabs().size())) {
        throw base::RunTimeError(base::ErrorNumber::InvalidPropertyValue);
    }
    if (change(selected_, index, Aspect::Value)) raise(onClick);
}

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
