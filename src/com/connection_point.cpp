#include "com/connection_point.h"

#include "com/error.h"

#include <algorithm>
#include <olectl.h>
#include <vector>

namespace corvelle::com {

HRESULT ConnectionPoint::GetConnectionInterface(IID* iid) {
    if (!iid) return E_POINTER;
    *iid = events_;
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    if (!container) return E_POINTER;
    *container = source_;
    if (!source_) return E_UNEXPECTED;
    source_->AddRef();
    return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
    return guarded([&]() -> HRESULT {
        if (!sink || !cookie) return E_POINTER;
        *cookie = 0;
        const Ptr<IUnknown> object(sink);
        auto events = object.queryAs<IDispatch>(events_);
        if (!events) events = object.query<IDispatch>();
        if (!events || !source_) return CONNECT_E_CANNOTCONNECT;
        sinks_.emplace(++lastCookie_, std::move(events));
        *cookie = lastCookie_;
        return S_OK;
    });
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
    const auto found = sinks_.find(cookie);
    if (found == sinks_.end()) return CONNECT_E_NOCONNECTION;
    const auto sink = found->second; // its end may come back here
    sinks_.erase(found);
    return S_OK;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** result) {
    if (result) *result = nullptr;
    return E_NOTIMPL;
}

void ConnectionPoint::fire(DISPID id, std::initializer_list<VARIANT> arguments) {
    AddRef(); // a sink may let go of the source
    const auto self = Ptr<IConnectionPoint>::take(this);
    const auto sinks = sinks_;
    for (const auto& [cookie, sink] : sinks) {
        if (sinks_.count(cookie) == 0) continue;
        std::vector<VARIANT> values(arguments);
        std::reverse(values.begin(), values.end());
        DISPPARAMS parameters{values.data(), nullptr, static_cast<UINT>(values.size()), 0};
        Variant result;
        EXCEPINFO information{};
        const auto status = sink->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                         result.receive(), &information, nullptr);
        if (FAILED(status)) runTimeError(status, information); // frees its texts
    }
}

void ConnectionPoint::leave() {
    source_ = nullptr;
    const auto sinks = std::move(sinks_);
    sinks_.clear();
}

} // namespace corvelle::com
