#pragma once

#include "forms/drawing.h"

#include <cstdint>
#include <string>
#include <vector>
#include <windows.h>

namespace corvelle::host {

/// A picture in memory with a device to draw on it; magenta at first.
class BitmapDevice {
  public:
    BitmapDevice(int width, int height) : width_(width), height_(height) {
        BITMAPINFO format{};
        format.bmiHeader.biSize = sizeof format.bmiHeader;
        format.bmiHeader.biWidth = width;
        format.bmiHeader.biHeight = -height;
        format.bmiHeader.biPlanes = 1;
        format.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        device_ = CreateCompatibleDC(nullptr);
        bitmap_ = CreateDIBSection(device_, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
        bits_ = static_cast<const std::uint32_t*>(bits);
        before_ = SelectObject(device_, bitmap_);
        const RECT all{0, 0, width, height};
        const HBRUSH brush = CreateSolidBrush(untouched);
        FillRect(device_, &all, brush);
        DeleteObject(brush);
    }
    ~BitmapDevice() {
        SelectObject(device_, before_);
        DeleteObject(bitmap_);
        DeleteDC(device_);
    }
    BitmapDevice(const BitmapDevice&) = delete;
    BitmapDevice& operator=(const BitmapDevice&) = delete;

    static constexpr forms::Colour untouched = 0xFF00FF;

    HDC device() const { return device_; }
    int width() const { return width_; }
    int height() const { return height_; }
    forms::Colour pixel(int x, int y) const {
        GdiFlush();
        const std::uint32_t bits = bits_[y * width_ + x];
        return (bits >> 16 & 0xFF) | (bits & 0xFF00) | (bits & 0xFF) << 16;
    }

  private:
    int width_, height_;
    HDC device_;
    HBITMAP bitmap_;
    HGDIOBJ before_;
    const std::uint32_t* bits_;
};

/// A picture as rows of letters: '.' background, 'd' small dot, 'o' and 'f' large dot's outline and inside,
/// '0' to '2' the bar's blocks from the left, '#' the shape, '|' the border line, 'x' untouched, '?' anything
/// else.
using Rows = std::vector<std::string>;

namespace colours {
constexpr forms::Colour back = 0xDDDDDD, dot = 0xCC0000, outline = 0x0000AA, inside = 0x00BB00,
                        shape = 0x00AA00;
constexpr forms::Colour scroll = 0x0A0064, middle = 0x503CA0, left = 0x9678DC;
} // namespace colours

inline Rows rows(const BitmapDevice& picture) {
    Rows rows;
    for (int y = 0; y < picture.height(); ++y) {
        rows.emplace_back();
        for (int x = 0; x < picture.width(); ++x) {
            switch (picture.pixel(x, y)) {
            case colours::back:
                rows.back() += '.';
                break;
            case colours::dot:
                rows.back() += 'd';
                break;
            case colours::outline:
                rows.back() += 'o';
                break;
            case colours::inside:
                rows.back() += 'f';
                break;
            case colours::left:
                rows.back() += '0';
                break;
            case colours::middle:
                rows.back() += '1';
                break;
            case colours::scroll:
                rows.back() += '2';
                break;
            case colours::shape:
                rows.back() += '#';
                break;
            case 0:
                rows.back() += '|';
                break;
            case BitmapDevice::untouched:
                rows.back() += 'x';
                break;
            default:
                rows.back() += '?';
                break;
            }
        }
    }
    return rows;
}

/// What the screen shows of the window's inside.
inline Rows screenOf(HWND window) {
    RECT inside{};
    GetClientRect(window, &inside);
    const BitmapDevice picture(static_cast<int>(inside.right), static_cast<int>(inside.bottom));
    const HDC device = GetDC(window);
    BitBlt(picture.device(), 0, 0, picture.width(), picture.height(), device, 0, 0, SRCCOPY);
    ReleaseDC(window, device);
    return rows(picture);
}

} // namespace corvelle::host
