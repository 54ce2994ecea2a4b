// The row of dots: visual effect 0.

#include "base/run_time_error.h"
#include "plain_home.h"
#include "ui/indicator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::ui {
namespace {

using testing::ElementsAre;

/// An indicator of that size with colours of its own.
struct Dots {
    Dots(int width, int height) : home(width, height) {
        indicator.setForeColor(0x0000AA);
        indicator.setFillColor(0x00BB00);
        indicator.setDotColor(0xCC0000);
        indicator.setBackcolor(0xDDDDDD);
    }

    std::vector<std::string> picture() const {
        return rows(home.pixels, {{0x0000AA, 'o'}, {0x00BB00, 'f'}, {0xCC0000, 'd'}, {0xDDDDDD, '.'}});
    }
    /// What a frame looks like that has so many dots, the large one at an index (none: -1).
    std::vector<std::string> frame(int dots, int large, int baseY) const {
        auto wanted = plain(home.pixels.width(), home.pixels.height());
        for (int i = 0; i < dots; ++i) {
            const int x = 10 + 15 * i;
            if (i == large) {
                box(wanted, x, baseY - 2, x + 7, baseY + 5, 'o');
                box(wanted, x + 1, baseY - 1, x + 6, baseY + 4, 'f');
            } else {
                box(wanted, x, baseY, x + 3, baseY + 3, 'd');
            }
        }
        return wanted;
    }
    void tick(int times = 1) { desktop.passTime(std::int64_t{times} * 120); }

    forms::HeadlessDesktop desktop;
    PlainHome home;
    Indicator indicator{desktop, home};
};

TEST(IndicatorDots, ANewOneIsEmpty) {
    Dots dots(30, 20);
    EXPECT_EQ(dots.picture(), plain(30, 20));
}

TEST(IndicatorDots, StartDrawsTheFirstFrameAtOnce) {
    Dots dots(34, 20);
    dots.indicator.StartNow();
    EXPECT_THAT(dots.picture(), ElementsAre("..................................", //
                                            "..................................", //
                                            "..................................", //
                                            "..................................", //
                                            "..................................", //
                                            "..................................", //
                                            "..................................", //
                                            "..................................", //
                                            "..................................", //
                                            "..................................", //
                                            "..........ooooooo.................", //
                                            "..........offfffo.................", //
                                            "..........offfffo........ddd......", //
                                            "..........offfffo........ddd......", //
                                            "..........offfffo........ddd......", //
                                            "..........offfffo.................", //
                                            "..........ooooooo.................", //
                                            "..................................", //
                                            "..................................", //
                                            ".................................."));
}

TEST(IndicatorDots, TheLargeDotWalksToTheRightAndWraps) {
    Dots dots(80, 20);
    dots.indicator.StartNow();
    for (const int large : {0, 1, 2, 3, 4, 0, 1}) {
        EXPECT_EQ(dots.picture(), dots.frame(5, large, 12)) << large;
        dots.tick();
    }
}

struct Width {
    int width, dots;
};
class IndicatorWidth : public testing::TestWithParam<Width> {};

TEST_P(IndicatorWidth, HoldsSoManyDots) {
    Dots dots(GetParam().width, 20);
    dots.indicator.StartNow();
    EXPECT_EQ(dots.picture(), dots.frame(GetParam().dots, 0, 12));
}

// A dot follows while its left edge is at most ScaleWidth - 5.
INSTANTIATE_TEST_SUITE_P(Widths, IndicatorWidth,
                         testing::Values(Width{0, 1}, Width{1, 1}, Width{12, 1}, Width{19, 1}, Width{29, 1},
                                         Width{30, 2}, Width{44, 2}, Width{45, 3}, Width{59, 3}, Width{60, 4},
                                         Width{320, 21}));

TEST(IndicatorDots, ANarrowOneShowsOneLargeDotAtEveryTick) {
    Dots dots(19, 20);
    dots.indicator.StartNow();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(dots.picture(), dots.frame(1, 0, 12));
        EXPECT_EQ(dots.picture()[10], "..........ooooooo..");
        dots.tick();
    }
}

