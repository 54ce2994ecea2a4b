#pragma once

#include "com/arguments.h"
#include "com/dispatch_object.h"

#include <ocidl.h>
#include <ole2.h>

namespace corvelle::com {

/// Receives the events of a source: the object that is advised. It answers IUnknown, IDispatch and the
/// source's own event interface. What an event throws ends there.
class EventSink : public DispatchObject<Object<IDispatch>> {
  public:
    explicit EventSink(REFIID events) : events_(events) {}

    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* information, UINT* wrong) override;

  protected:
    /// An event of that DISPID. Of the arguments any may be missing or odd.
    virtual void event(DISPID id, const Arguments& arguments) = 0;
    void* find(REFIID iid) override;
    HRESULT invoke(DISPID id, WORD kind, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* information,
                   UINT* wrong) override;

  private:
    IID events_;
};

/// A sink's connection to a source; ends with this object.
class Connection {
  public:
    Connection() = default;
    /// Throws the RunTimeError of a source that has no such events or refuses.
    Connection(IUnknown* source, REFIID events, IUnknown* sink);
    Connection(Connection&& other) noexcept;
    Connection& operator=(Connection other) noexcept;
    ~Connection();

  private:
    Ptr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

} // namespace corvelle::com
