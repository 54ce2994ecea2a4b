#pragma once

#include "com/object.h"

#include <map>
#include <ocidl.h>

namespace corvelle::host {

/// Those who want to know of changed properties. It belongs to a control, which has to let go of it with
/// `leave`.
class PropertyNotifyPoint : public com::Object<IConnectionPoint> {
  public:
    explicit PropertyNotifyPoint(IConnectionPointContainer* control) : control_(control) {}

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) override;
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    /// Not offered.
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** result) override;

    /// Tells everyone; who leaves meanwhile is told no more.
    void changed(DISPID property);
    void leave();

  private:
    IConnectionPointContainer* control_;
    std::map<DWORD, com::Ptr<IPropertyNotifySink>> sinks_;
    DWORD lastCookie_ = 0;
};

} // namespace corvelle::host
