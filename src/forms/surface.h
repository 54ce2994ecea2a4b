#pragma once

#include "forms/canvas.h"
#include "forms/control.h"

#include <utility>

namespace corvelle::forms {

/// A control to draw on, in pixels of the screen. It keeps what is drawn when it repaints itself.
class Surface : public Control {
  public:
    Surface(Form& form, std::string name, Control* container = nullptr)
        : Control(form, ControlKind::Surface, std::move(name), container) {}

    /// Raised when the canvas has another size, and once when the window is made, before Form_Load.
    std::function<void()> onResize;
    /// Raised when the surface loses its values: as the form loads, before design(), and when it has
    /// unloaded. The handler must not use a control.
    std::function<void()> onReset;

    Canvas& canvas() { return touch(), canvas_; }
    /// Shows what has been drawn.
    void refresh() { touch(), changed(Aspect::Drawing); }

    /// The window's inside has that many pixels.
    void userResized(int width, int height);

    void reset() override;

  private:
    Canvas canvas_;
    bool sized_ = false; // since the window was made
};

} // namespace corvelle::forms
