#pragma once

#include "forms/headless/headless_desktop.h"

namespace corvelle::forms {

/// A window that exists only on the headless desktop's list.
class HeadlessPeer : public FormPeer {
  public:
    HeadlessPeer(HeadlessDesktop& desktop, Form& form) : desktop_(desktop), form_(form) {}
    ~HeadlessPeer() override;

    void show() override { desktop_.raise(form_); }
    void hide() override { desktop_.remove(form_); }
    void bringToFront() override { desktop_.raise(form_); }
    void formChanged(FormAspect) override {}
    void controlChanged(Control& control, Aspect aspect) override;
    void focus(Control& control) override;
    Control* focused() override { return focused_; }

    /// Gives a form's surfaces their size in pixels, at 96 DPI.
    static void sizeSurface(Control& control);

  private:
    HeadlessDesktop& desktop_;
    Form& form_;
    Control* focused_ = nullptr;
};

} // namespace corvelle::forms
