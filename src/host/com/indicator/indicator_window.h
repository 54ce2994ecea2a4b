#pragma once

#include "forms/win32/window_class.h"
#include "ui/indicator_home.h"

#include <functional>
#include <windows.h>

namespace corvelle::host {

/// The window of an indicator control that is active in its container. It shows the home's canvas.
class IndicatorWindow {
  public:
    /// Not visible before it is placed. Throws RunTimeError 7 if the system has no window for it.
    IndicatorWindow(HINSTANCE module, HWND parent, ui::IndicatorHome& home);
    ~IndicatorWindow();
    IndicatorWindow(const IndicatorWindow&) = delete;
    IndicatorWindow& operator=(const IndicatorWindow&) = delete;

    /// The user presses a mouse button; the focus comes (true) or goes. The window may be gone afterwards.
    std::function<void()> onPress;
    std::function<void(bool)> onFocus;

    /// Null once the container has destroyed it.
    HWND handle() const { return window_; }
    /// Moves it, in pixels of its parent, and shows it. What lies outside `clip` is not seen; null: all is.
    void place(const RECT& position, const RECT* clip);
    void hide();
    /// Puts the canvas on the screen at once.
    void redraw();

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void paint();

    ui::IndicatorHome& home_;
    forms::WindowClass class_;
    HWND window_ = nullptr;
};

} // namespace corvelle::host
