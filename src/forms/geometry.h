#pragma once

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

} // namespace corvelle::forms
