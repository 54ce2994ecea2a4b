// Properties and their persistence.

#include "base/run_time_error.h"
#include "base/text.h"
#include "plain_home.h"
#include "ui/indicator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::ui {
namespace {

using testing::ElementsAre;
using testing::Pair;

/// A bag in memory that writes down what it is asked.
class RecordingBag : public PropertyBag {
  public:
    std::int32_t read(const std::string& key, std::int32_t otherwise) override {
        reads.emplace_back(key, otherwise);
        const auto found = values.find(base::upper(key));
        return found == values.end() ? otherwise : found->second;
    }
    void write(const std::string& key, std::int32_t value, std::int32_t otherwise) override {
        writes.emplace_back(key, otherwise);
        if (value == otherwise) {
            values.erase(base::upper(key));
        } else {
            values[base::upper(key)] = value;
        }
    }
    void set(const std::string& key, forms::Colour value) {
        values[base::upper(key)] = static_cast<std::int32_t>(value);
    }

    std::vector<std::pair<std::string, std::int32_t>> reads, writes;
    std::map<std::string, std::int32_t> values;
};

std::int32_t number(forms::Colour colour) {
    return static_cast<std::int32_t>(colour);
}

class IndicatorProperties : public testing::Test {
  protected:
    forms::HeadlessDesktop desktop;
    PlainHome home{60, 20};
    Indicator indicator{desktop, home};
    RecordingBag bag;
};

TEST_F(IndicatorProperties, ANewInstanceHasTheDefaults) {
    EXPECT_EQ(indicator.FillColor(), 0U);
    EXPECT_EQ(indicator.ForeColor(), 0x80000012U);
    EXPECT_EQ(indicator.Interval(), 120);
    EXPECT_EQ(indicator.DotColor(), 0xFF0000U);
    EXPECT_EQ(indicator.VisualEffect(), 0);
    EXPECT_EQ(indicator.ScrollColor(), 0xFF0000U);
    EXPECT_EQ(indicator.BorderStyle(), 0);
    EXPECT_EQ(indicator.Backcolor(), 0x8000000FU);
    EXPECT_EQ(indicator.BorderColor(), 0x80000002U);
    EXPECT_EQ(indicator.RunTimeInterval(), 0);
    EXPECT_FALSE(indicator.RaiseTicK);
}

TEST_F(IndicatorProperties, EachIsWhatItWasSetTo) {
    indicator.setFillColor(1);
    indicator.setForeColor(2);
    indicator.setInterval(3);
    indicator.setDotColor(4);
    indicator.setVisualEffect(5);
    indicator.setScrollColor(6);
    indicator.setBorderStyle(7);
    indicator.setBackcolor(8);
    indicator.setBorderColor(9);
    EXPECT_EQ(indicator.FillColor(), 1U);
    EXPECT_EQ(indicator.ForeColor(), 2U);
    EXPECT_EQ(indicator.Interval(), 3);
    EXPECT_EQ(indicator.DotColor(), 4U);
    EXPECT_EQ(indicator.VisualEffect(), 5);
    EXPECT_EQ(indicator.ScrollColor(), 6U);
    EXPECT_EQ(indicator.BorderStyle(), 7);
    EXPECT_EQ(indicator.Backcolor(), 8U);
    EXPECT_EQ(indicator.BorderColor(), 9U);
}

TEST_F(IndicatorProperties, EveryWriteMarksItsKeyAsChanged) {
    std::vector<std::string> keys;
    indicator.onPropertyChanged = [&](const std::string& key) { keys.push_back(key); };
    indicator.setFillColor(1);
    indicator.setForeColor(2);
    indicator.setInterval(3);
    indicator.setDotColor(4);
    indicator.setVisualEffect(5);
    indicator.setScrollColor(6);
    indicator.setBorderStyle(7);
    indicator.setBackcolor(8);
    indicator.setBorderColor(9);
    EXPECT_THAT(keys, ElementsAre("FillColor", "ForeColor", "Interval", "DotColor", "VisualEffect",
                                  "ScrollColor", "BorderStyle", "BackColor", "BorderColor"));
}

TEST_F(IndicatorProperties, ReadingMarksNothing) {
    int marked = 0;
    indicator.onPropertyChanged = [&](const std::string&) { ++marked; };
    indicator.ForeColor();
    indicator.readProperties(bag);
    indicator.initProperties();
    EXPECT_EQ(marked, 0);
}

TEST_F(IndicatorProperties, LoadReadsTheKeysInOrderWithTheirDefaults) {
    indicator.readProperties(bag);
    EXPECT_THAT(bag.reads,
                ElementsAre(Pair("FillColor", 0), Pair("ForeColor", number(0x80000012)),
                            Pair("Interval", 120), Pair("DotColor", 0xFF0000), Pair("visualEffect", 0),
                            Pair("ScrollColor", 0xFF0000), Pair("BorderStyle", 0),
                            Pair("BackColor", number(0x8000000F)), Pair("BorderColor", number(0x80000002))));
    EXPECT_TRUE(bag.writes.empty());
}

TEST_F(IndicatorProperties, SaveWritesTheKeysInOrderWithTheirDefaults) {
    indicator.writeProperties(bag);
    EXPECT_THAT(bag.writes,
                ElementsAre(Pair("FillColor", 0), Pair("ForeColor", number(0x80000012)),
                            Pair("Interval", 120), Pair("DotColor", 0xFF0000), Pair("VisualEffect", 0),
                            Pair("ScrollColor", 0xFF0000), Pair("BorderStyle", 0),
                            Pair("BackColor", number(0x8000000F)), Pair("BorderColor", number(0x80000002))));
    EXPECT_TRUE(bag.values.empty()) << "a new instance differs from the defaults in nothing";
    EXPECT_TRUE(bag.reads.empty());
}

TEST_F(IndicatorProperties, WhatIsSavedIsLoadedAgain) {
    indicator.setFillColor(0x800000A1);
    indicator.setForeColor(0x0000A2);
    indicator.setInterval(33);
    indicator.setDotColor(0x0000A4);
    indicator.setVisualEffect(2);
    indicator.setScrollColor(0x0000A6);
    indicator.setBorderStyle(2);
    indicator.setBackcolor(0x0000A8);
    indicator.setBorderColor(0x0000A9);
    indicator.writeProperties(bag);
    Indicator other(desktop, home);
    other.readProperties(bag);
    EXPECT_EQ(other.FillColor(), 0x800000A1U);
    EXPECT_EQ(other.ForeColor(), 0x0000A2U);
    EXPECT_EQ(other.Interval(), 33);
    EXPECT_EQ(other.DotColor(), 0x0000A4U);
    EXPECT_EQ(other.VisualEffect(), 2);
    EXPECT_EQ(other.ScrollColor(), 0x0000A6U);
    EXPECT_EQ(other.BorderStyle(), 2);
    EXPECT_EQ(other.Backcolor(), 0x0000A8U);
    EXPECT_EQ(other.BorderColor(), 0x0000A9U);
    EXPECT_EQ(home.pixels.pixel(0, 0), 0x0000A8U) << "and shows";
    EXPECT_EQ(home.pixels.pixel(1, 1), 0x0000A9U);
}

TEST_F(IndicatorProperties, LoadPutsAbsentKeysBackToTheirDefaults) {
    indicator.setInterval(33);
    indicator.setFillColor(5);
    indicator.readProperties(bag);
    EXPECT_EQ(indicator.Interval(), 120);
    EXPECT_EQ(indicator.FillColor(), 0U);
}

TEST_F(IndicatorProperties, LoadingEffect1BuildsTheBarsColours) {
    bag.set("VisualEffect", 1);
    bag.set("ScrollColor", 0x0000FF);
    indicator.readProperties(bag);
    indicator.StartNow();
    EXPECT_EQ(home.pixels.pixel(26, 2), 0x0000FFU);
    EXPECT_EQ(home.pixels.pixel(17, 2), 0x463CFFU);
    EXPECT_EQ(home.pixels.pixel(8, 2), 0x8C78FFU);
}

TEST_F(IndicatorProperties, LoadingAnyOtherEffectDoesNot) {
    bag.set("VisualEffect", 2);
    bag.set("ScrollColor", 0x0000FF);
    indicator.readProperties(bag);
    indicator.StartNow();
    EXPECT_EQ(home.pixels.pixel(26, 2), 0U);
}

enum class Seen { Nothing, Line, Shape };

class LoadedBorder : public testing::TestWithParam<std::tuple<std::int32_t, std::int32_t, Seen>> {};

TEST_P(LoadedBorder, Shows) {
    const auto [before, loaded, seen] = GetParam();
    forms::HeadlessDesktop desktop;
    PlainHome home{60, 20};
    Indicator indicator{desktop, home};
    indicator.setBorderStyle(before);
    RecordingBag bag;
    bag.values["BORDERSTYLE"] = loaded;
    bag.set("BorderColor", 0x00AA00);
    bag.set("BackColor", 0xDDDDDD);
    indicator.readProperties(bag);
    EXPECT_EQ(indicator.BorderStyle(), loaded);
    EXPECT_EQ(home.pixels.pixel(0, 0), seen == Seen::Line ? 0U : 0xDDDDDDU);
    EXPECT_EQ(home.pixels.pixel(1, 1), seen == Seen::Shape ? 0x00AA00U : 0xDDDDDDU);
}

// A loaded 3 is like 2, though a written 3 changes nothing.
INSTANTIATE_TEST_SUITE_P(Styles, LoadedBorder,
                         testing::Values(std::tuple{2, 0, Seen::Nothing}, std::tuple{2, 1, Seen::Line},
                                         std::tuple{1, 2, Seen::Shape}, std::tuple{1, 3, Seen::Shape},
                                         std::tuple{0, 3, Seen::Shape},
                                         std::tuple{0, 2147483647, Seen::Shape},
                                         std::tuple{2, -1, Seen::Nothing}, std::tuple{1, 0, Seen::Nothing}));

TEST_F(IndicatorProperties, ALoadedIntervalOutOfRangeIsAnError) {
    bag.values["INTERVAL"] = 65536;
    EXPECT_THROW(indicator.readProperties(bag), base::RunTimeError);
    EXPECT_EQ(indicator.Interval(), 120);
}

TEST_F(IndicatorProperties, StartingAnewIsANewInstance) {
    indicator.setVisualEffect(1);
    indicator.setInterval(33);
    indicator.setBorderStyle(2);
    indicator.RaiseTicK = true;
    indicator.StartNow();
    desktop.passTime(330);
    indicator.initProperties();
    EXPECT_EQ(indicator.VisualEffect(), 0);
    EXPECT_EQ(indicator.Interval(), 120);
    EXPECT_EQ(indicator.BorderStyle(), 0);
    EXPECT_FALSE(indicator.RaiseTicK);
    EXPECT_EQ(indicator.RunTimeInterval(), 0);
    for (const forms::Colour pixel : home.pixels.pixels()) EXPECT_EQ(pixel, desktop.resolve(0x8000000F));
    const int shown = home.refreshes;
    desktop.passTime(1000);
    EXPECT_EQ(home.refreshes, shown) << "it is stopped";
    indicator.setVisualEffect(2);
    indicator.StartNow();
    EXPECT_EQ(home.pixels.pixel(26, 2), 0U) << "the bar's colours are gone";
}

} // namespace
} // namespace corvelle::ui
