#pragma once

#include "forms/list_control.h"

#include <utility>

namespace corvelle::forms {

/// A drop-down list.
class ComboBox : public ListControl {
  public:
    ComboBox(Form& form, std::string name, Control* container = nullptr)
        : ListControl(form, ControlKind::ComboBox, std::move(name), container) {}
};

} // namespace corvelle::forms
