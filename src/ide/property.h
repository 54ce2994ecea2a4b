#pragma once

#include <string>

namespace corvelle::ide {

/// One property of a control on a designer.
class Property {
  public:
    virtual ~Property() = default;

    /// The value as text. Throws RunTimeError 13 for a value that has none.
    virtual std::string Value() = 0;
};

} // namespace corvelle::ide
