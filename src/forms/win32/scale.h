#pragma once

#include <cmath>
#include <windows.h>

namespace corvelle::forms {

/// Twips (1,440 an inch) to pixels and back, rounded to the nearest.
class Scale {
  public:
    explicit Scale(int dpi) : dpi_(dpi) {}

    int dpi() const { return dpi_; }
    int pixels(int twips) const { return MulDiv(twips, dpi_, 1440); }
    int twips(int pixels) const { return MulDiv(pixels, 1440, dpi_); }
    /// Height in pixels of a font of so many points.
    int fontPixels(double points) const {
        return MulDiv(static_cast<int>(std::lround(points * 100)), dpi_, 7200);
    }

  private:
    int dpi_;
};

} // namespace corvelle::forms
