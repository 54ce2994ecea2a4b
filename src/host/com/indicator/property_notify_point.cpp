#include "host/com/indicator/property_notify_point.h"

#include "com/error.h"

#include <olectl.h>

namespace corvelle::host {

HRESULT PropertyNotifyPoint::GetConnectionInterface(IID* iid) {
    if (iid == nullptr) return E_POINTER;
    *iid = IID_IPropertyNotifySink;
    return S_OK;
}

HRESULT PropertyNotifyPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    if (container == nullptr) return E_POINTER;
    *container = control_;
    if (control_ == nullptr) return E_UNEXPECTED;
    control_->AddRef();
    return S_OK;
}

HRESULT PropertyNotifyPoint::Advise(IUnknown* sink, DWORD* cookie) {
    return com::guarded([&]() -> HRESULT {
        if (sink == nullptr || cookie == nullptr) return E_POINTER;
        *cookie = 0;
        auto told = com::Ptr<IUnknown>(sink).query<IPropertyNotifySink>();
        if (!told || control_ == nullptr) return CONNECT_E_CANNOTCONNECT;
        sinks_.emplace(++lastCookie_, std::move(told));
        *cookie = lastCookie_;
        return S_OK;
    });
}

HRESULT PropertyNotifyPoint::Unadvise(DWORD cookie) {
    const auto found = sinks_.find(cookie);
    if (found == sinks_.end()) return CONNECT_E_NOCONNECTION;
    const auto sink = found->second; // its end may come back here
    sinks_.erase(found);
    return S_OK;
}

HRESULT PropertyNotifyPoint::EnumConnections(IEnumConnections** result) {
    if (result != nullptr) *result = nullptr;
    return E_NOTIMPL;
}

void PropertyNotifyPoint::changed(DISPID property) {
    const com::Ptr<IConnectionPoint> self(this); // a sink may let go of the control
    const auto sinks = sinks_;
    for (const auto& [cookie, sink] : sinks) {
        if (sinks_.count(cookie) != 0) sink->OnChanged(property);
    }
}

void PropertyNotifyPoint::leave() {
    control_ = nullptr;
    const auto sinks = std::move(sinks_);
    sinks_.clear();
}

} // namespace corvelle::host
