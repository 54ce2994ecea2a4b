#include "com/event_sink.h"

#include "com/error.h"

#include <utility>

namespace corvelle::com {

HRESULT EventSink::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT EventSink::GetTypeInfo(UINT, LCID, ITypeInfo** information) {
    if (information) *information = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT EventSink::GetIDsOfNames(REFIID, LPOLESTR*, UINT count, LCID, DISPID* ids) {
    for (UINT i = 0; ids && i < count; ++i) ids[i] = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME; // a source calls by DISPID
}

HRESULT EventSink::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO*,
                          UINT*) {
    if (result) VariantInit(result);
    const DISPPARAMS none{};
    AddRef(); // the event may let go of us
    const auto self = Ptr<IDispatch>::take(this);
    try {
        event(id, Arguments(parameters ? *parameters : none));
    } catch (...) { // nobody to tell
    }
    return S_OK;
}

void* EventSink::find(REFIID iid) {
    return IsEqualIID(iid, events_) ? static_cast<IDispatch*>(this) : Object::find(iid);
}

Connection::Connection(IUnknown* source, REFIID events, IUnknown* sink) {
    const auto container = Ptr<IUnknown>(source).query<IConnectionPointContainer>();
    if (!container) throw base::RunTimeError(base::ErrorNumber::MemberNotSupported);
    check(container->FindConnectionPoint(events, point_.receive()));
    if (!point_) throw base::RunTimeError(base::ErrorNumber::MemberNotSupported);
    check(point_->Advise(sink, &cookie_));
}

Connection::Connection(Connection&& other) noexcept
    : point_(std::move(other.point_)), cookie_(std::exchange(other.cookie_, 0)) {}

Connection& Connection::operator=(Connection other) noexcept {
    std::swap(point_, other.point_);
    std::swap(cookie_, other.cookie_);
    return *this;
}

Connection::~Connection() {
    if (point_) point_->Unadvise(cookie_);
}

} // namespace corvelle::com
