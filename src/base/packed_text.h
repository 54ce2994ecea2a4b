#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

// Up to eight bytes of a text as one number, the first one in the lowest byte: short words, and the
// beginnings of long ones, are then compared at once instead of letter by letter.
namespace corvelle::base {

inline constexpr std::size_t mostPacked = 8;

/// Makes each capital letter among packed bytes a small one. Other bytes may change too: into none that a
/// name holds, but two that differ may become the same.
inline constexpr std::uint64_t smallLetters = 0x2020202020202020U;

/// The number's bits that so many bytes fill, 1 to 8.
constexpr std::uint64_t packedBits(std::size_t length) {
    return ~std::uint64_t{0} >> (8 * (mostPacked - length));
}

/// The bytes, at most eight, as a number.
constexpr std::uint64_t packed(std::string_view text) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        value |= std::uint64_t{static_cast<unsigned char>(text[i])} << (8 * i);
    }
    return value;
}

/// The `length` bytes, 1 to 8, from `begin` of the text. Where eight bytes can be read at once they are, and
/// what is not asked for is cut.
inline std::uint64_t packedAt(std::string_view text, std::size_t begin, std::size_t length) {
    const bool rightOrder = std::endian::native == std::endian::little;
    if (!rightOrder || text.size() < mostPacked) return packed(text.substr(begin, length));
    const std::size_t from = std::min(begin, text.size() - mostPacked);
    std::uint64_t value = 0;
    std::memcpy(&value, text.data() + from, mostPacked);
    return value >> (8 * (begin - from)) & packedBits(length);
}

} // namespace corvelle::base
