#pragma once

#include "ide/vb_control.h"

#include <cstdint>
#include <memory>

namespace corvelle::ide {

/// All controls of a designer, the ones inside others included.
class VBControls {
  public:
    virtual ~VBControls() = default;

    virtual std::int32_t Count() = 0;
    /// The control of that number, from 1. Throws RunTimeError 9 outside the range.
    virtual std::shared_ptr<VBControl> Item(std::int32_t index) = 0;
};

} // namespace corvelle::ide
