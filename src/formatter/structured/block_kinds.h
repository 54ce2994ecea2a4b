#pragma once

#include "formatter/structured/blocks.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Sets of block kinds, and what is known of each kind.
namespace corvelle::formatter::structured {

constexpr std::uint16_t bit(BlockKind kind) {
    return static_cast<std::uint16_t>(kind);
}
inline constexpr std::uint16_t procedures =
    bit(BlockKind::Sub) | bit(BlockKind::Function) | bit(BlockKind::Property);
inline constexpr std::uint16_t memberLists = bit(BlockKind::Type) | bit(BlockKind::Enum);

constexpr bool isProcedure(std::uint16_t kinds) {
    return (kinds & procedures) != 0;
}

/// The name of a block and of what ends it, by the number of the kind's bit.
inline constexpr std::array<std::string_view, 13> blockNames{"Sub",  "Function", "Property", "Type", "Enum",
                                                             "If",   "Select",   "For",      "Do",   "While",
                                                             "With", "Case",     "#If"};
inline constexpr std::array<std::string_view, 13> closerNames{
    "End Sub", "End Function", "End Property", "End Type", "End Enum", "End If", "End Select",
    "Next",    "Loop",         "Wend",         "End With", "",         "#End If"};

/// The number of the lowest kind of the set.
inline std::size_t numberOf(std::uint16_t kinds) {
    return static_cast<std::size_t>(std::countr_zero(kinds));
}
inline std::string nameOf(std::uint16_t kinds) {
    return std::string(blockNames[numberOf(kinds)]);
}
inline std::string_view closerOf(BlockKind kind) {
    return closerNames[numberOf(bit(kind))];
}

/// How deep what stands in a block of the kinds is under its first line.
inline Depth depthIn(std::uint16_t kinds) {
    if (isProcedure(kinds)) return Depth::Procedure;
    if ((kinds & memberLists) != 0) return Depth::Type;
    if ((kinds & bit(BlockKind::Select)) != 0) return Depth::Case;
    if ((kinds & bit(BlockKind::With)) != 0) return Depth::With;
    return Depth::Block;
}

} // namespace corvelle::formatter::structured
