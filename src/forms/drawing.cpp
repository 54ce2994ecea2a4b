#include "forms/drawing.h"

#include <algorithm>

namespace corvelle::forms {

void Canvas::resize(int width, int height, Colour colour) {
    width = std::max(width, 0);
    height = std::max(height, 0);
    // First what may fail: the size must never promise more pixels than there are.
    pixels_.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), colour);
    width_ = width;
    height_ = height;
}

void Canvas::clear(Colour colour) {
    std::fill(pixels_.begin(), pixels_.end(), colour);
}

void Canvas::fillBox(int x1, int y1, int x2, int y2, Colour colour) {
    const int left = std::max(std::min(x1, x2), 0);
    const int right = std::min(std::max(x1, x2), width_);
    const int top = std::max(std::min(y1, y2), 0);
    const int bottom = std::min(std::max(y1, y2), height_);
    if (left >= right) return;
    for (int y = top; y < bottom; ++y) {
        const auto row = pixels_.begin() + static_cast<std::ptrdiff_t>(index(0, y));
        std::fill(row + left, row + right, colour);
    }
}

void Canvas::outlineBox(int x1, int y1, int x2, int y2, Colour outline, Colour fill) {
    fillBox(x1, y1, x2, y2, fill);
    frameBox(x1, y1, x2, y2, outline);
}

void Canvas::frameBox(int x1, int y1, int x2, int y2, Colour outline) {
    const int left = std::min(x1, x2), right = std::max(x1, x2);
    const int top = std::min(y1, y2), bottom = std::max(y1, y2);
    if (left == right || top == bottom) return;
    fillBox(left, top, right, top + 1, outline);
    fillBox(left, bottom - 1, right, bottom, outline);
    fillBox(left, top, left + 1, bottom, outline);
    fillBox(right - 1, top, right, bottom, outline);
}

void Canvas::put(const Canvas& picture, int x, int y) {
    const int left = std::max(x, 0), right = std::min(x + picture.width_, width_);
    const int top = std::max(y, 0), bottom = std::min(y + picture.height_, height_);
    if (left >= right) return;
    for (int row = top; row < bottom; ++row) {
        const auto from =
            picture.pixels_.begin() + static_cast<std::ptrdiff_t>(picture.index(left - x, row - y));
        std::copy(from, from + (right - left),
                  pixels_.begin() + static_cast<std::ptrdiff_t>(index(left, row)));
    }
}

} // namespace corvelle::forms
