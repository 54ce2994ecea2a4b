#pragma once

#include "forms/drawing.h"
#include "forms/win32/scale.h"

#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <type_traits>
#include <windows.h>

namespace corvelle::forms {

// Objects of the graphics system that are deleted at the end of their handle's life.

struct DeleteGdiObject {
    void operator()(void* object) const { DeleteObject(object); }
};
struct DestroyIconHandle {
    void operator()(HICON icon) const { DestroyIcon(icon); }
};

using FontHandle = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteGdiObject>;
using BrushHandle = std::unique_ptr<std::remove_pointer_t<HBRUSH>, DeleteGdiObject>;
using BitmapHandle = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteGdiObject>;
using IconHandle = std::unique_ptr<std::remove_pointer_t<HICON>, DestroyIconHandle>;

/// The fonts, brushes and pictures that the windows share; they live as long as the cache.
class GdiCache {
  public:
    /// Pictures are resources of the module.
    GdiCache(HINSTANCE module, Scale scale) : module_(module), scale_(scale) {}

    HFONT font(const Font& font);
    /// A brush of a red-green-blue colour.
    HBRUSH brush(Colour colour);
    /// The picture as an icon of that many pixels; null if it is none or is not there.
    HICON icon(const std::string& picture, int size);
    /// The picture as a bitmap made for this resolution or the next finer one; null if it is none or is not
    /// there.
    HBITMAP bitmap(const std::string& picture);

  private:
    HINSTANCE module_;
    Scale scale_;
    std::map<std::tuple<std::string, int, bool>, FontHandle> fonts_;
    std::map<Colour, BrushHandle> brushes_;
    std::map<std::pair<std::string, int>, IconHandle> icons_;
    std::map<std::string, BitmapHandle> bitmaps_;
};

/// Draws the canvas into the box, in the device's logical units; stretched where the box has another size.
void drawCanvas(HDC device, const Canvas& canvas, const RECT& box);

} // namespace corvelle::forms
