#pragma once

#include "forms/canvas.h"

#include <windows.h>

namespace corvelle::forms {

/// Draws the canvas into the box, in the device's logical units; stretched where the box has another size.
void drawCanvas(HDC device, const Canvas& canvas, const RECT& box);

} // namespace corvelle::forms
