#pragma once

#include "com/object.h"

#include <oaidl.h>
#include <ole2.h>

namespace corvelle::com {

/// The IDispatch of every object of ours, over a base that leaves IDispatch's methods open. A derived class
/// has a type library's description of its members, or knows their names and runs them itself.
template <class Base>
class DispatchObject : public Base {
  public:
    using Base::Base;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (!count) return E_POINTER;
        *count = typeInformation() ? 1 : 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** information) override {
        if (!information) return E_POINTER;
        *information = nullptr;
        auto* type = typeInformation();
        if (!type || index != 0) return DISP_E_BADINDEX;
        *information = Ptr<ITypeInfo>(type).release();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) override {
        if (!IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
        if (!names || !ids) return E_POINTER;
        if (auto* type = typeInformation()) return type->GetIDsOfNames(names, count, ids);
        for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
        if (count == 0) return S_OK;
        ids[0] = idOf(names[0]);
        return ids[0] != DISPID_UNKNOWN && count == 1 ? S_OK : DISP_E_UNKNOWNNAME; // arguments have no names
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* information, UINT* wrong) override {
        if (!IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
        DISPPARAMS none{};
        const Ptr<Base> alive(this); // the call may let go of us
        if (result) VariantInit(result);
        if (wrong) *wrong = 0;
        return invoke(id, kind, parameters ? *parameters : none, result, information, wrong);
    }

  protected:
    /// What a type library tells of the members; null for an object that is in none.
    virtual ITypeInfo* typeInformation() const { return nullptr; }
    /// The member of that name, DISPID_UNKNOWN if there is none. Asked only of an object that is in no
    /// library.
    virtual DISPID idOf(const wchar_t* /*name*/) const { return DISPID_UNKNOWN; }
    /// One call. The result, which may be null, is empty.
    virtual HRESULT invoke(DISPID id, WORD kind, DISPPARAMS& parameters, VARIANT* result,
                           EXCEPINFO* information, UINT* wrong) {
        auto* type = typeInformation();
        if (!type) return DISP_E_MEMBERNOTFOUND;
        SetErrorInfo(0, nullptr); // an older error is not ours
        return type->Invoke(static_cast<IDispatch*>(this), id, kind, &parameters, result, information, wrong);
    }
};

} // namespace corvelle::com
