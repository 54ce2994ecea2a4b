#include "forms/surface.h"
#include "forms/win32/control_windows.h"
#include "forms/win32/draw_canvas.h"
#include "forms/win32/painted_window.h"

namespace corvelle::forms {

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
