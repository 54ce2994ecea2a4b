#pragma once

#include "com/arguments.h"
#include "com/error.h"
#include "com/object.h"
#include "com/variant.h"

#include <ole2.h>

namespace corvelle::com {

/// A member of an Automation object. `kinds` are the DISPATCH_... flags that it may be called with, `least`
/// and `most` the numbers of arguments, a property's new value included.
template <class Self>
struct Member {
    const wchar_t* name;
    DISPID id;
    WORD kinds;
    unsigned least, most;
    Variant (*run)(Self& self, const Arguments& arguments);
};

constexpr WORD method = DISPATCH_METHOD;
constexpr WORD propertyGet = DISPATCH_PROPERTYGET;
constexpr WORD propertyPut = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

/// Whether a member's name is the one that was asked for, letter case aside.
bool isMemberName(const wchar_t* member, const wchar_t* asked);

/// An Automation object that knows its members from a table: `static const auto& members()` of the class
/// `Self`, a range of Member<Self>. A property that can be read and written has two rows of the same name and
/// DISPID. What a member throws reaches the caller as a failed call.
template <class Self, class... Interfaces>
class DispatchServer : public Object<IDispatch, Interfaces...> {
  public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (!count) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** information) override {
        if (information) *information = nullptr;
        return DISP_E_BADINDEX;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) override {
        if (!IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
        if (!names || !ids) return E_POINTER;
        for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
        if (count == 0) return S_OK;
        for (const auto& member : Self::members()) {
            if (!isMemberName(member.name, names[0])) continue;
            ids[0] = member.id;
            return count == 1 ? S_OK : DISP_E_UNKNOWNNAME; // arguments have no names here
        }
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* information, UINT* wrong) override {
        if (!IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
        static DISPPARAMS none{};
        auto& given = parameters ? *parameters : none;
        const bool puts = (kind & propertyPut) != 0;
        if (given.cNamedArgs > (puts ? 1U : 0U)) return DISP_E_NONAMEDARGS;
        if (result) VariantInit(result);
        if (wrong) *wrong = 0;
        const Member<Self>* found = nullptr;
        for (const auto& member : Self::members()) {
            if (member.id == id && (member.kinds & kind) != 0) found = &member;
        }
        if (!found) return DISP_E_MEMBERNOTFOUND;
        if (given.cArgs < found->least || given.cArgs > found->most) return DISP_E_BADPARAMCOUNT;
        this->AddRef(); // the call may let go of us
        const auto self = Ptr<IDispatch>::take(this);
        try {
            auto value = found->run(static_cast<Self&>(*this), Arguments(given));
            if (result) *result = value.release();
            return S_OK;
        } catch (...) {
            return reportCurrentException(information);
        }
    }
};

} // namespace corvelle::com
