// The scrolling bar: every visual effect but 0.

#include "base/run_time_error.h"
#include "plain_home.h"
#include "ui/indicator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::ui {
namespace {

using testing::ElementsAre;

constexpr forms::Colour scroll = 0x0A0064, middle = 0x503CA0, left = 0x9678DC;

/// An indicator of that size that shows the bar, in three colours.
struct Bar {
    Bar(int width, int height) : home(width, height) {
        indicator.setBackcolor(0xDDDDDD);
        indicator.setScrollColor(scroll);
        indicator.setVisualEffect(1);
    }

    std::vector<std::string> picture() const {
        return rows(home.pixels, {{left, '0'}, {middle, '1'}, {scroll, '2'}, {0, 'b'}, {0xDDDDDD, '.'}});
    }
    /// What a frame looks like with the bar's left edge there.
    std::vector<std::string> frame(int barPos, const char* letters = "012") const {
        const int height = home.pixels.height();
        auto wanted = plain(home.pixels.width(), height);
        for (int i = 0; i < 3; ++i) {
            const int x = barPos + 9 * i;
            box(wanted, x, std::min(2, height - 3), x + 6, std::max(2, height - 3), letters[i]);
        }
        return wanted;
    }
    void tick(int times = 1) { desktop.passTime(std::int64_t{times} * 120); }

