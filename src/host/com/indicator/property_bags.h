#pragma once

#include "ui/property_bag.h"

#include <cstdint>
#include <ocidl.h>
#include <string>
#include <utility>
#include <vector>

namespace corvelle::host {

/// The bag that a container gives for loading or saving.
class ContainerBag : public ui::PropertyBag {
  public:
    /// For loading; the log may be null.
    ContainerBag(IPropertyBag& bag, IErrorLog* log) : bag_(bag), log_(log) {}
    /// For saving; `all` saves defaults too.
    ContainerBag(IPropertyBag& bag, bool all) : bag_(bag), all_(all) {}

    /// Throws RunTimeError 13 or 6 for what is no 32-bit number.
    std::int32_t read(const std::string& key, std::int32_t otherwise) override;
    void write(const std::string& key, std::int32_t value, std::int32_t otherwise) override;

  private:
    IPropertyBag& bag_;
    IErrorLog* log_ = nullptr;
    bool all_ = true;
};

/// Properties that are kept in a stream: "CVI1", the number of properties as a byte, and of each the length
/// of its key as a byte, the key in ASCII and the value, 32 bits; numbers with the lowest byte first.
class StreamBag : public ui::PropertyBag {
  public:
    std::int32_t read(const std::string& key, std::int32_t otherwise) override;
    void write(const std::string& key, std::int32_t value, std::int32_t otherwise) override;

    /// Takes what the stream has. Throws HresultError for a stream that ends early or has something else.
    void load(IStream& stream);
    void save(IStream& stream) const;
    /// How many bytes `save` writes.
    std::uint32_t size() const;

  private:
    std::vector<std::pair<std::string, std::int32_t>> values_;
};

} // namespace corvelle::host
