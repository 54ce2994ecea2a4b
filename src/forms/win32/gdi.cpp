#include "forms/win32/gdi.h"

#include "base/text.h"

namespace corvelle::forms {

namespace {

// Resources go by the picture's name, "icon101" and its like by their number.
std::string resourceName(const std::string& picture) {
    constexpr std::size_t prefix = 4;
    if (picture.compare(0, prefix, "icon") == 0 && picture.size() > prefix &&
        picture.find_first_not_of("0123456789", prefix) == std::string::npos) {
        std::string number = picture.substr(prefix - 1);
        number.front() = '#';
        return number;
    }
    return base::upper(picture);
}

} // namespace

HFONT GdiCache::font(const Font& font) {
    const int height = scale_.fontPixels(font.size);
    auto& made = fonts_[{font.name, height, font.bold}];
    if (!made) {
        LOGFONTA wanted{};
        wanted.lfHeight = -height;
        wanted.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
        wanted.lfCharSet = DEFAULT_CHARSET;
        font.name.copy(wanted.lfFaceName, LF_FACESIZE - 1);
        made.reset(CreateFontIndirectA(&wanted));
    }
    return made.get();
}

HBRUSH GdiCache::brush(Colour colour) {
    auto& made = brushes_[colour];
    if (!made) made.reset(CreateSolidBrush(colour));
    return made.get();
}

HICON GdiCache::icon(const std::string& picture, int size) {
    auto& made = icons_[{picture, size}];
    if (!made) {
        made.reset(static_cast<HICON>(
            LoadImageA(module_, resourceName(picture).c_str(), IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
    }
    return made.get();
}

HBITMAP GdiCache::bitmap(const std::string& picture) {
    auto& made = bitmaps_[picture];
    if (!made) {
        std::string name = resourceName(picture);
        if (scale_.dpi() > 120) {
            name += "_144";
        } else if (scale_.dpi() > 96) {
            name += "_120";
        }
        made.reset(
            static_cast<HBITMAP>(LoadImageA(module_, name.c_str(), IMAGE_BITMAP, 0, 0, LR_DEFAULTCOLOR)));
    }
    return made.get();
}

void drawCanvas(HDC device, const Canvas& canvas, const RECT& box) {
    if (canvas.width() == 0 || canvas.height() == 0) return;
    struct {
        BITMAPINFOHEADER header;
        DWORD red, green, blue;
    } format{};
    format.header.biSize = sizeof format.header;
    format.header.biWidth = canvas.width();
    format.header.biHeight = -canvas.height(); // rows from the top
    format.header.biPlanes = 1;
    format.header.biBitCount = 32;
    format.header.biCompression = BI_BITFIELDS;
    // A metafile may keep no more than this says.
    format.header.biSizeImage = static_cast<DWORD>(canvas.pixels().size() * sizeof canvas.pixels()[0]);
    format.red = 0x0000FF;
    format.green = 0x00FF00;
    format.blue = 0xFF0000;
    const int before = SetStretchBltMode(device, COLORONCOLOR);
    StretchDIBits(device, static_cast<int>(box.left), static_cast<int>(box.top),
                  static_cast<int>(box.right - box.left), static_cast<int>(box.bottom - box.top), 0, 0,
                  canvas.width(), canvas.height(), canvas.pixels().data(),
                  reinterpret_cast<const BITMAPINFO*>(&format), DIB_RGB_COLORS, SRCCOPY);
    if (before != 0) SetStretchBltMode(device, before);
}

} // namespace corvelle::forms
