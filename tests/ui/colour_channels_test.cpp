#include "ui/colour_channels.h"

#include <gtest/gtest.h>

namespace corvelle::ui {
namespace {

TEST(ColourChannels, EachIsItsByte) {
    for (forms::Colour value = 0; value < 256; ++value) {
        const auto wanted = static_cast<std::int16_t>(value);
        EXPECT_EQ(GetRed(value), wanted);
        EXPECT_EQ(GetRed(value | 0xFFFFFF00), wanted);
        EXPECT_EQ(GetGreen(value << 8), wanted);
        EXPECT_EQ(GetGreen(value << 8 | 0xFFFF00FF), wanted);
        EXPECT_EQ(GetBlue(value << 16), wanted);
        EXPECT_EQ(GetBlue(value << 16 | 0xFF00FFFF), wanted);
    }
}

TEST(ColourChannels, OfASystemColourAreItsIndexBytes) {
    EXPECT_EQ(GetRed(0x8000000F), 15);
    EXPECT_EQ(GetGreen(0x8000000F), 0);
    EXPECT_EQ(GetBlue(0x8000000F), 0);
}

TEST(LightenColor, AddsTheStepOfEachChannel) {
    EXPECT_EQ(lightenColor(0x030201, {1, 2, 3}), 0x060402U);
    EXPECT_EQ(lightenColor(0x030201, {0, 0, 0}), 0x030201U);
}

TEST(LightenColor, StopsAt255InEachChannel) {
    EXPECT_EQ(lightenColor(0x00FF00, {60, 60, 70}), 0x46FF3CU);
    EXPECT_EQ(lightenColor(0xC8C8C8, {55, 56, 255}), 0xFFFFFFU);
    EXPECT_EQ(lightenColor(0xC7C7C7, {55, 55, 55}), 0xFEFEFEU);
}

TEST(LightenColor, DropsTheUppermostByte) {
    EXPECT_EQ(lightenColor(0x8000000F, {60, 60, 70}), 0x463C4BU);
}

TEST(DarkenColor, TakesTheStepOfEachChannel) {
    EXPECT_EQ(darkenColor(0x060402, {1, 2, 3}), 0x030201U);
    EXPECT_EQ(darkenColor(0x030201, {0, 0, 0}), 0x030201U);
}

TEST(DarkenColor, StopsAt0InEachChannel) {
    EXPECT_EQ(darkenColor(0x46FF3C, {60, 60, 70}), 0x00C300U);
    EXPECT_EQ(darkenColor(0x3B3C3D, {60, 60, 60}), 0x000001U);
    EXPECT_EQ(darkenColor(0x000000, {255, 255, 255}), 0x000000U);
}

TEST(DarkenColor, DropsTheUppermostByte) {
    EXPECT_EQ(darkenColor(0xFF505050, {1, 2, 3}), 0x4D4E4FU);
}

} // namespace
} // namespace corvelle::ui
