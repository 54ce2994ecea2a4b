#pragma once

#include <cstdint>

namespace corvelle::forms {

/// Red in bits 0-7, green in bits 8-15, blue in bits 16-23; with bit 31 set the low byte is a system colour.
using Colour = std::uint32_t;

namespace colours {
inline constexpr Colour black = 0x000000;
inline constexpr Colour white = 0xFFFFFF;
inline constexpr Colour windowBackground = 0x80000005;
inline constexpr Colour windowText = 0x80000008;
inline constexpr Colour buttonFace = 0x8000000F;
inline constexpr Colour buttonText = 0x80000012;
} // namespace colours

/// Whether it is the number of a system colour, which the desktop resolves.
constexpr bool isSystemColour(Colour colour) {
    return (colour & 0x80000000U) != 0;
}

} // namespace corvelle::forms
