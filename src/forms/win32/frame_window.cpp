#include "forms/frame.h"
#include "forms/win32/control_windows.h"
#include "forms/win32/form_window.h"
#include "forms/win32/win32_desktop.h"

namespace corvelle::forms {

namespace {

/// A group box that is its controls' parent, so that hiding or disabling it takes them along.
class FrameWindow : public ControlWindow {
  public:
    FrameWindow(FormWindow& form, Frame& frame) : ControlWindow(form, frame), frame_(frame) {}

  protected:
    Native native() const override { return {"BUTTON", BS_GROUPBOX | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT}; }
    std::string text() const override { return frame_.caption(); }
    bool isPartOfForm() const override { return true; }

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) override {
        LRESULT result = 0;
        if (form_.form() != nullptr && form_.reflect(message, wParam, lParam, result)) return result;
        if (message == WM_ERASEBKGND && form_.form() != nullptr) {
            RECT inside{};
            GetClientRect(window(), &inside);
            const auto device = reinterpret_cast<HDC>(wParam);
            FillRect(device, &inside, colours(device));
            return 1;
        }
        return ControlWindow::handle(message, wParam, lParam);
    }

  private:
    Frame& frame_;
};

} // namespace

std::unique_ptr<ControlWindow> makeFrameWindow(FormWindow& form, Frame& frame) {
    return std::make_unique<FrameWindow>(form, frame);
}

} // namespace corvelle::forms
