#pragma once

#include "forms/control.h"

#include <functional>
#include <string>
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

} // namespace corvelle::forms
