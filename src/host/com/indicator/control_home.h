#pragma once

#include "forms/drawing.h"
#include "ui/indicator_home.h"

#include <functional>
#include <memory>
#include <ole2.h>

namespace corvelle::host {

/// The home of an indicator in an OLE control.
class ControlHome : public ui::IndicatorHome {
  public:
    explicit ControlHome(IUnknown& control) : control_(control) {}

    /// The picture has changed.
    std::function<void()> onRefresh;

    forms::Canvas& canvas() override { return canvas_; }
    void refresh() override {
        if (onRefresh) onRefresh();
    }
    std::shared_ptr<void> keepAlive() override {
        control_.AddRef();
        return {&control_, [](IUnknown* control) { control->Release(); }};
    }

  private:
    IUnknown& control_;
    forms::Canvas canvas_;
};

} // namespace corvelle::host