    forms::HeadlessDesktop desktop;
    PlainHome home;
    Indicator indicator{desktop, home};
};

TEST(IndicatorBar, StartDrawsTheFirstFrameAtOnce) {
    Bar bar(38, 9);
    bar.indicator.StartNow();
    EXPECT_THAT(bar.picture(), ElementsAre("......................................", //
                                           "......................................", //
                                           "........000000...111111...222222......", //
                                           "........000000...111111...222222......", //
                                           "........000000...111111...222222......", //
                                           "........000000...111111...222222......", //
                                           "......................................", //
                                           "......................................", //
                                           "......................................"));
}

TEST(IndicatorBar, MovesEightPixelsATickAndWrapsOncePastTheWidth) {
    Bar bar(60, 20);
    bar.indicator.StartNow();
    for (const int barPos : {8, 16, 24, 32, 40, 48, 56, 64, 0, 8, 16}) {
        EXPECT_EQ(bar.picture(), bar.frame(barPos)) << barPos;
        bar.tick();
    }
}

TEST(IndicatorBar, AtTheWidthExactlyItGoesOnce) {
    Bar bar(16, 20);
    bar.indicator.StartNow();
    for (const int barPos : {8, 16, 24, 0, 8}) {
        EXPECT_EQ(bar.picture(), bar.frame(barPos)) << barPos;
        bar.tick();
    }
}

TEST(IndicatorBar, EveryStartBeginsAtTheLeft) {
    Bar bar(60, 20);
    bar.indicator.StartNow();
    bar.tick(3);
    bar.indicator.stopNow();
    EXPECT_EQ(bar.picture(), plain(60, 20));
    bar.indicator.StartNow();
    EXPECT_EQ(bar.picture(), bar.frame(8));
}

class IndicatorBarSize : public testing::TestWithParam<std::pair<int, int>> {};

TEST_P(IndicatorBarSize, KeepsTheGeometry) {
    Bar bar(GetParam().first, GetParam().second);
    bar.indicator.StartNow();
    EXPECT_EQ(bar.picture(), bar.frame(8));
    bar.tick();
    EXPECT_EQ(bar.picture(), bar.frame(bar.home.pixels.width() < 8 ? 0 : 16));
}

INSTANTIATE_TEST_SUITE_P(Sizes, IndicatorBarSize,
                         testing::Values(std::pair{0, 0}, std::pair{0, 20}, std::pair{60, 0},
                                         std::pair{60, 1}, std::pair{60, 2}, std::pair{60, 4},
                                         std::pair{60, 5}, std::pair{60, 6}, std::pair{7, 20},
                                         std::pair{8, 20}, std::pair{19, 20}, std::pair{500, 40}));

TEST(IndicatorBar, WithoutHeightBetweenItsEdgesThereIsNothing) {
    Bar bar(60, 5);
    bar.indicator.StartNow();
    EXPECT_EQ(bar.picture(), plain(60, 5));
}

TEST(IndicatorBar, EveryFrameIsShownBeforeItYieldsOnce) {
    Bar bar(60, 20);
    const int before = bar.home.refreshes;
    std::vector<std::string> seen;
    bar.desktop.atYield([&] {
        seen = bar.picture();
        EXPECT_EQ(bar.home.refreshes, before + 1);
    });
    bar.indicator.StartNow();
    EXPECT_EQ(seen, bar.frame(8));
    EXPECT_EQ(bar.desktop.yields(), 1);
    bar.tick(3);
    EXPECT_EQ(bar.desktop.yields(), 4);
    EXPECT_EQ(bar.home.refreshes, before + 4);
}

TEST(IndicatorBar, AnErrorInTheYieldIsIgnored) {
    Bar bar(60, 20);
    bar.desktop.atYield([] { throw base::RunTimeError(base::ErrorNumber::Overflow); });
    EXPECT_NO_THROW(bar.indicator.StartNow());
    bar.desktop.atYield([] { throw base::RunTimeError(base::ErrorNumber::Overflow); });
    bar.tick();
    EXPECT_EQ(bar.indicator.RunTimeInterval(), 120);
}

// Colours

TEST(IndicatorBar, TheLeadingBlockHasTheScrollColourEachToItsLeftIsLighter) {
    forms::HeadlessDesktop desktop;
    PlainHome home(60, 20);
    Indicator indicator(desktop, home);
    indicator.setVisualEffect(1);
    indicator.StartNow();
    EXPECT_EQ(home.pixels.pixel(26, 2), 0xFF0000U);
    EXPECT_EQ(home.pixels.pixel(17, 2), 0xFF3C3CU);
    EXPECT_EQ(home.pixels.pixel(8, 2), 0xFF7878U);
}

TEST(IndicatorBar, OtherEffectsAreBlackInAFreshControl) {
    for (const std::int32_t effect : {2, 3, -1, 2147483647}) {
        forms::HeadlessDesktop desktop;
        PlainHome home(60, 20);
        Indicator indicator(desktop, home);
        indicator.setVisualEffect(effect);
        EXPECT_EQ(indicator.ForeColor(), 0x80000012U); // reading it does not build them either
        indicator.StartNow();
        for (const int x : {8, 17, 26}) EXPECT_EQ(home.pixels.pixel(x, 2), 0U) << effect;
        EXPECT_EQ(home.pixels.pixel(14, 2), desktop.resolve(0x8000000F));
    }
}

TEST(IndicatorBar, OtherEffectsKeepTheColoursThatWereBuilt) {
    Bar bar(60, 20);
    bar.indicator.setVisualEffect(2);
    bar.indicator.setScrollColor(0x111111);
    bar.indicator.setVisualEffect(3);
    bar.indicator.StartNow();
    EXPECT_EQ(bar.picture(), bar.frame(8));
}

TEST(IndicatorBar, AWrittenScrollColourShowsNotByItself) {
    Bar bar(60, 20);
    bar.indicator.setScrollColor(0x0000FF);
    EXPECT_EQ(bar.indicator.ScrollColor(), 0x0000FFU);
    bar.indicator.StartNow();
    EXPECT_EQ(bar.picture(), bar.frame(8));
}

TEST(IndicatorBar, AWrittenScrollColourShowsAfterTheEffectIsWritten) {
    Bar bar(60, 20);
    bar.indicator.setScrollColor(0x0000FF);
    bar.indicator.setVisualEffect(1);
    bar.indicator.StartNow();
    EXPECT_EQ(bar.home.pixels.pixel(26, 2), 0x0000FFU);
    EXPECT_EQ(bar.home.pixels.pixel(17, 2), 0x463CFFU);
    EXPECT_EQ(bar.home.pixels.pixel(8, 2), 0x8C78FFU);
}

TEST(IndicatorBar, AWrittenScrollColourShowsAfterTheForeColourIsRead) {
    Bar bar(60, 20);
    bar.indicator.setScrollColor(0x0000FF);
    bar.indicator.setForeColor(0x123456);
    EXPECT_EQ(bar.indicator.ForeColor(), 0x123456U);
    bar.indicator.StartNow();
    EXPECT_EQ(bar.home.pixels.pixel(26, 2), 0x0000FFU);
}

TEST(IndicatorBar, WritingTheForeColourDoesNotBuildThem) {
    Bar bar(60, 20);
    bar.indicator.setScrollColor(0x0000FF);
    bar.indicator.setForeColor(0x123456);
    bar.indicator.StartNow();
    EXPECT_EQ(bar.picture(), bar.frame(8));
}

TEST(IndicatorBar, OfASystemColourTheIndexIsLightened) {
    Bar bar(60, 20);
    bar.indicator.setScrollColor(0x8000000D);
    bar.indicator.setVisualEffect(1);
    bar.indicator.StartNow();
    EXPECT_EQ(bar.home.pixels.pixel(26, 2), bar.desktop.resolve(0x8000000D));
    EXPECT_EQ(bar.home.pixels.pixel(17, 2), 0x463C49U);
    EXPECT_EQ(bar.home.pixels.pixel(8, 2), 0x8C7885U);
}

// The two effects share a counter: the number of dots, or the bar's left edge.
TEST(IndicatorBar, AnEffectChangedMeanwhileGoesOnWithTheOthersCounter) {
    Bar bar(80, 20);
    bar.indicator.StartNow();
    bar.tick(3);
    bar.indicator.setVisualEffect(0);
    bar.tick(); // five dots
    bar.indicator.setVisualEffect(1);
    bar.tick();
    EXPECT_EQ(bar.picture(), bar.frame(13));
}

// What a handler does inside the yield

TEST(IndicatorBar, MayBeStoppedInsideItsFirstFrame) {
    Bar bar(60, 20);
    bar.desktop.atYield([&] { bar.indicator.stopNow(); });
    bar.indicator.StartNow();
    EXPECT_EQ(bar.picture(), plain(60, 20));
    bar.tick(3);
    EXPECT_EQ(bar.picture(), plain(60, 20));
    EXPECT_EQ(bar.desktop.yields(), 2);
}

TEST(IndicatorBar, StoppedInsideATickTheTickIsStillCounted) {
    Bar bar(60, 20);
    int raised = 0;
    bar.indicator.RaiseTicK = true;
    bar.indicator.onTick = [&raised] { ++raised; };
    bar.indicator.StartNow();
    bar.desktop.atYield([&] { bar.indicator.stopNow(); });
    bar.tick(3);
    EXPECT_EQ(bar.picture(), plain(60, 20));
    EXPECT_EQ(bar.indicator.RunTimeInterval(), 120);
    EXPECT_EQ(raised, 1);
}

TEST(IndicatorBar, StartedInsideAStopItRunsAndIsCleared) {
    Bar bar(60, 20);
    bar.indicator.StartNow();
    bar.desktop.atYield([&] { bar.indicator.StartNow(); });
    bar.indicator.stopNow();
    EXPECT_EQ(bar.picture(), plain(60, 20));
    bar.tick();
    EXPECT_EQ(bar.picture(), bar.frame(16));
}

TEST(IndicatorBar, TheHomeIsKeptAliveInsideAYield) {
    Bar bar(60, 20);
    const long before = bar.home.life.use_count();
    bar.desktop.atYield([&] { EXPECT_GT(bar.home.life.use_count(), before); });
    bar.indicator.StartNow();
    bar.desktop.atYield([&] { EXPECT_GT(bar.home.life.use_count(), before); });
    bar.tick();
    bar.desktop.atYield([&] { EXPECT_GT(bar.home.life.use_count(), before); });
    bar.indicator.stopNow();
    EXPECT_TRUE(bar.desktop.scriptIsDone());
    EXPECT_EQ(bar.home.life.use_count(), before);
}

} // namespace
} // namespace corvelle::ui
