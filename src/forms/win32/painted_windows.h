#pragma once

#include "forms/win32/control_window.h"
#include "forms/win32/form_window.h"
#include "forms/win32/win32_desktop.h"

namespace corvelle::forms {

/// The window of a control that has no native counterpart and is drawn here, without a flash of background.
class PaintedWindow : public ControlWindow {
  protected:
    using ControlWindow::ControlWindow;

    /// Draws every pixel of the window.
    virtual void draw(HDC device) const = 0;

    Native native() const override { return {form_.desktop().plainClass(), 0, 0}; }
    bool isPartOfForm() const override { return true; }

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_ERASEBKGND) return 1;
        if (message != WM_PAINT || !form_.form()) return ControlWindow::handle(message, wParam, lParam);
        PAINTSTRUCT paint;
        draw(BeginPaint(window(), &paint));
        EndPaint(window(), &paint);
        return 0;
    }
};

} // namespace corvelle::forms
