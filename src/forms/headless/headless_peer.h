#pragma once

#include "forms/headless/headless_desktop.h"

#include <memory>

namespace corvelle::forms {

/// A window that exists only on the headless desktop's list.
class HeadlessPeer : public FormPeer {
  public:
    HeadlessPeer(HeadlessDesktop& desktop, Form& form);
    ~HeadlessPeer() override;

    void show() override;
    void hide() override { desktop_.remove(form_); }
    void bringToFront() override { desktop_.raise(form_); }
    void formChanged(FormAspect aspect) override;
    void controlChanged(Control& control, Aspect aspect) override;
    bool isActive() override { return desktop_.active() == &form_; }
    void focus(Control& control) override { form_.keyboard().arrived(control); }

    /// Gives a form's surfaces their size in pixels, at 96 DPI.
    static void sizeSurface(Control& control);

  private:
    HeadlessDesktop& desktop_;
    Form& form_;
    bool shown_ = false;
    // Lets a function that calls handlers see whether the window is still there.
    std::shared_ptr<const bool> life_ = std::make_shared<const bool>(true);
};

} // namespace corvelle::forms
