#include "forms/win32/screen_test.h"

#include <cstdlib>

namespace corvelle::forms::tests {

namespace {

class Pictures : public ScreenTest {
  protected:
    /// The colour at a place of the control, in pixels, after it has been painted anew.
    Colour colourAt(Control& control, int x, int y) {
        const HWND window = windowOf(control);
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
        const HDC screen = GetDC(window);
        const Colour colour = GetPixel(screen, x, y);
        ReleaseDC(window, screen);
        return colour;
    }

    static bool isAbout(Colour a, Colour b) {
        for (int shift = 0; shift < 24; shift += 8) {
            const int one = static_cast<int>((a >> shift) & 0xFFU);
            const int other = static_cast<int>((b >> shift) & 0xFFU);
            if (std::abs(one - other) > 12) return false;
        }
        return true;
    }
};

TEST_F(Pictures, AnIconIsDrawnIntoItsImage) {
    const auto form = shownForm(); // the image has 32 by 32 pixels
    const Colour back = desktop().resolve(colours::buttonFace);
    EXPECT_EQ(back, colourAt(form->imgPicture, 16, 6));
    form->imgPicture.setPicture(Picture("result1"));
    EXPECT_TRUE(isAbout(0x2828C6, colourAt(form->imgPicture, 16, 6))); // a red disk
    EXPECT_TRUE(isAbout(0xFFFFFF, colourAt(form->imgPicture, 16, 16)));
    EXPECT_EQ(back, colourAt(form->imgPicture, 0, 0));
    form->imgPicture.setPicture(Picture("result2"));
    EXPECT_TRUE(isAbout(0x327D2E, colourAt(form->imgPicture, 16, 6)));
    form->imgPicture.setPicture(Picture());
    EXPECT_EQ(back, colourAt(form->imgPicture, 16, 6));
}

TEST_F(Pictures, APictureKeepsItsProportions) {
    const auto form = shownForm();
    form->imgPicture.setBounds({3720, 1560, 1800, 960}); // 120 by 64 pixels
    form->imgPicture.setPicture(Picture("page"));        // 120 by 236
    const Colour back = desktop().resolve(colours::buttonFace);
    EXPECT_EQ(back, colourAt(form->imgPicture, 10, 32));
    EXPECT_EQ(back, colourAt(form->imgPicture, 110, 32));
    EXPECT_NE(back, colourAt(form->imgPicture, 60, 1));
}

class PicturesAt : public Pictures, public testing::WithParamInterface<int> {};

TEST_P(PicturesAt, ThereIsOneMadeForTheResolution) {
    const int dpi = GetParam();
    for (const char* name : {"page", "usage"}) {
        GdiCache cache(module(), Scale(dpi));
        BITMAP bitmap{};
        ASSERT_NE(0, GetObjectA(cache.bitmap(name), sizeof bitmap, &bitmap)) << name;
        EXPECT_EQ((name == std::string("page") ? 120 : 624) * dpi / 96, bitmap.bmWidth);
        EXPECT_EQ((name == std::string("page") ? 236 : 64) * dpi / 96, bitmap.bmHeight);
    }
}

INSTANTIATE_TEST_SUITE_P(Dpi, PicturesAt, testing::Values(96, 120, 144));

TEST_F(Pictures, EveryIconIsThere) {
    GdiCache cache(module(), Scale(96));
    for (const char* name : {"formatter", "icon101", "icon102", "result0", "result1", "result2", "result3"}) {
        EXPECT_NE(nullptr, cache.icon(name, 16)) << name;
        EXPECT_EQ(nullptr, cache.bitmap(name)) << name;
    }
    EXPECT_NE(nullptr, LoadIconA(module(), MAKEINTRESOURCEA(101)));
    EXPECT_NE(nullptr, LoadIconA(module(), MAKEINTRESOURCEA(102)));
    EXPECT_EQ(nullptr, cache.icon("icon", 16));
    EXPECT_EQ(nullptr, cache.icon("nothing", 16));
}

TEST_F(Pictures, AFormHasItsIcon) {
    const auto form = shownForm();
    const HWND window = windowOf(*form);
    EXPECT_EQ(0, SendMessageA(window, WM_GETICON, ICON_SMALL, 0));
    form->setIcon(Picture("formatter"));
    EXPECT_NE(0, SendMessageA(window, WM_GETICON, ICON_SMALL, 0));
    EXPECT_NE(0, SendMessageA(window, WM_GETICON, ICON_BIG, 0));
    form->setIcon(Picture());
    EXPECT_EQ(0, SendMessageA(window, WM_GETICON, ICON_SMALL, 0));
}

} // namespace

} // namespace corvelle::forms::tests
