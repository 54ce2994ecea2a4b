#include "plain_home.h"
#include "ui/indicator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::ui {
namespace {

using testing::ElementsAre;

class IndicatorBorder : public testing::Test {
  protected:
    void SetUp() override {
        indicator.setBackcolor(0xDDDDDD);
        indicator.setBorderColor(0x00AA00);
        indicator.setDotColor(0xCC0000);
        indicator.setForeColor(0x0000AA);
        indicator.setFillColor(0x00BB00);
    }
    std::vector<std::string> picture() const {
        return rows(home.pixels, {{0xDDDDDD, '.'},
                                  {0x00AA00, '#'},
                                  {0xCC0000, 'd'},
                                  {0x0000AA, 'o'},
                                  {0x00BB00, 'f'},
                                  {0x000000, '|'}});
    }

    forms::HeadlessDesktop desktop;
    PlainHome home{10, 6};
    Indicator indicator{desktop, home};
};

TEST_F(IndicatorBorder, ThereIsNoneAtFirst) {
    EXPECT_EQ(indicator.BorderStyle(), 0);
    EXPECT_EQ(picture(), plain(10, 6));
}

TEST_F(IndicatorBorder, Style2ShowsTheShapeOnePixelInsideTheEdge) {
    indicator.setBorderStyle(2);
    EXPECT_THAT(picture(), ElementsAre("..........", //
                                       ".########.", //
                                       ".#......#.", //
                                       ".#......#.", //
                                       ".########.", //
                                       ".........."));
}

TEST_F(IndicatorBorder, Style1IsTheSurfacesOwn) {
    indicator.setBorderStyle(1);
    EXPECT_THAT(picture(), ElementsAre("||||||||||", //
                                       "|........|", //
                                       "|........|", //
                                       "|........|", //
                                       "|........|", //
                                       "||||||||||"));
}

TEST_F(IndicatorBorder, Style0AndBelowShowNothing) {
    for (const std::int32_t style : {0, -1, -2147483647}) {
        indicator.setBorderStyle(2);
        indicator.setBorderStyle(style);
        EXPECT_EQ(picture(), plain(10, 6)) << style;
        EXPECT_EQ(indicator.BorderStyle(), style);
        indicator.setBorderStyle(1);
        indicator.setBorderStyle(style);
        EXPECT_EQ(picture(), plain(10, 6)) << style;
    }
}

TEST_F(IndicatorBorder, EachOfTheTwoReplacesTheOther) {
    indicator.setBorderStyle(2);
    indicator.setBorderStyle(1);
    EXPECT_EQ(picture()[1], "|........|");
    indicator.setBorderStyle(2);
    EXPECT_EQ(picture()[0], "..........");
    EXPECT_EQ(picture()[1], ".########.");
}

TEST_F(IndicatorBorder, AStyleAbove2IsOnlyStored) {
    for (const std::int32_t before : {0, 1, 2}) {
        indicator.setBorderStyle(before);
        const auto seen = picture();
        indicator.setBorderStyle(3);
        EXPECT_EQ(picture(), seen) << before;
        EXPECT_EQ(indicator.BorderStyle(), 3);
    }
}

TEST_F(IndicatorBorder, AWrittenColourShowsAtOnce) {
    indicator.setBorderStyle(2);
    indicator.setBorderColor(0xCC0000);
    EXPECT_EQ(picture()[1], ".dddddddd.");
    EXPECT_EQ(indicator.BorderColor(), 0xCC0000U);
}

TEST_F(IndicatorBorder, TheUsualColourIsASystemColour) {
    Indicator other(desktop, home);
    other.setBorderStyle(2);
    EXPECT_EQ(home.pixels.pixel(1, 1), desktop.resolve(0x80000002));
}

TEST_F(IndicatorBorder, TheShapeLiesAboveWhatIsDrawn) {
    home.pixels.resize(30, 12, 0);
    indicator.resized();
    indicator.setBorderStyle(2);
    indicator.StartNow();
    EXPECT_THAT(picture(), ElementsAre("..............................", //
                                       ".############################.", //
                                       ".#........ooooooo...........#.", //
                                       ".#........offfffo...........#.", //
                                       ".#........offfffo........ddd#.", //
                                       ".#........offfffo........ddd#.", //
                                       ".#........offfffo........ddd#.", //
                                       ".#........offfffo...........#.", //
                                       ".#........ooooooo...........#.", //
                                       ".#..........................#.", //
                                       ".############################.", //
                                       ".............................."));
    indicator.stopNow();
    auto cleared = plain(30, 12);
    box(cleared, 1, 1, 29, 11, '#');
    box(cleared, 2, 2, 28, 10, '.');
    EXPECT_EQ(picture(), cleared);
}

// The surface's own border takes its pixels from the inside: all is measured from there.
TEST_F(IndicatorBorder, TheSurfacesBorderMakesTheInsideSmaller) {
    home.pixels.resize(32, 12, 0);
    indicator.resized();
    indicator.setBorderStyle(1);
    indicator.StartNow();
    EXPECT_THAT(picture(), ElementsAre("||||||||||||||||||||||||||||||||", //
                                       "|..........ooooooo.............|", //
                                       "|..........offfffo.............|", //
                                       "|..........offfffo........ddd..|", //
                                       "|..........offfffo........ddd..|", //
                                       "|..........offfffo........ddd..|", //
                                       "|..........offfffo.............|", //
                                       "|..........ooooooo.............|", //
                                       "|..............................|", //
                                       "|..............................|", //
                                       "|..............................|", //
                                       "||||||||||||||||||||||||||||||||"));
    indicator.setBorderStyle(0);
    indicator.stopNow();
    indicator.StartNow();
    EXPECT_EQ(picture()[2], "..........ooooooo...............");
}

TEST_F(IndicatorBorder, TheShapeFollowsEveryResize) {
    indicator.setBorderStyle(2);
    home.pixels.resize(7, 4, 0);
    indicator.resized();
    EXPECT_THAT(picture(), ElementsAre(".......", ".#####.", ".#####.", "......."));
}

TEST_F(IndicatorBorder, SmallAndEmptySizesAreAllowed) {
    for (const std::int32_t style : {0, 1, 2}) {
        for (int width = 0; width < 5; ++width) {
            for (int height = 0; height < 5; ++height) {
                home.pixels.resize(width, height, 0);
                indicator.resized();
                indicator.setBorderStyle(style);
                indicator.StartNow();
                indicator.stopNow();
                auto wanted = plain(width, height);
                if (style == 1) {
                    wanted = plain(width, height, '|');
                    box(wanted, 1, 1, width - 1, height - 1, '.');
                } else if (style == 2) {
                    box(wanted, 1, 1, width - 1, height - 1, '#');
                    box(wanted, 2, 2, width - 2, height - 2, '.');
                }
                EXPECT_EQ(picture(), wanted) << style << ": " << width << " by " << height;
            }
        }
    }
}

TEST_F(IndicatorBorder, TheBarStandsInEachAsInNone) {
    indicator.setScrollColor(0x0000AA);
    indicator.setVisualEffect(2); // its blocks are black
    for (const auto& [width, height] : {std::pair{60, 20}, std::pair{38, 9}, std::pair{20, 7}}) {
        for (const std::int32_t style : {0, 1, 2}) {
            home.pixels.resize(width, height, 0);
            indicator.resized();
            indicator.setBorderStyle(style);
            indicator.StartNow();
            const int edge = style == 1 ? 1 : 0;
            auto wanted = plain(width, height, style == 1 ? '|' : '.');
            box(wanted, edge, edge, width - edge, height - edge, '.');
            for (int x = edge + 8; x <= edge + 26; x += 9)
                box(wanted, x, edge + 2, std::min(x + 6, width - edge), height - edge - 3, '|');
            if (style == 2) {
                box(wanted, 1, 1, width - 1, 2, '#');
                box(wanted, 1, height - 2, width - 1, height - 1, '#');
                box(wanted, 1, 1, 2, height - 1, '#');
                box(wanted, width - 2, 1, width - 1, height - 1, '#');
            }
            EXPECT_EQ(picture(), wanted) << style << ": " << width << " by " << height;
            indicator.stopNow();
        }
    }
}

TEST_F(IndicatorBorder, ANewBackColourClears) {
    home.pixels.resize(30, 12, 0);
    indicator.resized();
    indicator.StartNow();
    indicator.setBackcolor(0x00BB00);
    EXPECT_EQ(picture(), plain(30, 12, 'f'));
    EXPECT_EQ(indicator.Backcolor(), 0x00BB00U);
}

} // namespace
} // namespace corvelle::ui
