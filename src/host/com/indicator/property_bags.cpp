#include "host/com/indicator/property_bags.h"

#include "com/bstr.h"
#include "com/error.h"
#include "com/variant.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace corvelle::host {

namespace {

constexpr std::array<char, 4> mark{'C', 'V', 'I', '1'};

bool isSameKey(const std::string& a, const std::string& b) {
    return a.size() == b.size() && _strnicmp(a.data(), b.data(), a.size()) == 0;
}

std::wstring wide(const std::string& key) {
    return {key.begin(), key.end()};
}

void readBytes(IStream& stream, void* bytes, std::size_t count) {
    ULONG got = 0;
    com::hresultErrorIfFailed(stream.Read(bytes, static_cast<ULONG>(count), &got));
    if (got != count) throw com::HresultError(STG_E_READFAULT);
}

} // namespace

// The container's

std::int32_t ContainerBag::read(const std::string& key, std::int32_t otherwise) {
    com::Variant value;
    // A container that does not have the key says so by failing.
    if (FAILED(bag_.Read(wide(key).c_str(), value.receive(), log_)) || value.type() == VT_EMPTY)
        return otherwise;
    // A colour of the system may come unsigned.
    if (value.type() == VT_UI4) return static_cast<std::int32_t>(V_UI4(&value.get()));
    return com::longOf(value);
}

void ContainerBag::write(const std::string& key, std::int32_t value, std::int32_t otherwise) {
    if (value == otherwise && !all_) return;
    VARIANT written = com::Variant(value).release();
    com::hresultErrorIfFailed(bag_.Write(wide(key).c_str(), &written));
}

// The stream's

std::int32_t StreamBag::read(const std::string& key, std::int32_t otherwise) {
    const auto found = std::find_if(values_.begin(), values_.end(),
                                    [&key](const auto& value) { return isSameKey(value.first, key); });
    return found == values_.end() ? otherwise : found->second;
}

void StreamBag::write(const std::string& key, std::int32_t value, std::int32_t) {
    values_.emplace_back(key, value);
}

void StreamBag::load(IStream& stream) {
    std::array<char, 4> start{};
    readBytes(stream, start.data(), start.size());
    if (start != mark) throw com::HresultError(STG_E_INVALIDHEADER);
    std::uint8_t count = 0;
    readBytes(stream, &count, 1);
    for (; count > 0; --count) {
        std::uint8_t length = 0;
        readBytes(stream, &length, 1);
        std::string key(length, '\0');
        readBytes(stream, key.data(), key.size());
        std::int32_t value = 0;
        readBytes(stream, &value, sizeof value);
        values_.emplace_back(std::move(key), value);
    }
}

void StreamBag::save(IStream& stream) const {
    std::string bytes(mark.begin(), mark.end());
    bytes += static_cast<char>(values_.size());
    for (const auto& [key, value] : values_) {
        bytes += static_cast<char>(key.size());
        bytes += key;
        bytes.append(reinterpret_cast<const char*>(&value),
                     sizeof value); // Windows has the lowest byte first
    }
    ULONG written = 0;
    com::hresultErrorIfFailed(stream.Write(bytes.data(), static_cast<ULONG>(bytes.size()), &written));
    if (written != bytes.size()) throw com::HresultError(STG_E_MEDIUMFULL);
}

std::uint32_t StreamBag::size() const {
    std::size_t size = mark.size() + 1;
    for (const auto& [key, value] : values_) size += 1 + key.size() + sizeof value;
    return static_cast<std::uint32_t>(size);
}

} // namespace corvelle::host
