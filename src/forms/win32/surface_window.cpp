#include "forms/surface.h"
#include "forms/win32/control_windows.h"
#include "forms/win32/draw_canvas.h"
#include "forms/win32/form_window.h"
#include "forms/win32/win32_desktop.h"

namespace corvelle::forms {

namespace {

/// Shows a canvas, pixel for pixel.
class SurfaceWindow : public ControlWindow {
  public:
    SurfaceWindow(FormWindow& form, Surface& surface) : ControlWindow(form, surface), surface_(surface) {}

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
    Native native() const override { return {form_.desktop().plainClass(), 0, 0}; }
    bool isPartOfForm() const override { return true; }

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_ERASEBKGND) return 1;
        if (message != WM_PAINT || form_.form() == nullptr)
            return ControlWindow::handle(message, wParam, lParam);
        PAINTSTRUCT paint;
        const HDC device = BeginPaint(window(), &paint);
        drawCanvas(device, surface_.canvas(), {0, 0, surface_.canvas().width(), surface_.canvas().height()});
        EndPaint(window(), &paint);
        return 0;
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
