#include "forms/slider.h"
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

} // namespace corvelle::forms
