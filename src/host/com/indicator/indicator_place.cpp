// The indicator with a window in its container: IOleInPlaceObject and IOleInPlaceActiveObject.

#include "host/com/indicator/himetric.h"
#include "host/com/indicator/indicator_control.h"

#include <olectl.h>

namespace corvelle::host {

// Coming

HRESULT IndicatorControl::activate(bool ui) {
    if (window_ && !window_->handle()) InPlaceDeactivate(); // the container has destroyed it
    if (!place_) {
        const HRESULT status = activateInPlace();
        if (FAILED(status)) return status;
    } else if (window_) {
        ShowWindow(window_->handle(), SW_SHOWNA);
    }
    return ui && place_ ? activateUI() : S_OK;
}

HRESULT IndicatorControl::activateInPlace() {
    const auto site = site_;
    const auto place = site.query<IOleInPlaceSite>();
    if (!place) return E_FAIL;
    if (place->CanInPlaceActivate() != S_OK || site_.get() != site.get()) return E_FAIL;
    place_ = place;
    HRESULT status = place->OnInPlaceActivate();
    if (FAILED(status)) {
        place_.reset();
        return status;
    }
    status = com::guarded([this] { return makeWindow(); });
    if (FAILED(status)) {
        InPlaceDeactivate();
        return status;
    }
    site->ShowObject();
    return S_OK;
}

HRESULT IndicatorControl::makeWindow() {
    const auto place = place_; // the container may take it away inside any call
    if (!place) return E_FAIL;
    HWND parent = nullptr;
    RECT position{}, clip{};
    OLEINPLACEFRAMEINFO information{};
    information.cb = sizeof information;
    HRESULT status = place->GetWindow(&parent);
    if (FAILED(status)) return status;
    com::Ptr<IOleInPlaceFrame> frame;
    com::Ptr<IOleInPlaceUIWindow> document;
    status = place->GetWindowContext(frame.receive(), document.receive(), &position, &clip, &information);
    if (FAILED(status)) return status;
    if (place_.get() != place.get() || window_) return E_FAIL;
    frame_ = frame;
    document_ = document;
    window_ = std::make_unique<IndicatorWindow>(module_, parent, home_);
    window_->onPress = [this] { pressed(); };
    window_->onFocus = [this](bool here) {
        const com::Ptr<IUnknown> self(static_cast<_Indicator*>(this));
        if (const auto site = site_.query<IOleControlSite>()) site->OnFocus(here);
    };
    return SetObjectRects(&position, &clip);
}

HRESULT IndicatorControl::activateUI() {
    if (uiActive_) return S_OK;
    uiActive_ = true;
    const auto place = place_;
    const auto frame = frame_;
    const auto document = document_;
    const HRESULT status = place->OnUIActivate();
    if (FAILED(status)) {
        uiActive_ = false;
        return status;
    }
    // Any of these calls may end it again.
    if (uiActive_ && frame) frame->SetActiveObject(this, nullptr);
    if (uiActive_ && frame) frame->SetBorderSpace(nullptr); // it brings no tool bars
    if (uiActive_ && document) document->SetActiveObject(this, nullptr);
    if (uiActive_ && window_ && window_->handle()) SetFocus(window_->handle());
    return S_OK;
}

// In the designer the mouse is the designer's.
void IndicatorControl::pressed() {
    run([this] {
        if (place_ && isUserMode()) activateUI();
    });
}

// There

HRESULT IndicatorControl::SetObjectRects(LPCRECT position, LPCRECT clip) {
    if (!position) return E_POINTER;
    return run([&]() -> HRESULT {
        if (!window_) return S_OK; // its place is asked for when it gets a window
        const RECT at = *position;
        setSize({at.right - at.left, at.bottom - at.top});
        if (window_) window_->place(at, clip);
        return S_OK;
    });
}

HRESULT IndicatorControl::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = window_ ? window_->handle() : nullptr;
    return *window ? S_OK : E_FAIL;
}

HRESULT IndicatorControl::ContextSensitiveHelp(WINBOOL) {
    return E_NOTIMPL;
}

HRESULT IndicatorControl::ReactivateAndUndo() {
    return E_NOTIMPL;
}

// The keys that the container may want, such as Tab: the control has no use for any itself.
HRESULT IndicatorControl::TranslateAccelerator(LPMSG message) {
    return run([&]() -> HRESULT {
        const auto site = site_.query<IOleControlSite>();
        if (!site) return S_FALSE;
        const auto held = [](int key, DWORD flag) { return GetKeyState(key) < 0 ? flag : 0; };
        return site->TranslateAccelerator(message,
                                          held(VK_SHIFT, 1) | held(VK_CONTROL, 2) | held(VK_MENU, 4));
    });
}

HRESULT IndicatorControl::OnFrameWindowActivate(WINBOOL) {
    return S_OK;
}

HRESULT IndicatorControl::OnDocWindowActivate(WINBOOL) {
    return S_OK;
}

HRESULT IndicatorControl::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, WINBOOL) {
    return S_OK;
}

HRESULT IndicatorControl::EnableModeless(WINBOOL) {
    return S_OK;
}

// Going

HRESULT IndicatorControl::UIDeactivate() {
    return run([this] {
        if (!uiActive_) return;
        uiActive_ = false;
        const auto place = place_;
        const auto frame = frame_;
        const auto document = document_;
        if (document) document->SetActiveObject(nullptr, nullptr);
        if (frame) frame->SetActiveObject(nullptr, nullptr);
        if (place) place->OnUIDeactivate(FALSE);
    });
}

HRESULT IndicatorControl::InPlaceDeactivate() {
    return run([this] {
        if (!place_) return;
        UIDeactivate();
        const auto place = std::move(place_);
        frame_.reset();
        document_.reset();
        window_.reset();
        if (!place) return; // it has gone meanwhile
        place->OnInPlaceDeactivate();
        setSize(toPixels(extent_, dpi()));
    });
}

} // namespace corvelle::host
