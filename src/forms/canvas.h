#pragma once

#include "forms/colour.h"

#include <cstddef>
#include <vector>

namespace corvelle::forms {

/// Pixels to draw on. Colours are plain red-green-blue ones (0xBBGGRR); whoever draws resolves system
/// colours.
class Canvas {
  public:
    int width() const { return width_; }
    int height() const { return height_; }
    /// Gives it another size; everything has the colour afterwards.
    void resize(int width, int height, Colour colour);
    void clear(Colour colour);

    /// Fills the box with corners (x1, y1) and (x2, y2). The far edge, x2 and y2, does not belong to it. What
    /// lies outside the canvas is left out.
    void fillBox(int x1, int y1, int x2, int y2, Colour colour);
    /// The same box filled with one colour and outlined, inside its edge, with another.
    void outlineBox(int x1, int y1, int x2, int y2, Colour outline, Colour fill);
    /// The outline alone.
    void frameBox(int x1, int y1, int x2, int y2, Colour outline);
    /// Copies the picture with its left upper corner to (x, y).
    void put(const Canvas& picture, int x, int y);

    /// 0 <= x < width(), 0 <= y < height().
    Colour pixel(int x, int y) const { return pixels_[index(x, y)]; }
    /// Row by row from the top, each pixel 0x00BBGGRR.
    const std::vector<Colour>& pixels() const { return pixels_; }

  private:
    std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
    }

    int width_ = 0, height_ = 0;
    std::vector<Colour> pixels_;
};

} // namespace corvelle::forms
