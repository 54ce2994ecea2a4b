// Starting, stopping, ticks and the run time.

#include "base/run_time_error.h"
#include "plain_home.h"
#include "ui/indicator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::ui {
namespace {

class IndicatorTime : public testing::Test {
  protected:
    void SetUp() override {
        indicator.RaiseTicK = true;
        indicator.onTick = [this] { ++raised; };
    }

    forms::HeadlessDesktop desktop;
    PlainHome home{10, 5};
    Indicator indicator{desktop, home};
    int raised = 0;
};

TEST_F(IndicatorTime, AStoppedOneDoesNothing) {
    const int shown = home.refreshes;
    desktop.passTime(1000);
    EXPECT_EQ(raised, 0);
    EXPECT_EQ(home.refreshes, shown);
    EXPECT_EQ(indicator.RunTimeInterval(), 0);
}

TEST_F(IndicatorTime, TicksAtItsInterval) {
    indicator.StartNow();
    EXPECT_EQ(raised, 0) << "the first frame is no tick";
    desktop.passTime(119);
    EXPECT_EQ(raised, 0);
    desktop.passTime(1);
    EXPECT_EQ(raised, 1);
    desktop.passTime(1200);
    EXPECT_EQ(raised, 11);
}

TEST_F(IndicatorTime, RaisesTicksOnlyWhenAsked) {
    EXPECT_FALSE(Indicator(desktop, home).RaiseTicK);
    indicator.RaiseTicK = false;
    indicator.StartNow();
    desktop.passTime(240);
    EXPECT_EQ(raised, 0);
    EXPECT_EQ(indicator.RunTimeInterval(), 240);
    indicator.RaiseTicK = true;
    desktop.passTime(120);
    EXPECT_EQ(raised, 1);
}

TEST_F(IndicatorTime, ATickComesAfterTheFrameAndTheCount) {
    int shown = 0;
    std::int32_t runTime = -1;
    indicator.onTick = [&] {
        shown = home.refreshes;
        runTime = indicator.RunTimeInterval();
    };
    indicator.StartNow();
    const int before = home.refreshes;
    desktop.passTime(120);
    EXPECT_EQ(shown, before + 1);
    EXPECT_EQ(runTime, 120);
}

TEST_F(IndicatorTime, AnErrorInATicksHandlerIsIgnored) {
    indicator.onTick = [this] {
        ++raised;
        throw base::RunTimeError(base::ErrorNumber::Overflow);
    };
    indicator.StartNow();
    EXPECT_NO_THROW(desktop.passTime(360));
    EXPECT_EQ(raised, 3);
    EXPECT_EQ(indicator.RunTimeInterval(), 360);
}

TEST_F(IndicatorTime, ATicksHandlerMayStopItAndReplaceItself) {
    indicator.onTick = [this] {
        ++raised;
        indicator.onTick = nullptr;
        indicator.stopNow();
        ++raised;
    };
    indicator.StartNow();
    desktop.passTime(1000);
    EXPECT_EQ(raised, 2);
}

TEST_F(IndicatorTime, ASecondStartWhileItRunsDoesNothing) {
    indicator.StartNow();
    desktop.passTime(300);
    const int shown = home.refreshes;
    indicator.StartNow();
    EXPECT_EQ(home.refreshes, shown);
    EXPECT_EQ(indicator.RunTimeInterval(), 240);
    desktop.passTime(60);
    EXPECT_EQ(raised, 3) << "its interval goes on too";
}

TEST_F(IndicatorTime, TheRunTimeIsTheSumOfTheIntervalsInForce) {
    indicator.StartNow();
    desktop.passTime(240);
    indicator.setInterval(50);
    desktop.passTime(150);
    indicator.setInterval(1000);
    desktop.passTime(999);
    EXPECT_EQ(indicator.RunTimeInterval(), 2 * 120 + 3 * 50);
    desktop.passTime(1);
    EXPECT_EQ(indicator.RunTimeInterval(), 2 * 120 + 3 * 50 + 1000);
}

TEST_F(IndicatorTime, AnIntervalChangedInsideTheFrameIsTheOneCounted) {
    indicator.setVisualEffect(1);
    indicator.StartNow();
    desktop.atYield([this] { indicator.setInterval(77); });
    desktop.passTime(120);
    EXPECT_EQ(indicator.RunTimeInterval(), 77);
}

TEST_F(IndicatorTime, PausesDoNotCount) {
    indicator.StartNow();
    desktop.passTime(180);
    indicator.PauseNow();
    desktop.passTime(5000);
    EXPECT_EQ(indicator.RunTimeInterval(), 120);
    indicator.ResumeNow();
    desktop.passTime(120);
    EXPECT_EQ(indicator.RunTimeInterval(), 240);
}

TEST_F(IndicatorTime, TheRunTimeStaysAfterAStopUntilTheNextStart) {
    indicator.StartNow();
    desktop.passTime(360);
    indicator.stopNow();
    EXPECT_EQ(indicator.RunTimeInterval(), 360);
    indicator.StartNow();
    EXPECT_EQ(indicator.RunTimeInterval(), 0);
}

TEST_F(IndicatorTime, PauseAndResumeDoNothingUnlessStarted) {
    indicator.ResumeNow();
    desktop.passTime(1000);
    EXPECT_EQ(raised, 0);
    indicator.PauseNow();
    indicator.StartNow();
    indicator.stopNow();
    indicator.ResumeNow();
    desktop.passTime(1000);
    EXPECT_EQ(raised, 0);
}

TEST_F(IndicatorTime, APausedOneCanBeStopped) {
    indicator.StartNow();
    indicator.PauseNow();
    indicator.stopNow();
    indicator.ResumeNow();
    desktop.passTime(1000);
    EXPECT_EQ(raised, 0);
}

TEST_F(IndicatorTime, ResumingARunningOneKeepsItsInterval) {
    indicator.StartNow();
    desktop.passTime(100);
    indicator.ResumeNow();
    desktop.passTime(20);
    EXPECT_EQ(raised, 1);
}

TEST_F(IndicatorTime, StopYieldsOnceThenClears) {
    indicator.setBackcolor(0xDDDDDD);
    home.pixels.resize(30, 20, 0);
    indicator.resized();
    indicator.StartNow();
    bool drawn = false;
    desktop.atYield([&] { drawn = home.pixels.pixel(10, 10) != 0xDDDDDD; });
    indicator.stopNow();
    EXPECT_TRUE(drawn);
    EXPECT_EQ(home.pixels.pixel(10, 10), 0xDDDDDDU);
    EXPECT_EQ(desktop.yields(), 1);
    indicator.stopNow();
    EXPECT_EQ(desktop.yields(), 2) << "a stopped one does the same";
}

TEST_F(IndicatorTime, AnIntervalOf0NeverTicks) {
    indicator.setInterval(0);
    indicator.StartNow();
    desktop.passTime(100000);
    EXPECT_EQ(raised, 0);
    const int shown = home.refreshes;
    indicator.StartNow();
    EXPECT_EQ(home.refreshes, shown) << "it is started all the same";
    indicator.setInterval(10);
    desktop.passTime(10);
    EXPECT_EQ(raised, 1);
}

TEST_F(IndicatorTime, TheTimersLimitsAreTheIntervals) {
    std::vector<std::string> written;
    indicator.onPropertyChanged = [&](const std::string& key) { written.push_back(key); };
    for (const std::int32_t beyond : {-1, 65536}) {
        try {
            indicator.setInterval(beyond);
            ADD_FAILURE() << beyond;
        } catch (const base::RunTimeError& error) {
            EXPECT_EQ(error.number(), 380);
        }
    }
    EXPECT_TRUE(written.empty());
    EXPECT_EQ(indicator.Interval(), 120);
    indicator.setInterval(65535);
    EXPECT_EQ(indicator.Interval(), 65535);
}

TEST_F(IndicatorTime, ASumBeyond32BitsIsNotTaken) {
    indicator.RaiseTicK = false;
    indicator.setInterval(65535);
    indicator.StartNow();
    // 32,768 ticks are 2,147,450,880 milliseconds: 32,767 short of the last number.
    desktop.passTime(std::int64_t{65535} * 32768);
    EXPECT_EQ(indicator.RunTimeInterval(), 2147450880);
    desktop.passTime(65535);
    EXPECT_EQ(indicator.RunTimeInterval(), 2147450880);
    indicator.RaiseTicK = true;
    desktop.passTime(65535);
    EXPECT_EQ(raised, 1) << "the tick is raised all the same";
    indicator.setInterval(32767);
    desktop.passTime(32767);
    EXPECT_EQ(indicator.RunTimeInterval(), 2147483647);
    indicator.setInterval(1);
    desktop.passTime(1);
    EXPECT_EQ(indicator.RunTimeInterval(), 2147483647);
}

TEST_F(IndicatorTime, EveryUseFromOutsideIsTheHomesBusinessFirst) {
    const auto uses = [this](const std::function<void()>& action) {
        const int before = home.uses;
        action();
        return home.uses - before;
    };
    EXPECT_EQ(uses([&] { indicator.StartNow(); }), 1);
    EXPECT_EQ(uses([&] { indicator.PauseNow(); }), 1);
    EXPECT_EQ(uses([&] { indicator.ResumeNow(); }), 1);
    EXPECT_EQ(uses([&] { desktop.passTime(120); }), 0);
    EXPECT_EQ(uses([&] { indicator.stopNow(); }), 1);
    EXPECT_EQ(uses([&] { indicator.RunTimeInterval(); }), 1);
    EXPECT_EQ(uses([&] { indicator.resized(); }), 0);
    const std::vector<std::function<void()>> properties{
        [&] { indicator.FillColor(); },    [&] { indicator.setFillColor(1); },
        [&] { indicator.ForeColor(); },    [&] { indicator.setForeColor(1); },
        [&] { indicator.Interval(); },     [&] { indicator.setInterval(1); },
        [&] { indicator.DotColor(); },     [&] { indicator.setDotColor(1); },
        [&] { indicator.VisualEffect(); }, [&] { indicator.setVisualEffect(1); },
        [&] { indicator.ScrollColor(); },  [&] { indicator.setScrollColor(1); },
        [&] { indicator.BorderStyle(); },  [&] { indicator.setBorderStyle(1); },
        [&] { indicator.Backcolor(); },    [&] { indicator.setBackcolor(1); },
        [&] { indicator.BorderColor(); },  [&] { indicator.setBorderColor(1); },
    };
    for (std::size_t i = 0; i < properties.size(); ++i) EXPECT_EQ(uses(properties[i]), 1) << i;
}

TEST_F(IndicatorTime, DestroyedWhileRunningItTicksNoMore) {
    {
        Indicator mortal(desktop, home);
        mortal.StartNow();
    }
    const int shown = home.refreshes;
    desktop.passTime(1000);
    EXPECT_EQ(home.refreshes, shown);
}

} // namespace
} // namespace corvelle::ui
