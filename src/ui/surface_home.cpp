#include "ui/surface_home.h"

#include "forms/form.h"
#include "ui/indicator.h"

namespace corvelle::ui {

SurfaceHome::SurfaceHome(forms::Surface& surface, Indicator& indicator) : surface_(surface) {
    surface_.onResize = [&indicator] { indicator.resized(); };
    surface_.onReset = [&indicator] { indicator.initProperties(); };
}

SurfaceHome::~SurfaceHome() {
    surface_.onResize = nullptr;
    surface_.onReset = nullptr;
}

void SurfaceHome::use() {
    surface_.form().load();
}

std::shared_ptr<void> SurfaceHome::keepAlive() {
    return surface_.form().shared_from_this();
}

} // namespace corvelle::ui
