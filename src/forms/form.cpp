#include "forms/form.h"

#include "base/run_time_error.h"
#include "base/scope_exit.h"
#include "forms/desktop.h"

#include <exception>
#include <new>
#include <utility>

namespace corvelle::forms {

Form::Form(Desktop& desktop, std::string name) : desktop_(desktop), name_(std::move(name)) {}

Form::~Form() = default;

void Form::load() {
    if (state_ != State::NotLoaded) return;
    const auto alive = shared_from_this();
    makeWindow();
    if (state_ == State::Loaded) run([this] { Form_Load(); });
}

void Form::makeWindow() {
    const base::ScopeExit made([this] { // a form without a window is not loaded
        if (!peer_) state_ = State::NotLoaded;
    });
    state_ = State::Designing;
    window_ = Window();
    resetControls();
    design();
    state_ = State::Loaded;
    auto peer = desktop_.makePeer(*this);
    if (state_ == State::Loaded) peer_ = std::move(peer); // a surface's resize may have unloaded the form
}

void Form::show() {
    const auto alive = shared_from_this();
    load();
    if (!peer_ || state_ == State::Closing) return;
    if (window_.visible) return peer_->bringToFront();
    window_.visible = true;
    peer_->show();
}

void Form::showModal() {
    const auto alive = shared_from_this();
    load();
    if (peer_ && state_ != State::Closing) desktop_.runModal(*this);
}

void Form::hide() {
    const auto alive = shared_from_this();
    load();
    if (!peer_ || !window_.visible) return;
    window_.visible = false;
    peer_->hide();
}

bool Form::unload(UnloadMode mode) {
    if (state_ != State::Loaded) return true;
    const auto alive = shared_from_this();
    const base::ScopeExit asked([this] {
        if (isLoaded()) state_ = State::Loaded;
    });
    if (!agreesToUnload(mode)) return false;
    close();
    return true;
}

bool Form::agreesToUnload(UnloadMode mode) {
    state_ = State::Unloading;
    bool cancel = false;
    const bool ran = run([&] {
        Form_QueryUnload(cancel, mode);
        if (!cancel) Form_Unload(cancel);
    });
    return ran && !cancel;
}

void Form::close() {
    state_ = State::Closing;
    if (window_.visible) {
        window_.visible = false;
        // Another form may become the active one here; when the window goes there is nothing left to happen.
        if (peer_) peer_->hide();
    }
    peer_.reset();
    keyboard_.forget();
    resetControls();
    window_ = Window();
    state_ = State::NotLoaded;
}

void Form::setCaption(const std::string& caption) {
    load();
    if (window_.caption == caption) return;
    window_.caption = caption;
    if (peer_) peer_->formChanged(FormAspect::Caption);
}

void Form::setIcon(const Picture& icon) {
    load();
    window_.icon = icon;
    if (peer_) peer_->formChanged(FormAspect::Icon);
}

void Form::setMousePointer(MousePointer pointer) {
    load();
    window_.mousePointer = pointer;
    if (peer_) peer_->formChanged(FormAspect::MousePointer);
}

void Form::setSize(Size size) {
    load();
    if (window_.size == size) return;
    window_.size = size;
    if (peer_) peer_->formChanged(FormAspect::Size);
}

void Form::setEnabled(bool enabled) {
    if (!isLoaded() || window_.enabled == enabled) return;
    window_.enabled = enabled;
    if (peer_) peer_->formChanged(FormAspect::Enabled);
}

Control* Form::activeControl() {
    load();
    return peer_ ? keyboard_.focused() : nullptr;
}

bool Form::run(const std::function<void()>& handler) {
    const auto alive = shared_from_this();
    try {
        const InHandler inside(desktop_);
        // The handler may unload the form and so let go of what it was copied from.
        const auto kept = handler;
        kept();
        return true;
    } catch (const base::RunTimeError& error) {
        desktop_.msgBox(error.description(), 0);
    } catch (const std::bad_alloc&) {
        desktop_.msgBox(base::describeError(static_cast<int>(base::ErrorNumber::OutOfMemory)), 0);
    } catch (const std::exception& error) {
        desktop_.msgBox(error.what(), 0); // nothing may get into the system's code, which is next
    }
    return false;
}

void Form::userClosed() {
    run([this] { unload(UnloadMode::CloseBox); });
}

void Form::hostClosed() {
    run([this] {
        unload();
        if (isLoaded()) hide();
    });
}

void Form::userActivated() {
    if (state_ == State::Loaded) run([this] { Form_Activate(); });
}

void Form::userClicked() {
    if (raisesEvents()) run([this] { Form_Click(); });
}

void Form::userMovedMouse() {
    if (raisesEvents()) run([this] { Form_MouseMove(); });
}

void Form::userReleasedKey(int keyCode) {
    if (raisesEvents()) run([this, keyCode] { Form_KeyUp(keyCode); });
}

void Form::userResized(Size clientArea) {
    if (!raisesEvents()) return;
    window_.size = clientArea;
    run([this] { Form_Resize(); });
}

void Form::controlChanged(Control& control, Aspect aspect) {
    if (!peer_) return;
    peer_->controlChanged(control, aspect);
    if (aspect == Aspect::Enabled || aspect == Aspect::Visible) keyboard_.leaveUnreachable();
}

void Form::focus(Control& control) {
    if (peer_ && control.takesFocus()) peer_->focus(control);
}

void Form::resetControls() {
    for (Control* control : controls_) control->reset();
}

} // namespace corvelle::forms
