#pragma once

#include "com/arguments.h"
#include "com/object.h"

#include <cstddef>
#include <initializer_list>
#include <map>
#include <ocidl.h>

namespace corvelle::com {

/// The sinks of one event interface, and the calls to them. It belongs to a source of events, which has to
/// let go of it with `leave`.
class ConnectionPoint : public Object<IConnectionPoint> {
  public:
    ConnectionPoint(REFIID events, IConnectionPointContainer* source) : events_(events), source_(source) {}

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) override;
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
    /// Takes a sink that answers the event interface or IDispatch.
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    /// Not offered.
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** result) override;

    /// Calls every sink; one that leaves meanwhile is called no more. The arguments in their written order. A
    /// sink's failure is its own.
    void fire(DISPID id, std::initializer_list<VARIANT> arguments);
    /// The source is no more: no sink is called any longer.
    void leave();
    std::size_t sinkCount() const { return sinks_.size(); }

  private:
    IID events_;
    IConnectionPointContainer* source_;
    std::map<DWORD, Ptr<IDispatch>> sinks_;
    DWORD lastCookie_ = 0;
};

} // namespace corvelle::com