struct Height {
    int height, baseY;
};
class IndicatorHeight : public testing::TestWithParam<Height> {};

TEST_P(IndicatorHeight, PlacesTheDots) {
    Dots dots(60, GetParam().height);
    dots.indicator.StartNow();
    EXPECT_EQ(dots.picture(), dots.frame(4, 0, GetParam().baseY));
}

// ScaleHeight - 7.5, of the two neighbours the even one.
INSTANTIATE_TEST_SUITE_P(Heights, IndicatorHeight,
                         testing::Values(Height{0, -8}, Height{3, -4}, Height{4, -4}, Height{5, -2},
                                         Height{6, -2}, Height{7, 0}, Height{8, 0}, Height{9, 2},
                                         Height{10, 2}, Height{11, 4}, Height{12, 4}, Height{19, 12},
                                         Height{20, 12}, Height{21, 14}, Height{22, 14}, Height{23, 16},
                                         Height{50, 42}));

TEST(IndicatorDots, AFrameClearsTheFormerOne) {
    Dots dots(60, 20);
    dots.indicator.StartNow();
    dots.home.pixels.clear(0x654321);
    dots.tick();
    EXPECT_EQ(dots.picture(), dots.frame(4, 1, 12));
}

TEST(IndicatorDots, EveryFrameIsShownAndYieldsToNobody) {
    Dots dots(60, 20);
    const int before = dots.home.refreshes;
    dots.indicator.StartNow();
    EXPECT_EQ(dots.home.refreshes, before + 1);
    dots.tick(3);
    EXPECT_EQ(dots.home.refreshes, before + 4);
    EXPECT_EQ(dots.desktop.yields(), 0);
}

TEST(IndicatorDots, StopClearsAndTheNextStartBeginsAtTheFirstDot) {
    Dots dots(60, 20);
    dots.indicator.StartNow();
    dots.tick(2);
    dots.indicator.stopNow();
    EXPECT_EQ(dots.picture(), plain(60, 20));
    dots.tick(3);
    EXPECT_EQ(dots.picture(), plain(60, 20));
    dots.indicator.StartNow();
    EXPECT_EQ(dots.picture(), dots.frame(4, 0, 12));
}

TEST(IndicatorDots, StartedInsideAStopItGoesOnFromItsFirstFrame) {
    Dots dots(60, 20);
    dots.indicator.StartNow();
    dots.tick(2);
    dots.desktop.atYield([&] {
        dots.indicator.StartNow();
        EXPECT_EQ(dots.picture(), dots.frame(4, 0, 12)) << "the index is 0 before the yield";
    });
    dots.indicator.stopNow();
    EXPECT_EQ(dots.picture(), plain(60, 20));
    dots.tick();
    EXPECT_EQ(dots.picture(), dots.frame(4, 1, 12)) << "and is left alone behind it";
}

TEST(IndicatorDots, PauseKeepsThePictureAndResumeGoesOn) {
    Dots dots(60, 20);
    dots.indicator.StartNow();
    dots.tick();
    dots.indicator.PauseNow();
    dots.tick(5);
    EXPECT_EQ(dots.picture(), dots.frame(4, 1, 12));
    dots.indicator.ResumeNow();
    EXPECT_EQ(dots.picture(), dots.frame(4, 1, 12));
    dots.desktop.passTime(119);
    EXPECT_EQ(dots.picture(), dots.frame(4, 1, 12)) << "resuming starts a full interval";
    dots.desktop.passTime(1);
    EXPECT_EQ(dots.picture(), dots.frame(4, 2, 12));
}

TEST(IndicatorDots, AStartWhilePausedGoesOnFromTheDotReached) {
    Dots dots(60, 20);
    dots.indicator.StartNow();
    dots.tick();
    dots.indicator.PauseNow();
    dots.indicator.StartNow();
    EXPECT_EQ(dots.picture(), dots.frame(4, 2, 12));
    EXPECT_EQ(dots.indicator.RunTimeInterval(), 0);
}

