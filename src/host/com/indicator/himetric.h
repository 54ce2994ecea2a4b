#pragma once

#include <windows.h>

namespace corvelle::host {

/// Pixels to hundredths of a millimetre and back, rounded to the nearest; dpi is pixels an inch. Pixels come
/// back as they were.
inline SIZEL toHimetric(int width, int height, int dpi) {
    return {MulDiv(width, 2540, dpi), MulDiv(height, 2540, dpi)};
}
inline SIZE toPixels(const SIZEL& size, int dpi) {
    return {MulDiv(static_cast<int>(size.cx), dpi, 2540), MulDiv(static_cast<int>(size.cy), dpi, 2540)};
}

} // namespace corvelle::host
