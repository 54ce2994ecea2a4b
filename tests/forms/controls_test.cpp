#include "forms/controls.h"
#include "forms/recording_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::forms {
namespace {

class SurfaceTest : public testing::Test {
  protected:
    HeadlessDesktop desktop;
    std::shared_ptr<RecordingForm> form = std::make_shared<RecordingForm>(desktop);
    Surface& surface = form->surface;
};

TEST_F(SurfaceTest, HasItsBoundsInPixels) {
    EXPECT_EQ(surface.canvas().width(), 20);
    EXPECT_EQ(surface.canvas().height(), 10);
}

TEST_F(SurfaceTest, IsResizedOnceAsTheWindowIsMadeEvenWithoutASize) {
    form->inDesign = [&] { surface.setBounds({0, 0, 0, 0}); };
    form->load();
    EXPECT_EQ(form->count("surface Resize"), 1);
    EXPECT_EQ(surface.canvas().width(), 0);
}

TEST_F(SurfaceTest, IsResizedOnlyWhenItHasAnotherSize) {
    form->load();
    surface.canvas().clear(0x123456);
    surface.setBounds({600, 600, 300, 150});
    EXPECT_EQ(form->count("surface Resize"), 1);
    EXPECT_EQ(surface.canvas().pixel(3, 3), 0x123456U) << "moved, it keeps what is drawn";
    surface.setBounds({600, 600, 314, 150});
    EXPECT_EQ(form->count("surface Resize"), 1) << "less than a pixel more";
    surface.setBounds({600, 600, 315, 150});
    EXPECT_EQ(form->count("surface Resize"), 2);
    EXPECT_EQ(surface.canvas().width(), 21);
}

TEST_F(SurfaceTest, HasItsBackColourWhenNothingIsDrawn) {
    form->inDesign = [&] { surface.setBackColor(0x0000FF); };
    EXPECT_EQ(surface.canvas().pixel(0, 0), 0x0000FFU);
    surface.setBackColor(colours::buttonFace);
    surface.setBounds({0, 0, 600, 600});
    EXPECT_EQ(surface.canvas().pixel(0, 0), desktop.resolve(colours::buttonFace));
}

TEST_F(SurfaceTest, LosesItsCanvasWithTheWindow) {
    form->load();
    int width = -1;
    surface.onReset = [&] { width = 0; };
    form->unload();
    EXPECT_EQ(width, 0);
    form->inDesign = [&] { width = surface.canvas().width(); };
    form->load();
    EXPECT_EQ(width, 0);
    EXPECT_EQ(surface.canvas().width(), 20);
    EXPECT_EQ(form->count("surface Resize"), 2);
}

} // namespace
} // namespace corvelle::forms
