#include "forms/controls.h"
#include "forms/form.h"
#include "plain_home.h"
#include "ui/indicator.h"

#include <gtest/gtest.h>

namespace corvelle::ui {
namespace {

class Window : public forms::Form {
  public:
    explicit Window(forms::Desktop& desktop) : Form(desktop, "Window") {
        button.onClick = [this] {
            Indic.StartNow();
            Indic.stopNow();
        };
    }

    int loads = 0;
    forms::CommandButton button{*this, "button"};
    forms::Surface surface{*this, "Indic"};
    Indicator Indic{desktop(), surface};

  protected:
    void design() override {
        surface.setBounds({0, 0, 900, 300});
        Indic.setVisualEffect(1);
        Indic.setBackcolor(0xDDDDDD);
    }
    void Form_Load() override { ++loads; }
};

class IndicatorOnForm : public testing::Test {
  protected:
    forms::HeadlessDesktop desktop;
    std::shared_ptr<Window> window = std::make_shared<Window>(desktop);
    Indicator& indic = window->Indic;
};

TEST_F(IndicatorOnForm, HasTheSurfacesSizeAndWhatTheDesignGaveIt) {
    window->show();
    EXPECT_EQ(window->surface.canvas().width(), 60);
    EXPECT_EQ(window->surface.canvas().height(), 20);
    EXPECT_EQ(window->surface.canvas().pixel(0, 0), 0xDDDDDDU);
    indic.StartNow();
    EXPECT_EQ(window->surface.canvas().pixel(26, 2), 0xFF0000U);
    EXPECT_EQ(window->surface.canvas().pixel(26, 16), 0xFF0000U);
    EXPECT_EQ(window->surface.canvas().pixel(26, 17), 0xDDDDDDU);
}

TEST_F(IndicatorOnForm, FollowsTheSurfacesSize) {
    window->show();
    indic.setVisualEffect(0);
    window->surface.setBounds({0, 0, 450, 450});
    indic.StartNow();
    EXPECT_EQ(window->surface.canvas().pixel(10, 20), 0U) << "the large dot, at 22 - 2";
    EXPECT_EQ(window->surface.canvas().pixel(10, 19), 0xDDDDDDU);
    EXPECT_EQ(window->surface.canvas().pixel(25, 22), 0xFF0000U);
}

TEST_F(IndicatorOnForm, AnyUseLoadsTheForm) {
    EXPECT_FALSE(window->isLoaded());
    EXPECT_EQ(indic.VisualEffect(), 1);
    EXPECT_EQ(window->loads, 1);
    const auto other = std::make_shared<Window>(desktop);
    other->Indic.StartNow();
    EXPECT_EQ(other->loads, 1);
    const auto third = std::make_shared<Window>(desktop);
    third->Indic.stopNow();
    EXPECT_EQ(third->loads, 1);
}

TEST_F(IndicatorOnForm, TicksWhileTheFormIsLoaded) {
    window->show();
    indic.StartNow();
    desktop.passTime(120);
    EXPECT_EQ(window->surface.canvas().pixel(34, 2), 0xFF0000U);
    EXPECT_EQ(indic.RunTimeInterval(), 120);
}

TEST_F(IndicatorOnForm, EndsWithTheFormAndStartsAnewWithIt) {
    window->show();
    indic.setInterval(33);
    indic.RaiseTicK = true;
    indic.StartNow();
    window->unload();
    desktop.passTime(1000);
    EXPECT_FALSE(window->isLoaded()) << "a tick would have loaded it";
    EXPECT_EQ(window->loads, 1);
    EXPECT_EQ(indic.Interval(), 120);
    EXPECT_EQ(window->loads, 2);
    EXPECT_FALSE(indic.RaiseTicK);
    EXPECT_EQ(indic.VisualEffect(), 1);
    desktop.passTime(1000);
    EXPECT_EQ(indic.RunTimeInterval(), 0);
}

TEST_F(IndicatorOnForm, UnloadedInsideATicksYieldTheTickEnds) {
    window->show();
    int raised = 0;
    indic.RaiseTicK = true;
    indic.onTick = [&raised] { ++raised; };
    indic.StartNow();
    desktop.atYield([&] { desktop.close(*window); });
    desktop.passTime(1000);
    EXPECT_FALSE(window->isLoaded());
    EXPECT_EQ(raised, 0);
}

TEST_F(IndicatorOnForm, UnloadedInsideAStopItIsNotLoadedAgain) {
    window->show();
    desktop.atYield([&] { window->unload(); }, 1); // the first yield is the first frame's
    desktop.click(window->button);
    EXPECT_FALSE(window->isLoaded());
    EXPECT_EQ(window->loads, 1);
}

TEST_F(IndicatorOnForm, LoadedAnewInsideAStopTheNewOneIsLeftAlone) {
    window->show();
    indic.StartNow();
    desktop.atYield([&] {
        window->unload();
        window->show();
        indic.StartNow();
    });
    indic.stopNow();
    EXPECT_EQ(window->surface.canvas().pixel(26, 2), 0xFF0000U);
    desktop.passTime(120);
    EXPECT_EQ(indic.RunTimeInterval(), 120);
}

TEST_F(IndicatorOnForm, LoadedAnewInsideATicksYieldTheTickIsNotTheNewOnes) {
    window->show();
    indic.StartNow();
    desktop.atYield([&] {
        window->unload();
        window->show();
    });
    desktop.passTime(1000);
    EXPECT_EQ(window->loads, 2);
    EXPECT_EQ(indic.RunTimeInterval(), 0);
}

TEST_F(IndicatorOnForm, TheWindowMayBeDestroyedInsideATick) {
    const std::weak_ptr<Window> life = window;
    window->show();
    indic.StartNow();
    desktop.atYield([&] {
        window->unload();
        window.reset();
        EXPECT_FALSE(life.expired()) << "the tick keeps what it draws on";
    });
    desktop.passTime(1000);
    EXPECT_TRUE(life.expired());
}

TEST_F(IndicatorOnForm, TheWindowMayBeDestroyedInsideATicksEvent) {
    const std::weak_ptr<Window> life = window;
    window->show();
    indic.RaiseTicK = true;
    indic.onTick = [&] { window.reset(); };
    indic.StartNow();
    desktop.passTime(1000);
    EXPECT_TRUE(life.expired());
}

TEST_F(IndicatorOnForm, BehindAMessageBoxItGoesOn) {
    window->show();
    indic.StartNow();
    desktop.answerNextBox(forms::answer::ok, [&] { desktop.passTime(360); });
    desktop.msgBox("text", forms::box::okOnly);
    EXPECT_EQ(indic.RunTimeInterval(), 360);
}

} // namespace
} // namespace corvelle::ui
