#include "forms/win32/gdi.h"
#include "forms/win32/screen_test.h"

#include <set>

namespace corvelle::forms::tests {

namespace {

/// Two large labels in one place, the first above the second.
class TwoLabels : public Form {
  public:
    explicit TwoLabels(Desktop& desktop) : Form(desktop, "TwoLabels") {}

    Label above{*this, "above"};
    Label below{*this, "below"};

  protected:
    void design() override {
        setSize({3000, 1500});
        for (Label* label : {&above, &below}) {
            label->setBounds({150, 150, 2700, 1200});
            label->setFont({"Courier New", 36, true});
            label->setCaption("MMM");
        }
        above.setForeColor(0x0000FF);
        below.setForeColor(0x00FF00);
    }
};

class Labels : public ScreenTest {
  protected:
    std::shared_ptr<TwoLabels> form = std::make_shared<TwoLabels>(desktop());

    /// The colours that the form's window shows.
    std::set<Colour> colours() {
        pumpUntil([] { return GetQueueStatus(QS_PAINT) == 0; });
        const HWND window = windowOf(*form);
        RECT inside{};
        GetClientRect(window, &inside);
        const HDC screen = GetDC(window);
        const HDC copy = CreateCompatibleDC(screen);
        BITMAPINFO format{};
        format.bmiHeader.biSize = sizeof format.bmiHeader;
        format.bmiHeader.biWidth = inside.right;
        format.bmiHeader.biHeight = inside.bottom;
        format.bmiHeader.biPlanes = 1;
        format.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        const BitmapHandle bitmap(CreateDIBSection(copy, &format, DIB_RGB_COLORS, &bits, nullptr, 0));
        const HGDIOBJ before = SelectObject(copy, bitmap.get());
        BitBlt(copy, 0, 0, static_cast<int>(inside.right), static_cast<int>(inside.bottom), screen, 0, 0,
               SRCCOPY);
        GdiFlush();
        std::set<Colour> found;
        const auto* pixel = static_cast<const std::uint32_t*>(bits);
        for (LONG i = 0; i < inside.right * inside.bottom; ++i, ++pixel) {
            found.insert((*pixel & 0xFFU) << 16 | (*pixel & 0xFF00U) | (*pixel >> 16 & 0xFFU));
        }
        SelectObject(copy, before);
        DeleteDC(copy);
        ReleaseDC(window, screen);
        return found;
    }
};

constexpr Colour red = 0x0000FF;
constexpr Colour green = 0x00FF00;

TEST_F(Labels, CoverWhatIsBelow) {
    form->below.setCaption("W");
    form->show();
    EXPECT_TRUE(colours().count(red));
    EXPECT_FALSE(colours().count(green));
}

TEST_F(Labels, ShowWhatIsBelowWhenTransparent) {
    form->below.setCaption("W W W");
    form->above.setTransparent(true);
    form->show();
    EXPECT_TRUE(colours().count(red));
    EXPECT_TRUE(colours().count(green));
}

TEST_F(Labels, AreInOrderWhenBothAreTransparent) {
    form->above.setTransparent(true);
    form->below.setTransparent(true);
    form->show();
    EXPECT_TRUE(colours().count(red));
    EXPECT_FALSE(colours().count(green)); // the same text, in the same place
}

TEST_F(Labels, LeaveNothingOfTheirOldText) {
    form->above.setTransparent(true);
    form->show();
    EXPECT_TRUE(colours().count(red));
    form->above.setCaption("");
    form->below.setCaption("");
    EXPECT_TRUE(pumpUntil([this] { return !colours().count(red) && !colours().count(green); }));
}

TEST_F(Labels, AreGreyWhenDisabled) {
    form->show();
    form->above.setEnabled(false);
    EXPECT_TRUE(pumpUntil([this] { return colours().count(GetSysColor(COLOR_GRAYTEXT)) != 0; }));
    EXPECT_FALSE(colours().count(red));
}

TEST_F(Labels, KeepTheirTextOffTheEdgesOfAGroundOfTheirOwn) {
    form->below.setVisible(false);
    form->above.setCaption("MMM MMM MMM MMM"); // more than a line
    form->show();
    const auto atTheEdge = [this] {
        pumpUntil([] { return GetQueueStatus(QS_PAINT) == 0; });
        const HDC screen = GetDC(windowOf(form->above));
        bool found = false;
        for (int y = 0; y < 80; ++y) {
            for (int x = 0; x < 4; ++x) found = found || GetPixel(screen, x, y) == red;
        }
        ReleaseDC(windowOf(form->above), screen);
        return found;
    };
    EXPECT_TRUE(atTheEdge());
    form->above.setBackColor(0x800080);
    EXPECT_FALSE(atTheEdge());
}

TEST_F(Labels, HaveALineAroundWhenBordered) {
    form->show();
    const Colour shadow = GetSysColor(COLOR_BTNSHADOW);
    EXPECT_FALSE(colours().count(shadow));
    form->above.setBordered(true);
    EXPECT_TRUE(pumpUntil([&] { return colours().count(shadow) != 0; }));
}

} // namespace

} // namespace corvelle::forms::tests
