#include "forms/win32/draw_canvas.h"

namespace corvelle::forms {

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
