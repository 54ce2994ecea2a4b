#include "forms/label.h"
#include "forms/win32/control_windows.h"
#include "forms/win32/form_window.h"
#include "forms/win32/win32_desktop.h"

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
        if (form_.form() == nullptr) return ControlWindow::handle(message, wParam, lParam);
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
        for (HWND above = GetWindow(window(), GW_HWNDPREV); above != nullptr;
             above = GetWindow(above, GW_HWNDPREV)) {
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

} // namespace corvelle::forms
