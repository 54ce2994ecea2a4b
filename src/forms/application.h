#pragma once

#include <string>

namespace corvelle::forms {

/// What the package knows of itself.
struct Application {
    std::string title = "Corvelle";
    std::string productName = "Trellis";
    /// The help file that F1 and "&Help" show.
    std::string helpFile;
    int major = 1;
    int minor = 0;
    int revision = 7;
};

} // namespace corvelle::forms