TEST(IndicatorDots, AResizePlacesTheNextFrame) {
    Dots dots(60, 20);
    dots.indicator.StartNow();
    dots.home.pixels.resize(80, 30, 0);
    dots.indicator.resized();
    auto kept = plain(80, 30);
    box(kept, 10, 10, 17, 17, 'o');
    box(kept, 11, 11, 16, 16, 'f');
    for (const int x : {25, 40, 55}) box(kept, x, 12, x + 3, 15, 'd');
    EXPECT_EQ(dots.picture(), kept) << "what is drawn stays until the next frame";
    dots.tick();
    EXPECT_EQ(dots.picture(), dots.frame(5, 1, 22));
}

TEST(IndicatorDots, SystemColoursAreResolvedWhenDrawing) {
    forms::HeadlessDesktop desktop;
    PlainHome home(30, 20);
    Indicator indicator(desktop, home);
    indicator.setForeColor(0x80000010);
    indicator.setFillColor(0x80000018);
    indicator.setDotColor(0x8000000D);
    indicator.StartNow();
    EXPECT_EQ(home.pixels.pixel(0, 0), 0xC8D0D4U);
    EXPECT_EQ(home.pixels.pixel(10, 10), 0x808080U);
    EXPECT_EQ(home.pixels.pixel(11, 11), 0xE1FFFFU);
    EXPECT_EQ(home.pixels.pixel(25, 12), 0x6A240AU);
}

TEST(IndicatorDots, TheUsualColours) {
    forms::HeadlessDesktop desktop;
    PlainHome home(30, 20);
    Indicator indicator(desktop, home);
    indicator.StartNow();
    EXPECT_EQ(home.pixels.pixel(10, 10), desktop.resolve(0x80000012));
    EXPECT_EQ(home.pixels.pixel(11, 11), 0U);
    EXPECT_EQ(home.pixels.pixel(25, 12), 0xFF0000U);
    EXPECT_EQ(home.pixels.pixel(0, 0), desktop.resolve(0x8000000F));
}

// The large dot's index counts up until it meets the number of dots: a narrower row never lets it.
TEST(IndicatorDots, MadeNarrowerTheLargeDotIsLostUntilTheNextStop) {
    Dots dots(80, 20);
    dots.indicator.StartNow();
    dots.tick(3);
    dots.home.pixels.resize(45, 20, 0);
    dots.indicator.resized();
    for (int i = 0; i < 10; ++i) {
        dots.tick();
        EXPECT_EQ(dots.picture(), dots.frame(3, -1, 12));
    }
    dots.indicator.stopNow();
    dots.indicator.StartNow();
    EXPECT_EQ(dots.picture(), dots.frame(3, 0, 12));
}

TEST(IndicatorDots, TheIndexOverflowsAt16Bits) {
    Dots dots(80, 1);
    dots.indicator.StartNow();
    dots.tick(3);
    dots.home.pixels.resize(10, 1, 0);
    dots.indicator.resized();
    int raised = 0;
    dots.indicator.RaiseTicK = true;
    dots.indicator.onTick = [&raised] { ++raised; };
    // Four frames drawn, so the index is 4; 32,763 more bring it to 32,767.
    dots.tick(32763);
    EXPECT_EQ(raised, 32763);
    EXPECT_EQ(dots.indicator.RunTimeInterval(), 120 * 32766);
    const int shown = dots.home.refreshes;
    dots.tick(2);
    EXPECT_EQ(dots.home.refreshes, shown + 2) << "the frames are still drawn";
    EXPECT_EQ(raised, 32763) << "but the ticks end there";
    EXPECT_EQ(dots.indicator.RunTimeInterval(), 120 * 32766);
    EXPECT_TRUE(dots.desktop.boxes().empty());

    dots.indicator.PauseNow();
    try {
        dots.indicator.StartNow();
        ADD_FAILURE();
    } catch (const base::RunTimeError& error) {
        EXPECT_EQ(error.number(), 6);
    }
    dots.indicator.stopNow();
    EXPECT_NO_THROW(dots.indicator.StartNow());
}

} // namespace
} // namespace corvelle::ui
