#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace corvelle::base {

/// How many bytes of the text satisfy the predicate, which should be free of branches: blocks of one size and
/// a count that fits a byte then let the compiler look at many bytes at once.
template <class Predicate>
std::size_t countBytes(std::string_view text, Predicate isOne) {
    constexpr std::size_t block = 128;
    std::size_t count = 0;
    for (; text.size() >= block; text.remove_prefix(block)) {
        std::uint8_t inBlock = 0;
        for (std::size_t i = 0; i < block; ++i) inBlock += isOne(text[i]) ? 1 : 0;
        count += inBlock;
    }
    for (const char c : text) count += isOne(c) ? 1 : 0;
    return count;
}

} // namespace corvelle::base
