// The indicator as an object in a container: IOleObject and IOleControl.

#include "com/variant.h"
#include "host/com/indicator/himetric.h"
#include "host/com/indicator/indicator_control.h"

#include <olectl.h>

namespace corvelle::host {

namespace {

constexpr int largestSide = 32767;      // pixels; what a window can have
constexpr int largestArea = 16'777'216; // pixels; more than any screen has would only fill the memory

} // namespace

// Site

HRESULT IndicatorControl::SetClientSite(IOleClientSite* site) {
    return run([&] {
        if (!site) InPlaceDeactivate();
        site_ = com::Ptr<IOleClientSite>(site);
    });
}

HRESULT IndicatorControl::GetClientSite(IOleClientSite** site) {
    if (!site) return E_POINTER;
    *site = com::Ptr<IOleClientSite>(site_).release();
    return S_OK;
}

HRESULT IndicatorControl::SetHostNames(LPCOLESTR, LPCOLESTR) {
    return S_OK;
}

HRESULT IndicatorControl::Close(DWORD save) {
    return run([&] {
        const auto site = site_;
        if (save != OLECLOSE_NOSAVE && dirty_ && site) site->SaveObject();
        indicator_.PauseNow(); // a control that is not running does not tick
        InPlaceDeactivate();
        advices_->SendOnClose();
    });
}

// The container's Boolean; true where it does not tell.
bool IndicatorControl::isUserMode() const {
    const auto ambient = site_.query<IDispatch>();
    if (!ambient) return true;
    DISPPARAMS none{};
    com::Variant value;
    const HRESULT status = ambient->Invoke(DISPID_AMBIENT_USERMODE, IID_NULL, LOCALE_USER_DEFAULT,
                                           DISPATCH_PROPERTYGET, &none, value.receive(), nullptr, nullptr);
    return FAILED(status) || value.type() != VT_BOOL || V_BOOL(&value.get()) != VARIANT_FALSE;
}

// Size

void IndicatorControl::setSize(SIZE pixels) {
    forms::Canvas& canvas = home_.canvas();
    const int width = static_cast<int>(pixels.cx), height = static_cast<int>(pixels.cy);
    if (width < 0 || height < 0 || width > largestSide || height > largestSide)
        throw com::HresultError(E_INVALIDARG);
    if (width > 0 && height > largestArea / width) throw com::HresultError(E_OUTOFMEMORY);
    if (width == canvas.width() && height == canvas.height()) return;
    canvas.resize(width, height, forms::colours::black);
    indicator_.resized();
}

HRESULT IndicatorControl::SetExtent(DWORD aspect, SIZEL* size) {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (!size) return E_POINTER;
    return run([&] {
        const SIZEL extent = *size;
        if (extent.cx < 0 || extent.cy < 0) throw com::HresultError(E_INVALIDARG);
        // Where there is a window, its place has the last word.
        if (!window_) setSize(toPixels(extent, dpi()));
        extent_ = extent;
    });
}

HRESULT IndicatorControl::GetExtent(DWORD aspect, SIZEL* size) {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (!size) return E_POINTER;
    *size = extent_;
    return S_OK;
}

// Verbs

HRESULT IndicatorControl::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) {
    return run([&]() -> HRESULT {
        switch (verb) {
        case OLEIVERB_PRIMARY:
        case OLEIVERB_SHOW:
        case OLEIVERB_INPLACEACTIVATE:
            return activate(false);
        case OLEIVERB_UIACTIVATE:
            return activate(true);
        case OLEIVERB_HIDE:
            UIDeactivate();
            if (window_) window_->hide();
            return S_OK;
        case OLEIVERB_DISCARDUNDOSTATE:
            return S_OK;
        default:
            if (verb < 0) return E_NOTIMPL;
            const HRESULT status = activate(false);
            return FAILED(status) ? status : OLEOBJ_S_INVALIDVERB;
        }
    });
}

HRESULT IndicatorControl::EnumVerbs(IEnumOLEVERB** verbs) {
    return OleRegEnumVerbs(__uuidof(Indicator), verbs);
}

// The rest

HRESULT IndicatorControl::SetMoniker(DWORD, IMoniker*) {
    return E_NOTIMPL;
}

HRESULT IndicatorControl::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    if (moniker) *moniker = nullptr;
    return E_NOTIMPL;
}

HRESULT IndicatorControl::InitFromData(IDataObject*, WINBOOL, DWORD) {
    return E_NOTIMPL;
}

HRESULT IndicatorControl::GetClipboardData(DWORD, IDataObject** data) {
    if (data) *data = nullptr;
    return E_NOTIMPL;
}

HRESULT IndicatorControl::Update() {
    return S_OK;
}

HRESULT IndicatorControl::IsUpToDate() {
    return S_OK;
}

HRESULT IndicatorControl::GetUserClassID(CLSID* clsid) {
    return GetClassID(clsid);
}

HRESULT IndicatorControl::GetUserType(DWORD form, LPOLESTR* name) {
    return OleRegGetUserType(__uuidof(Indicator), form, name);
}

HRESULT IndicatorControl::Advise(IAdviseSink* sink, DWORD* cookie) {
    return advices_->Advise(sink, cookie);
}

HRESULT IndicatorControl::Unadvise(DWORD cookie) {
    return advices_->Unadvise(cookie);
}

HRESULT IndicatorControl::EnumAdvise(IEnumSTATDATA** advices) {
    return advices_->EnumAdvise(advices);
}

HRESULT IndicatorControl::GetMiscStatus(DWORD, DWORD* status) {
    if (!status) return E_POINTER;
    *status = miscStatus;
    return S_OK;
}

HRESULT IndicatorControl::SetColorScheme(LOGPALETTE*) {
    return E_NOTIMPL;
}

// IOleControl

HRESULT IndicatorControl::GetControlInfo(CONTROLINFO* information) {
    if (!information) return E_POINTER;
    information->hAccel = nullptr;
    information->cAccel = 0;
    information->dwFlags = 0;
    return S_OK;
}

HRESULT IndicatorControl::OnMnemonic(MSG*) {
    return S_OK;
}

HRESULT IndicatorControl::OnAmbientPropertyChange(DISPID) {
    return S_OK;
}

HRESULT IndicatorControl::FreezeEvents(WINBOOL freeze) {
    if (freeze) {
        ++frozen_;
    } else if (frozen_ > 0) {
        --frozen_;
    }
    return S_OK;
}

} // namespace corvelle::host
