#pragma once

#include "version.h"

#include <string>

namespace corvelle::forms {

/// What the package knows of itself.
struct Application {
    std::string title = "Corvelle";
    std::string productName = "Trellis";
    /// The help file that F1 and "&Help" show.
    std::string helpFile;
    int major = ADD_INS_VERSION_MAJOR;
    int minor = ADD_INS_VERSION_MINOR;
    int revision = ADD_INS_VERSION_REVISION;
};

} // namespace corvelle::forms
