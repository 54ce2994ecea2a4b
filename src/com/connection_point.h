#pragma once

#include "com/arguments.h"
#include "com/error.h"
#include "com/object.h"

#include <cstddef>
#include <initializer_list>
#include <map>
#include <ocidl.h>
#include <olectl.h>

namespace corvelle::com {

/// The sinks of one event interface, each kept as the interface it is called by. It belongs to a source of
/// events, which has to let go of it with `leave`.
template <class Sink>
class SinkList : public Object<IConnectionPoint> {
  public:
    SinkList(REFIID events, IConnectionPointContainer* source) : events_(events), source_(source) {}

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) override {
        if (!iid) return E_POINTER;
        *iid = events_;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override {
        if (!container) return E_POINTER;
        *container = source_;
        if (!source_) return E_UNEXPECTED;
        source_->AddRef();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override {
        return guarded([&]() -> HRESULT {
            if (!sink || !cookie) return E_POINTER;
            *cookie = 0;
            auto events = accepted(Ptr<IUnknown>(sink));
            if (!events || !source_) return CONNECT_E_CANNOTCONNECT;
            sinks_.emplace(++lastCookie_, std::move(events));
            *cookie = lastCookie_;
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
        const auto found = sinks_.find(cookie);
        if (found == sinks_.end()) return CONNECT_E_NOCONNECTION;
        const auto sink = found->second; // its end may come back here
        sinks_.erase(found);
        return S_OK;
    }
    /// Not offered.
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** result) override {
        if (result) *result = nullptr;
        return E_NOTIMPL;
    }

    /// The source is no more: no sink is called any longer.
    void leave() {
        source_ = nullptr;
        const auto sinks = std::move(sinks_);
        sinks_.clear();
    }
    std::size_t sinkCount() const { return sinks_.size(); }

  protected:
    const IID& events() const { return events_; }
    /// The sink as it will be called; null if it does not take these events.
    virtual Ptr<Sink> accepted(const Ptr<IUnknown>& sink) = 0;
    /// Calls every sink; one that leaves meanwhile is called no more.
    template <class Call>
    void forEachSink(Call call) {
        const Ptr<IConnectionPoint> self(this); // a sink may let go of the source
        const auto sinks = sinks_;
        for (const auto& [cookie, sink] : sinks) {
            if (sinks_.count(cookie) != 0) call(*sink);
        }
    }

  private:
    IID events_;
    IConnectionPointContainer* source_;
    std::map<DWORD, Ptr<Sink>> sinks_;
    DWORD lastCookie_ = 0;
};

/// The sinks of a dispatch interface, and the calls to them.
class ConnectionPoint : public SinkList<IDispatch> {
  public:
    using SinkList::SinkList;

    /// The arguments in their written order. A sink's failure is its own.
    void fire(DISPID id, std::initializer_list<VARIANT> arguments);

  protected:
    /// Takes a sink that answers the event interface or IDispatch.
    Ptr<IDispatch> accepted(const Ptr<IUnknown>& sink) override;
};

} // namespace corvelle::com
