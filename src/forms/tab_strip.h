#pragma once

#include "forms/control.h"

#include <string>
#include <utility>
#include <vector>

namespace corvelle::forms {

/// A row of tabs above an area that belongs to the form.
class TabStrip : public Control {
  public:
    TabStrip(Form& form, std::string name, Control* container = nullptr)
        : Control(form, ControlKind::TabStrip, std::move(name), container) {}

    const std::vector<std::string>& tabs() const { return touch(), tabs_; }
    /// The first tab becomes the selected one.
    void setTabs(const std::vector<std::string>& captions) {
        touch();
        selected_ = 1;
        change(tabs_, captions, Aspect::Items);
    }
    /// Index of the selected tab, 1-based.
    int selected() const { return touch(), selected_; }
    /// Raises Click if the tab is another one; "Invalid property value" for a tab that is not there.
    void select(int index);

    void reset() override {
        Control::reset();
        tabs_.clear();
        selected_ = 1;
    }

  private:
    std::vector<std::string> tabs_;
    int selected_ = 1;
};

} // namespace corvelle::forms
