#pragma once

#include "ide/property.h"

#include <memory>
#include <string_view>

namespace corvelle::ide {

/// The properties of a control on a designer.
class Properties {
  public:
    virtual ~Properties() = default;

    /// The property of that name, letter case aside. Throws RunTimeError if there is none.
    virtual std::shared_ptr<Property> Item(std::string_view name) = 0;
};

} // namespace corvelle::ide
