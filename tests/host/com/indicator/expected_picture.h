#pragma once

#include "bitmap_device.h"
#include "com/ptr.h"

#include <corvelle.h>

namespace corvelle::host {

/// Gives the control the colours that the letters of a picture stand for. It ticks but once a minute.
void paintWith(_Indicator& indicator, LONG effect, LONG borderStyle);

/// What the control looks like in its first frame, worked out box by box.
Rows firstFrame(int width, int height, LONG effect, LONG borderStyle);
/// The same while it is stopped.
Rows stopped(int width, int height, LONG borderStyle);

} // namespace corvelle::host
