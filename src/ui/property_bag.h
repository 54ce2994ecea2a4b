#pragma once

#include <cstdint>
#include <string>

namespace corvelle::ui {

/// Where a control keeps its persisted properties, as 32-bit values by key. Keys compare without regard to
/// case.
class PropertyBag {
  public:
    virtual ~PropertyBag() = default;

    /// The value under the key; `otherwise` where there is none.
    virtual std::int32_t read(const std::string& key, std::int32_t otherwise) = 0;
    /// Keeps the value under the key. A bag may leave out a value that is the key's default.
    virtual void write(const std::string& key, std::int32_t value, std::int32_t otherwise) = 0;
};

} // namespace corvelle::ui
