#include "forms/label.h"
#include "forms/win32/control_windows.h"
#include "forms/win32/form_window.h"

namespace corvelle::forms {

namespace {

/// A static control. Its text may change once a module line: it goes to the screen a few times a second.
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
            setStyle(SS_TYPEMASK, alignment());
            SetWindowLongPtrA(window(), GWL_EXSTYLE, static_cast<LONG_PTR>(extendedStyle()));
            SetWindowPos(window(), nullptr, 0, 0, 0, 0,
                         SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
        }
        ControlWindow::update(aspect);
        repaintAll();
    }

    void writeLateText() override {
        late_ = false;
        setText(text());
        if (label_.transparent()) repaintAll();
    }

    HBRUSH colours(HDC device) const override {
        const HBRUSH brush = ControlWindow::colours(device);
        if (!label_.transparent()) return brush;
        SetBkMode(device, TRANSPARENT);
        return static_cast<HBRUSH>(GetStockObject(NULL_BRUSH));
    }

  protected:
    Native native() const override { return {"STATIC", alignment(), extendedStyle()}; }

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

  private:
    DWORD alignment() const {
        switch (label_.alignment()) {
        case Alignment::Right:
            return SS_RIGHT;
        case Alignment::Centre:
            return SS_CENTER;
        case Alignment::Left:
            break;
        }
        return SS_LEFT;
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

    Label& label_;
    bool late_ = false;
};

} // namespace

std::unique_ptr<ControlWindow> makeLabelWindow(FormWindow& form, Label& label) {
    return std::make_unique<LabelWindow>(form, label);
}

} // namespace corvelle::forms
