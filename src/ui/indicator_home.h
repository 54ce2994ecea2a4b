#pragma once

#include "forms/drawing.h"

#include <memory>

namespace corvelle::ui {

/// What an indicator needs of the place where it stands: a form, or the container of an OLE control. The home
/// calls Indicator::resized() whenever its canvas has another size.
class IndicatorHome {
  public:
    virtual ~IndicatorHome() = default;

    /// Called before the indicator is used from outside.
    virtual void use() {}
    /// The pixels of the whole control.
    virtual forms::Canvas& canvas() = 0;
    /// Shows what has been drawn on the canvas.
    virtual void refresh() = 0;
    /// Whoever holds this keeps the home and its indicator from being destroyed.
    virtual std::shared_ptr<void> keepAlive() = 0;
};

} // namespace corvelle::ui
