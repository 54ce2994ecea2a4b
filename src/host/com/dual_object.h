#pragma once

#include "com/error.h"
#include "com/object.h"
#include "host/com/module.h"

#include <oaidl.h>

namespace corvelle::host {

/// A COM object with a dual default interface, which late-bound callers reach through the type library.
template <class Default, class... Rest>
class DualObject : public com::Object<Default, ISupportErrorInfo, Rest...> {
  public:
    /// Throws HresultError.
    DualObject() : type_(typeInfo(__uuidof(Default))) {}

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (!count) return E_POINTER;
        *count = 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** information) override {
        if (!information) return E_POINTER;
        *information = nullptr;
        if (index != 0) return DISP_E_BADINDEX;
        *information = com::Ptr<ITypeInfo>(type_).release();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) override {
        if (!IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
        if (!names || !ids) return E_POINTER;
        return type_->GetIDsOfNames(names, count, ids);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* information, UINT* wrong) override {
        if (!IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
        if (!parameters) return E_POINTER;
        const com::Ptr<Default> alive(this); // the call may let go of us
        const auto type = type_;
        SetErrorInfo(0, nullptr);
        return type->Invoke(static_cast<Default*>(this), id, kind, parameters, result, information, wrong);
    }
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override {
        return IsEqualIID(iid, __uuidof(Default)) ? S_OK : S_FALSE;
    }

  protected:
    void* find(REFIID iid) override {
        if (IsEqualIID(iid, IID_IDispatch)) return static_cast<Default*>(this);
        return com::Object<Default, ISupportErrorInfo, Rest...>::find(iid);
    }

  private:
    com::Ptr<ITypeInfo> type_;
};

} // namespace corvelle::host
