#pragma once

#include "forms/control.h"

#include <functional>
#include <utility>

namespace corvelle::forms {

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
