#pragma once

#include "forms/colour.h"
#include "forms/font.h"
#include "forms/win32/handles.h"
#include "forms/win32/scale.h"

#include <map>
#include <string>
#include <tuple>

namespace corvelle::forms {

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

} // namespace corvelle::forms
