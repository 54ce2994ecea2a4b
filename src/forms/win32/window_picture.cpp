#include "forms/win32/window_picture.h"

#include "base/run_time_error.h"
#include "forms/form.h"
#include "forms/win32/gdi.h"
#include "forms/win32/win32_peer.h"

#include <fstream>
#include <vector>

namespace corvelle::forms {

void saveWindowPicture(Form& form, const std::string& path) {
    const HWND window = static_cast<Win32Peer*>(form.peer())->formWindow()->window();
    RECT outside{};
    GetWindowRect(window, &outside);
    const int width = static_cast<int>(outside.right - outside.left);
    const int height = static_cast<int>(outside.bottom - outside.top);

    const HDC screen = GetWindowDC(window);
    const HDC copy = CreateCompatibleDC(screen);
    const BitmapHandle bitmap(CreateCompatibleBitmap(screen, width, height));
    const HGDIOBJ before = SelectObject(copy, bitmap.get());
    BitBlt(copy, 0, 0, width, height, screen, 0, 0, SRCCOPY);
    SelectObject(copy, before);

    BITMAPINFOHEADER format{};
    format.biSize = sizeof format;
    format.biWidth = width;
    format.biHeight = height;
    format.biPlanes = 1;
    format.biBitCount = 24;
    const std::size_t row = (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
    std::vector<char> pixels(row * static_cast<std::size_t>(height));
    GetDIBits(copy, bitmap.get(), 0, static_cast<UINT>(height), pixels.data(),
              reinterpret_cast<BITMAPINFO*>(&format), DIB_RGB_COLORS);
    DeleteDC(copy);
    ReleaseDC(window, screen);

    BITMAPFILEHEADER header{};
    header.bfType = 0x4D42; // "BM"
    header.bfOffBits = sizeof header + sizeof format;
    header.bfSize = static_cast<DWORD>(header.bfOffBits + pixels.size());
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(&header), sizeof header);
    file.write(reinterpret_cast<const char*>(&format), sizeof format);
    file.write(pixels.data(), static_cast<std::streamsize>(pixels.size()));
    file.flush();
    if (!file) throw base::RunTimeError(base::ErrorNumber::PathFileAccessError);
}

} // namespace corvelle::forms
