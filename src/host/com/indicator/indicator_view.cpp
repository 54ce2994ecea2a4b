// The indicator's picture: IViewObject2.

#include "forms/win32/gdi.h"
#include "host/com/indicator/indicator_control.h"

namespace corvelle::host {

void IndicatorControl::pictureChanged() {
    if (window_) {
        window_->redraw();
    } else {
        view_.viewChanged();
    }
}

HRESULT IndicatorControl::Draw(DWORD aspect, LONG index, void*, DVTARGETDEVICE*, HDC, HDC device,
                               LPCRECTL bounds, LPCRECTL, WINBOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (index != -1) return DV_E_LINDEX;
    if (!device || !bounds) return E_INVALIDARG;
    return run([&] {
        RECT box{bounds->left, bounds->top, bounds->right, bounds->bottom};
        const int saved = SaveDC(device);
        if (GetDeviceCaps(device, TECHNOLOGY) != DT_METAFILE) {
            // In pixels, whatever the container's units are and wherever they begin.
            LPtoDP(device, reinterpret_cast<POINT*>(&box), 2);
            SetMapMode(device, MM_TEXT);
            SetWindowOrgEx(device, 0, 0, nullptr);
            SetViewportOrgEx(device, 0, 0, nullptr);
        }
        forms::drawCanvas(device, home_.canvas(), box);
        RestoreDC(device, saved);
    });
}

HRESULT IndicatorControl::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** colours) {
    if (!colours) return E_POINTER;
    *colours = nullptr;
    return S_FALSE; // any colours there are
}

HRESULT IndicatorControl::Freeze(DWORD, LONG, void*, DWORD* cookie) {
    if (cookie) *cookie = 0;
    return E_NOTIMPL;
}

HRESULT IndicatorControl::Unfreeze(DWORD) {
    return E_NOTIMPL;
}

HRESULT IndicatorControl::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    return run([&] { view_.set(aspects, flags, sink); });
}

HRESULT IndicatorControl::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
    view_.get(aspects, flags, sink);
    return S_OK;
}

HRESULT IndicatorControl::GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE*, SIZEL* size) {
    if (index != -1) return DV_E_LINDEX;
    return GetExtent(aspect, size);
}

} // namespace corvelle::host
