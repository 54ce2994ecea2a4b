#pragma once

#include "ide/vb_component.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace corvelle::ide {

/// The components of a project.
class VBComponents {
  public:
    virtual ~VBComponents() = default;

    virtual std::int32_t Count() = 0;
    /// The component of that number, from 1. Throws RunTimeError 9 outside the range.
    virtual std::shared_ptr<VBComponent> Item(std::int32_t index) = 0;
    /// The component of that name, letter case aside. Throws RunTimeError 9 if there is none.
    virtual std::shared_ptr<VBComponent> Item(std::string_view name) = 0;
    virtual std::shared_ptr<VBComponent> Add(ComponentType type) = 0;
};

} // namespace corvelle::ide
