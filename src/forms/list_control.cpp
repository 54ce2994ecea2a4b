#include "forms/list_control.h"

#include "base/run_time_error.h"

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

} // namespace corvelle::forms
