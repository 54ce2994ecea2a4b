#include "forms/image.h"
#include "forms/win32/control_windows.h"
#include "forms/win32/painted_window.h"

#include <algorithm>
#include <cstdlib>

namespace corvelle::forms {

namespace {

/// Draws a picture into its bounds, in the picture's own proportions.
class ImageWindow : public PaintedWindow {
  public:
    ImageWindow(FormWindow& form, Image& image) : PaintedWindow(form, image), image_(image) {}

    void update(Aspect aspect) override {
        if (aspect == Aspect::Picture) return repaint();
        ControlWindow::update(aspect);
        if (aspect == Aspect::Bounds) repaint();
    }

  protected:
    void draw(HDC device) const override {
        RECT inside{};
        GetClientRect(window(), &inside);
        const HBRUSH back = colours(device);
        GdiCache& gdi = form_.desktop().gdi();
        const std::string& picture = image_.picture().name();
        const int size = static_cast<int>(std::min(inside.right, inside.bottom));
        if (picture.empty() || size <= 0) {
            FillRect(device, &inside, back);
        } else if (const HBITMAP bitmap = gdi.bitmap(picture)) {
            drawBitmap(device, inside, back, bitmap);
        } else {
            FillRect(device, &inside, back);
            if (const HICON icon = gdi.icon(picture, size)) {
                DrawIconEx(device, (inside.right - size) / 2, (inside.bottom - size) / 2, icon, size, size, 0,
                           nullptr, DI_NORMAL);
            }
        }
    }

  private:
    static void drawBitmap(HDC device, const RECT& inside, HBRUSH back, HBITMAP bitmap) {
        BITMAP own{};
        GetObjectA(bitmap, sizeof own, &own);
        if (own.bmWidth <= 0 || own.bmHeight <= 0) return;
        int width = static_cast<int>(inside.right);
        int height = MulDiv(width, own.bmHeight, own.bmWidth);
        if (height > inside.bottom) {
            height = static_cast<int>(inside.bottom);
            width = MulDiv(height, own.bmWidth, own.bmHeight);
        }
        // A pixel lost to rounding is no reason to blur the picture.
        if (std::abs(width - own.bmWidth) <= 1 && std::abs(height - own.bmHeight) <= 1) {
            width = own.bmWidth;
            height = own.bmHeight;
        }
        const int left = (static_cast<int>(inside.right) - width) / 2;
        const int top = (static_cast<int>(inside.bottom) - height) / 2;
        const HDC source = CreateCompatibleDC(device);
        const HGDIOBJ before = SelectObject(source, bitmap);
        SetStretchBltMode(device, HALFTONE);
        SetBrushOrgEx(device, 0, 0, nullptr);
        StretchBlt(device, left, top, width, height, source, 0, 0, own.bmWidth, own.bmHeight, SRCCOPY);
        SelectObject(source, before);
        DeleteDC(source);
        ExcludeClipRect(device, left, top, left + width, top + height);
        FillRect(device, &inside, back);
    }

    Image& image_;
};

} // namespace

std::unique_ptr<ControlWindow> makeImageWindow(FormWindow& form, Image& image) {
    return std::make_unique<ImageWindow>(form, image);
}

} // namespace corvelle::forms
