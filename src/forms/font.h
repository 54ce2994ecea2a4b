#pragma once

#include <string>

namespace corvelle::forms {

/// A font; size in points.
struct Font {
    std::string name = "MS Shell Dlg";
    double size = 8;
    bool bold = false;

    bool operator==(const Font&) const = default;
};

} // namespace corvelle::forms
