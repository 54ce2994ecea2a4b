#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace corvelle::forms {

/// Place and size in twips (1,440 an inch, 15 a pixel at 96 DPI), relative to the container's client area.
struct Bounds {
    int left = 0, top = 0, width = 0, height = 0;

    bool operator==(const Bounds&) const = default;
};

/// Size in twips.
struct Size {
    int width = 0, height = 0;

    bool operator==(const Size&) const = default;
};

/// Red in bits 0-7, green in bits 8-15, blue in bits 16-23; with bit 31 set the low byte is a system colour.
using Colour = std::uint32_t;

namespace colours {
inline constexpr Colour black = 0x000000;
inline constexpr Colour white = 0xFFFFFF;
inline constexpr Colour windowBackground = 0x80000005;
inline constexpr Colour windowText = 0x80000008;
inline constexpr Colour buttonFace = 0x8000000F;
inline constexpr Colour buttonText = 0x80000012;
} // namespace colours

/// Whether it is the number of a system colour, which the desktop resolves.
constexpr bool isSystemColour(Colour colour) {
    return (colour & 0x80000000U) != 0;
}

/// A font; size in points.
struct Font {
    std::string name = "MS Shell Dlg";
    double size = 8;
    bool bold = false;

    bool operator==(const Font&) const = default;
};

/// A picture or icon of the package, by the name of its source (`pictures/NAME.svg`); empty: none. Windows
/// draw it at the size and resolution they need.
class Picture {
  public:
    Picture() = default;
    explicit Picture(std::string name) : name_(std::move(name)) {}

    const std::string& name() const { return name_; }
    bool empty() const { return name_.empty(); }
    bool operator==(const Picture&) const = default;

  private:
    std::string name_;
};

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
