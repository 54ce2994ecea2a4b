#include "com/event_sink.h"

#include "com/error.h"

#include <utility>

namespace corvelle::com {

HRESULT EventSink::Invoke(DISPID id, REFIID /*iid*/, LCID locale, WORD kind, DISPPARAMS* parameters,
                          VARIANT* result, EXCEPINFO* information, UINT* wrong) {
    // Some sources give the interface of their events.
    return DispatchObject::Invoke(id, IID_NULL, locale, kind, parameters, result, information, wrong);
}

HRESULT EventSink::invoke(DISPID id, WORD /*kind*/, DISPPARAMS& parameters, VARIANT* /*result*/,
                          EXCEPINFO* /*information*/, UINT* /*wrong*/) {
    try {
        event(id, Arguments(parameters));
    } catch (...) { // nobody to tell
    }
    return S_OK;
}

void* EventSink::find(REFIID iid) {
    return IsEqualIID(iid, events_) ? static_cast<IDispatch*>(this) : DispatchObject::find(iid);
}

Connection::Connection(IUnknown* source, REFIID events, IUnknown* sink) {
    const auto container = Ptr<IUnknown>(source).query<IConnectionPointContainer>();
    if (!container) throw base::RunTimeError(base::ErrorNumber::MemberNotSupported);
    runTimeErrorIfFailed(container->FindConnectionPoint(events, point_.receive()));
    if (!point_) throw base::RunTimeError(base::ErrorNumber::MemberNotSupported);
    runTimeErrorIfFailed(point_->Advise(sink, &cookie_));
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
