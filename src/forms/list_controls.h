#pragma once

#include "forms/control.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace corvelle::forms {

/// Rows of text of which one or none is chosen: what a list box and a combo box share.
class ListControl : public Control {
  public:
    using Control::Control;

    /// A key goes down in the list, which does with it what it does.
    std::function<void(int keyCode)> onKeyDown;

    int listCount() const { return touch(), static_cast<int>(items_.size()); }
    /// Row 0 to listCount() - 1; raises "Invalid property value" beyond.
    const std::string& list(int index) const;
    const std::vector<std::string>& items() const { return touch(), items_; }
    /// Appends a row; selects nothing.
    void addItem(const std::string& text);
    /// Appends rows, which is quicker than one after the other.
    void addItems(const std::vector<std::string>& texts);
    /// Empties the list; nothing is chosen afterwards, without Click.
    void clear();

    /// The chosen row; -1: none.
    int listIndex() const { return touch(), listIndex_; }
    /// Raises Click when a row is chosen that was not; "Invalid property value" for a row that is not there.
    void setListIndex(int index);
    /// The chosen row's text, or empty.
    const std::string& text() const;

    // What the user did; called by the window.
    void userPressedKey(int keyCode);

    void reset() override;

  protected:
    Colour plainBackColor() const override { return colours::windowBackground; }
    Colour plainForeColor() const override { return colours::windowText; }

  private:
    std::vector<std::string> items_;
    int listIndex_ = -1;
};

/// A list that shows several rows.
class ListBox : public ListControl {
  public:
    ListBox(Form& form, std::string name, Control* container = nullptr)
        : ListControl(form, ControlKind::ListBox, std::move(name), container) {}
};

/// A drop-down list.
class ComboBox : public ListControl {
  public:
    ComboBox(Form& form, std::string name, Control* container = nullptr)
        : ListControl(form, ControlKind::ComboBox, std::move(name), container) {}
};

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

/// A slider over a range of whole numbers.
class Slider : public Control {
  public:
    struct Range {
        int min = 0, max = 10;
        int smallChange = 1, largeChange = 5;

        bool operator==(const Range&) const = default;
    };

    Slider(Form& form, std::string name, Control* container = nullptr)
        : Control(form, ControlKind::Slider, std::move(name), container) {}

    std::function<void()> onChange;
    /// Raised before Change while the user drags.
    std::function<void()> onScroll;

    const Range& range() const { return touch(), range_; }
    /// A value outside the new range moves to its nearer end.
    void setRange(const Range& range);
    int value() const { return touch(), value_; }
    /// Raises Change if the value is another one; a value outside the range is an "Invalid property value".
    void setValue(int value);

    /// The user's dragging: the window shows the value already.
    void userDragged(int value);

    void reset() override;

  private:
    Range range_;
    int value_ = 0;
};

} // namespace corvelle::forms
