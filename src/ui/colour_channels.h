#pragma once

#include "forms/drawing.h"

#include <array>
#include <cstdint>

// Arithmetic on the red, green and blue of a colour. Bits 24 to 31 are ignored, so that a system colour
// counts as its index bytes.
namespace corvelle::ui {

/// What is added to or taken from red, green and blue.
using ColourSteps = std::array<std::uint8_t, 3>;

/// The channel, 0 to 255.
std::int16_t GetRed(forms::Colour RgbVal);
std::int16_t GetGreen(forms::Colour RgbVal);
std::int16_t GetBlue(forms::Colour RgbVal);

/// The colour with the steps added, each channel at most 255.
forms::Colour lightenColor(forms::Colour colour, const ColourSteps& steps);
/// The colour with the steps taken away, each channel at least 0.
forms::Colour darkenColor(forms::Colour colour, const ColourSteps& steps);

} // namespace corvelle::ui
