#pragma once

#include "com/dispatch_object.h"
#include "host/com/module.h"

#include <oaidl.h>

namespace corvelle::host {

/// A COM object with a dual default interface, which late-bound callers reach through the type library.
template <class Default, class... Rest>
class DualObject : public com::DispatchObject<com::Object<Default, ISupportErrorInfo, Rest...>> {
  public:
    /// Throws HresultError.
    DualObject() : type_(typeInfo(__uuidof(Default))) {}

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override {
        return IsEqualIID(iid, __uuidof(Default)) ? S_OK : S_FALSE;
    }

  protected:
    void* find(REFIID iid) override {
        if (IsEqualIID(iid, IID_IDispatch)) return static_cast<Default*>(this);
        return com::Object<Default, ISupportErrorInfo, Rest...>::find(iid);
    }
    ITypeInfo* typeInformation() const override { return type_.get(); }

  private:
    com::Ptr<ITypeInfo> type_;
};

} // namespace corvelle::host
