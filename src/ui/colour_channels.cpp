#include "ui/colour_channels.h"

#include <algorithm>

namespace corvelle::ui {

namespace {

std::int16_t channel(forms::Colour colour, int first) {
    int value = 0;
    for (int bit = first; bit < first + 8; ++bit) {
        if ((colour & (1U << bit)) != 0) value += 1 << (bit - first);
    }
    return static_cast<std::int16_t>(value);
}

forms::Colour moved(forms::Colour colour, const ColourSteps& steps, int direction) {
    const auto move = [direction](std::int16_t value, std::uint8_t step) {
        return static_cast<forms::Colour>(std::clamp(value + direction * step, 0, 255));
    };
    return move(GetRed(colour), steps[0]) + 256 * move(GetGreen(colour), steps[1]) +
           65536 * move(GetBlue(colour), steps[2]);
}

} // namespace

std::int16_t GetRed(forms::Colour RgbVal) {
    return channel(RgbVal, 0);
}

std::int16_t GetGreen(forms::Colour RgbVal) {
    return channel(RgbVal, 8);
}

std::int16_t GetBlue(forms::Colour RgbVal) {
    return channel(RgbVal, 16);
}

forms::Colour lightenColor(forms::Colour colour, const ColourSteps& steps) {
    return moved(colour, steps, +1);
}

forms::Colour darkenColor(forms::Colour colour, const ColourSteps& steps) {
    return moved(colour, steps, -1);
}

} // namespace corvelle::ui
