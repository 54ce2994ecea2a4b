#pragma once

#include "forms/list_control.h"

#include <utility>

namespace corvelle::forms {

/// A list that shows several rows.
class ListBox : public ListControl {
  public:
    ListBox(Form& form, std::string name, Control* container = nullptr)
        : ListControl(form, ControlKind::ListBox, std::move(name), container) {}
};

} // namespace corvelle::forms
