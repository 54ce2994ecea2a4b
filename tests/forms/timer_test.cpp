#include "base/run_time_error.h"
#include "forms/headless/headless_desktop.h"
#include "forms/timer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

namespace corvelle::forms {
namespace {

class TimerTest : public testing::Test {
  protected:
    HeadlessDesktop desktop;
    Timer timer{desktop};
    int ticks = 0;

    void SetUp() override {
        timer.onTimer = [this] { ++ticks; };
    }
    void start(std::int32_t interval) {
        timer.setInterval(interval);
        timer.setEnabled(true);
    }
};

TEST_F(TimerTest, IsOffAtFirst) {
    EXPECT_FALSE(timer.enabled());
    EXPECT_EQ(timer.interval(), 0);
    timer.setInterval(100);
    desktop.passTime(1000);
    EXPECT_EQ(ticks, 0);
}

TEST_F(TimerTest, TicksAfterEachFullInterval) {
    start(100);
    desktop.passTime(99);
    EXPECT_EQ(ticks, 0);
    desktop.passTime(1);
    EXPECT_EQ(ticks, 1);
    desktop.passTime(250);
    EXPECT_EQ(ticks, 3);
}

TEST_F(TimerTest, AnIntervalOf0IsOff) {
    start(0);
    desktop.passTime(1000000);
    EXPECT_EQ(ticks, 0);
    timer.setInterval(10);
    desktop.passTime(10);
    EXPECT_EQ(ticks, 1);
    timer.setInterval(0);
    desktop.passTime(1000);
    EXPECT_EQ(ticks, 1);
    EXPECT_TRUE(timer.enabled());
}

TEST_F(TimerTest, EnablingStartsAFullInterval) {
    start(100);
    desktop.passTime(90);
    timer.setEnabled(false);
    timer.setEnabled(true);
    desktop.passTime(90);
    EXPECT_EQ(ticks, 0);
    desktop.passTime(10);
    EXPECT_EQ(ticks, 1);
}

TEST_F(TimerTest, EnablingAnEnabledTimerChangesNothing) {
    start(100);
    desktop.passTime(90);
    timer.setEnabled(true);
    desktop.passTime(10);
    EXPECT_EQ(ticks, 1);
}

TEST_F(TimerTest, AnotherIntervalStartsAtOnce) {
    start(100);
    desktop.passTime(90);
    timer.setInterval(50);
    desktop.passTime(49);
    EXPECT_EQ(ticks, 0);
    desktop.passTime(1);
    EXPECT_EQ(ticks, 1);
}

TEST_F(TimerTest, TheIntervalHasLimits) {
    timer.setInterval(65535);
    EXPECT_EQ(timer.interval(), 65535);
    for (const std::int32_t beyond : {-1, 65536, 2147483647}) {
        try {
            timer.setInterval(beyond);
            ADD_FAILURE() << beyond;
        } catch (const base::RunTimeError& error) {
            EXPECT_EQ(error.number(), 380);
        }
        EXPECT_EQ(timer.interval(), 65535);
    }
}

TEST_F(TimerTest, NeverTicksTwiceAtOnce) {
    int depth = 0, deepest = 0;
    timer.onTimer = [&] {
        deepest = std::max(deepest, ++depth);
        if (++ticks == 1) desktop.passTime(1000);
        --depth;
    };
    start(100);
    desktop.passTime(100);
    EXPECT_EQ(deepest, 1);
    EXPECT_EQ(ticks, 1);
    desktop.passTime(100);
    EXPECT_EQ(ticks, 2);
}

TEST_F(TimerTest, TicksAgainAfterAnErrorInItsHandler) {
    timer.onTimer = [this] {
        if (++ticks == 1) throw base::RunTimeError(base::ErrorNumber::Overflow);
    };
    start(100);
    EXPECT_THROW(desktop.passTime(100), base::RunTimeError);
    desktop.passTime(100);
    EXPECT_EQ(ticks, 2);
}

TEST_F(TimerTest, TicksBehindAMessageBox) {
    start(100);
    desktop.answerNextBox(answer::ok, [this] { desktop.passTime(300); });
    desktop.msgBox("text", box::okOnly);
    EXPECT_EQ(ticks, 3);
}

TEST_F(TimerTest, MayBeStoppedInItsHandler) {
    timer.onTimer = [this] {
        ++ticks;
        timer.setEnabled(false);
    };
    start(100);
    desktop.passTime(1000);
    EXPECT_EQ(ticks, 1);
}

TEST_F(TimerTest, MayBeDestroyedInItsHandler) {
    auto mortal = std::make_unique<Timer>(desktop);
    std::string after;
    mortal->onTimer = [&mortal, &after, word = std::string("the handler's own values live on")] {
        mortal.reset();
        after = word;
    };
    mortal->setInterval(10);
    mortal->setEnabled(true);
    desktop.passTime(100);
    EXPECT_EQ(after, "the handler's own values live on");
    EXPECT_EQ(mortal, nullptr);
}

TEST_F(TimerTest, ADestroyedTimerTicksNoMore) {
    {
        Timer mortal(desktop);
        mortal.onTimer = [this] { ++ticks; };
        mortal.setInterval(10);
        mortal.setEnabled(true);
    }
    desktop.passTime(100);
    EXPECT_EQ(ticks, 0);
}

TEST_F(TimerTest, TimersTickInTheOrderInWhichTheyFallDue) {
    Timer other(desktop);
    std::vector<std::string> order;
    timer.onTimer = [&] { order.emplace_back("100"); };
    other.onTimer = [&] { order.emplace_back("70"); };
    start(100);
    other.setInterval(70);
    other.setEnabled(true);
    desktop.passTime(210);
    EXPECT_THAT(order, testing::ElementsAre("70", "100", "70", "100", "70"));
}

TEST_F(TimerTest, TheClockNeverGoesBack) {
    Timer other(desktop);
    int late = 0;
    other.onTimer = [&] { ++late; };
    timer.onTimer = [&] {
        timer.setEnabled(false);
        desktop.passTime(1000);
        other.setInterval(50);
        other.setEnabled(true);
    };
    start(100);
    desktop.passTime(100);
    desktop.passTime(50);
    EXPECT_EQ(late, 1);
}

} // namespace
} // namespace corvelle::forms
