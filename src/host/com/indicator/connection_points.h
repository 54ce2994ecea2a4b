#pragma once

#include "com/connection_point.h"
#include "com/object.h"
#include "com/ptr.h"

#include <cstddef>
#include <ocidl.h>
#include <ole2.h>
#include <vector>

namespace corvelle::host {

/// Those who want to know of changed properties.
class PropertyNotifyPoint : public com::SinkList<IPropertyNotifySink> {
  public:
    explicit PropertyNotifyPoint(IConnectionPointContainer* control)
        : SinkList(IID_IPropertyNotifySink, control) {}

    void changed(DISPID property) {
        forEachSink([property](IPropertyNotifySink& sink) { sink.OnChanged(property); });
    }

  protected:
    com::Ptr<IPropertyNotifySink> accepted(const com::Ptr<IUnknown>& sink) override {
        return sink.query<IPropertyNotifySink>();
    }
};

/// Goes through a control's connection points.
class ConnectionPoints : public com::Object<IEnumConnectionPoints> {
  public:
    explicit ConnectionPoints(std::vector<com::Ptr<IConnectionPoint>> points, std::size_t next = 0)
        : points_(std::move(points)), next_(next) {}

    HRESULT STDMETHODCALLTYPE Next(ULONG count, IConnectionPoint** points, ULONG* got) override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
    HRESULT STDMETHODCALLTYPE Reset() override;
    HRESULT STDMETHODCALLTYPE Clone(IEnumConnectionPoints** result) override;

  private:
    std::vector<com::Ptr<IConnectionPoint>> points_;
    std::size_t next_;
};

/// Who wants to know that the view of an object has changed: one sink at most.
class ViewAdvice {
  public:
    /// A null sink ends the advice.
    void set(DWORD aspects, DWORD flags, IAdviseSink* sink);
    /// Each may be null.
    void get(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const;
    void viewChanged();

  private:
    DWORD aspects_ = 0, flags_ = 0; // DVASPECT_..., ADVF_...
    com::Ptr<IAdviseSink> sink_;
};

} // namespace corvelle::host
