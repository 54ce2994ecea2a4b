#pragma once

#include "base/run_time_error.h"
#include "forms/form.h"
#include "forms/headless/headless_desktop.h"

#include <memory>
#include <string>

namespace corvelle::host::test {

/// A window system that lacks something.
class PoorDesktop : public forms::HeadlessDesktop {
  public:
    std::string impossible;         ///< the class of windows that it cannot make
    bool settingsAreClosed = false; ///< nothing can be saved

    std::unique_ptr<forms::FormPeer> makePeer(forms::Form& form) override {
        if (form.name() == impossible) throw base::RunTimeError(base::ErrorNumber::OutOfMemory);
        return HeadlessDesktop::makePeer(form);
    }
    forms::Settings& settings() override {
        if (settingsAreClosed) throw base::RunTimeError(base::ErrorNumber::PermissionDenied);
        return HeadlessDesktop::settings();
    }
};

} // namespace corvelle::host::test
