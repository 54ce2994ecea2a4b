#include "forms/list_controls.h"
#include "forms/win32/control_windows.h"

#include <commctrl.h>

namespace corvelle::forms {

namespace {

class SliderWindow : public ControlWindow {
  public:
    SliderWindow(FormWindow& form, Slider& slider) : ControlWindow(form, slider), slider_(slider) {}

    void update(Aspect aspect) override {
        switch (aspect) {
        case Aspect::Items:
            send(TBM_SETRANGEMIN, FALSE, slider_.range().min);
            send(TBM_SETRANGEMAX, TRUE, slider_.range().max);
            send(TBM_SETLINESIZE, 0, slider_.range().smallChange);
            send(TBM_SETPAGESIZE, 0, slider_.range().largeChange);
            break;
        case Aspect::Value:
            send(TBM_SETPOS, TRUE, slider_.value());
            break;
        default:
            ControlWindow::update(aspect);
        }
    }

    void scrolled(int code) override {
        const int value = static_cast<int>(send(TBM_GETPOS));
        if (code == TB_THUMBTRACK) {
            slider_.userDragged(value);
        } else {
            slider_.setValue(value);
        }
    }

  protected:
    Native native() const override { return {TRACKBAR_CLASSA, TBS_HORZ | TBS_BOTTOM | TBS_AUTOTICKS, 0}; }

    void created() override {
        update(Aspect::Items);
        update(Aspect::Value);
    }

  private:
    Slider& slider_;
};

} // namespace

std::unique_ptr<ControlWindow> makeSliderWindow(FormWindow& form, Slider& slider) {
    return std::make_unique<SliderWindow>(form, slider);
}

namespace {

class TabStripWindow : public ControlWindow {
  public:
    TabStripWindow(FormWindow& form, TabStrip& tabs) : ControlWindow(form, tabs), tabs_(tabs) {}

    // Its area belongs to the form: whatever stands there is in front of it.
    void start() override {
        SetWindowPos(window(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }

    void update(Aspect aspect) override {
        switch (aspect) {
        case Aspect::Items:
            send(TCM_DELETEALLITEMS);
            for (std::size_t i = 0; i < tabs_.tabs().size(); ++i) {
                std::string caption = tabs_.tabs()[i];
                TCITEMA item{};
                item.mask = TCIF_TEXT;
                item.pszText = caption.data();
                send(TCM_INSERTITEMA, i, reinterpret_cast<LPARAM>(&item));
            }
            update(Aspect::Value);
            break;
        case Aspect::Value:
            send(TCM_SETCURSEL, static_cast<WPARAM>(tabs_.selected() - 1));
            break;
        default:
            ControlWindow::update(aspect);
        }
    }

    void notified(const NMHDR& header) override {
        if (header.code == TCN_SELCHANGE) tabs_.select(static_cast<int>(send(TCM_GETCURSEL)) + 1);
    }

  protected:
    Native native() const override { return {WC_TABCONTROLA, 0, 0}; }

    void created() override { update(Aspect::Items); }

  private:
    TabStrip& tabs_;
};

} // namespace

std::unique_ptr<ControlWindow> makeTabStripWindow(FormWindow& form, TabStrip& tabs) {
    return std::make_unique<TabStripWindow>(form, tabs);
}

} // namespace corvelle::forms
