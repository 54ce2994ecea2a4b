#pragma once

#include "com/connection_point.h"

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

} // namespace corvelle::host
