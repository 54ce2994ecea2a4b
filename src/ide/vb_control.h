#pragma once

#include "ide/properties.h"

#include <memory>
#include <string>

namespace corvelle::ide {

/// A control on a designer.
class VBControl {
  public:
    virtual ~VBControl() = default;

    /// The control's class without its library: "CommandButton".
    virtual std::string ClassName() = 0;
    virtual std::shared_ptr<ide::Properties> Properties() = 0;
};

} // namespace corvelle::ide
