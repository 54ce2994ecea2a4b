#pragma once

#include "forms/controls.h"
#include "ui/indicator_home.h"

namespace corvelle::ui {

class Indicator;

/// The home of an indicator on a form.
class SurfaceHome : public IndicatorHome {
  public:
    /// Takes the surface's events for as long as it lives.
    SurfaceHome(forms::Surface& surface, Indicator& indicator);
    ~SurfaceHome() override;
    SurfaceHome(const SurfaceHome&) = delete;
    SurfaceHome& operator=(const SurfaceHome&) = delete;

    void use() override;
    forms::Canvas& canvas() override { return surface_.canvas(); }
    void refresh() override { surface_.refresh(); }
    std::shared_ptr<void> keepAlive() override;

  private:
    forms::Surface& surface_;
};

} // namespace corvelle::ui
