#include "forms/win32/painted_windows.h"

#include "forms/controls.h"
#include "forms/win32/control_windows.h"
#include "forms/win32/form_window.h"
#include "forms/win32/gdi.h"
#include "forms/win32/win32_desktop.h"

#include <algorithm>
#include <cstdlib>

namespace corvelle::forms {

namespace {

/// A static control that is drawn here. Its text may change once a module line: it goes to the screen a few
/// times a second.
class LabelWindow : public ControlWindow {
  public:
    LabelWindow(FormWindow& form, Label& label) : ControlWindow(form, label), label_(label) {}

    void update(Aspect aspect) override {
        if (aspect == Aspect::Text) {
            if (late_) return;
            late_ = true;
            return form_.textIsLate(*this);
        }
        if (aspect == Aspect::Bounds || aspect == Aspect::Colours) {
            SetWindowLongPtrA(window(), GWL_EXSTYLE, static_cast<LONG_PTR>(extendedStyle()));
            SetWindowPos(window(), nullptr, 0, 0, 0, 0,
                         SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
        }
        ControlWindow::update(aspect);
        repaintAll();
    }

    void writeLateText() override {
        setText(text());
        late_ = false;
    }

  protected:
    Native native() const override { return {"STATIC", SS_LEFT, extendedStyle()}; }

    std::string text() const override {
        const std::string& caption = label_.caption();
        if (caption.find('\r') == std::string::npos) return caption;
        std::string lines; // a lone carriage return breaks the line
        for (std::size_t i = 0; i < caption.size(); ++i) {
            lines += caption[i];
            const bool alone = caption[i] == '\r' && (i + 1 == caption.size() || caption[i + 1] != '\n');
            if (alone) lines += '\n';
        }
        return lines;
    }

    bool isPartOfForm() const override { return true; }

    // The static control draws here and there on its own: all of it is done here instead.
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (!form_.form()) return ControlWindow::handle(message, wParam, lParam);
        switch (message) {
        case WM_SETTEXT: {
            const LRESULT result = DefWindowProcA(window(), message, wParam, lParam);
            repaintAll();
            return result;
        }
        case WM_SETFONT:
        case WM_ENABLE:
            repaintAll();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT: {
            PAINTSTRUCT paint;
            draw(BeginPaint(window(), &paint));
            EndPaint(window(), &paint);
            if (label_.transparent()) repaintAbove();
            return 0;
        }
        default:
            return ControlWindow::handle(message, wParam, lParam);
        }
    }

  private:
    void draw(HDC device) const {
        RECT inside{};
        GetClientRect(window(), &inside);
        const HBRUSH back = colours(device);
        if (!label_.transparent()) FillRect(device, &inside, back);
        if (label_.standsOut()) {
            const Scale& scale = form_.desktop().scale();
            InflateRect(&inside, -scale.pixels(marginInside), -scale.pixels(marginInside / 2));
        }
        SetBkMode(device, TRANSPARENT);
        if (!label_.enabled()) SetTextColor(device, GetSysColor(COLOR_GRAYTEXT));
        const HGDIOBJ before = SelectObject(device, form_.desktop().gdi().font(label_.font()));
        const std::string lines = windowText();
        DrawTextA(device, lines.c_str(), static_cast<int>(lines.size()), &inside,
                  DT_WORDBREAK | DT_EXPANDTABS | (label_.useMnemonic() ? 0U : DT_NOPREFIX));
        SelectObject(device, before);
    }

    DWORD extendedStyle() const {
        return (label_.bordered() ? WS_EX_STATICEDGE : 0U) | (label_.transparent() ? WS_EX_TRANSPARENT : 0U);
    }

    // Below a transparent label everything is painted anew first.
    void repaintAll() const {
        if (!label_.transparent()) return repaint();
        RECT place{};
        GetWindowRect(window(), &place);
        const HWND parent = GetParent(window());
        MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
        RedrawWindow(parent, &place, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    }

    // Transparent labels that overlap are painted in any order: those above once more.
    void repaintAbove() const {
        for (HWND above = GetWindow(window(), GW_HWNDPREV); above; above = GetWindow(above, GW_HWNDPREV)) {
            if ((GetWindowLongPtrA(above, GWL_EXSTYLE) & WS_EX_TRANSPARENT) != 0)
                InvalidateRect(above, nullptr, FALSE);
        }
    }

    static constexpr int marginInside = 60; // twips between an edge and the text beside it

    Label& label_;
    bool late_ = false;
};

} // namespace

std::unique_ptr<ControlWindow> makeLabelWindow(FormWindow& form, Label& label) {
    return std::make_unique<LabelWindow>(form, label);
}

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

namespace {

/// Shows a canvas, pixel for pixel.
class SurfaceWindow : public PaintedWindow {
  public:
    SurfaceWindow(FormWindow& form, Surface& surface) : PaintedWindow(form, surface), surface_(surface) {}

    void update(Aspect aspect) override {
        if (aspect == Aspect::Drawing) {
            InvalidateRect(window(), nullptr, FALSE);
            UpdateWindow(window());
            return;
        }
        ControlWindow::update(aspect);
        if (aspect == Aspect::Bounds) sizeCanvas();
    }

    void start() override { sizeCanvas(); }

  protected:
    void draw(HDC device) const override {
        drawCanvas(device, surface_.canvas(), {0, 0, surface_.canvas().width(), surface_.canvas().height()});
    }

  private:
    void sizeCanvas() {
        const RECT at = place();
        surface_.userResized(static_cast<int>(at.right), static_cast<int>(at.bottom));
    }

    Surface& surface_;
};

} // namespace

std::unique_ptr<ControlWindow> makeSurfaceWindow(FormWindow& form, Surface& surface) {
    return std::make_unique<SurfaceWindow>(form, surface);
}

} // namespace corvelle::forms
