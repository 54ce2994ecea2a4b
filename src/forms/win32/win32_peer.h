#pragma once

#include "forms/form_peer.h"
#include "forms/win32/form_window.h"

#include <memory>

namespace corvelle::forms {

/// A loaded form's hold on its window. The window may outlive it by the messages that are being served.
class Win32Peer : public FormPeer {
  public:
    Win32Peer(Win32Desktop& desktop, Form& form) : window_(std::make_shared<FormWindow>(desktop, form)) {
        try {
            window_->make();
        } catch (...) {
            window_->detach(); // what there is of it, before it is let go
            throw;
        }
    }
    ~Win32Peer() override { window_->detach(); }

    const std::shared_ptr<FormWindow>& formWindow() const { return window_; }

    void show() override { window_->show(); }
    void hide() override { window_->hide(); }
    void bringToFront() override { window_->bringToFront(); }
    void formChanged(FormAspect aspect) override { window_->formChanged(aspect); }
    void controlChanged(Control& control, Aspect aspect) override {
        window_->controlChanged(control, aspect);
    }
    void focus(Control& control) override { window_->focus(control); }
    void focusNone() override { window_->focusNone(); }
    void focusMoved() override { window_->focusMoved(); }
    bool isActive() override { return window_->isActive(); }

  private:
    std::shared_ptr<FormWindow> window_;
};

} // namespace corvelle::forms
