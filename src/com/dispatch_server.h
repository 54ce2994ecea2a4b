#pragma once

#include "com/arguments.h"
#include "com/dispatch_object.h"
#include "com/error.h"
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
template <class Self, class Base = Object<IDispatch>>
class DispatchServer : public DispatchObject<Base> {
  protected:
    DISPID idOf(const wchar_t* name) const override {
        for (const auto& member : Self::members()) {
            if (isMemberName(member.name, name)) return member.id;
        }
        return DISPID_UNKNOWN;
    }
    HRESULT invoke(DISPID id, WORD kind, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* information,
                   UINT* /*wrong*/) override {
        const bool puts = (kind & propertyPut) != 0;
        if (parameters.cNamedArgs > (puts ? 1U : 0U)) return DISP_E_NONAMEDARGS;
        const Member<Self>* found = nullptr;
        for (const auto& member : Self::members()) {
            if (member.id == id && (member.kinds & kind) != 0) found = &member;
        }
        if (!found) return DISP_E_MEMBERNOTFOUND;
        if (parameters.cArgs < found->least || parameters.cArgs > found->most) return DISP_E_BADPARAMCOUNT;
        try {
            auto value = found->run(static_cast<Self&>(*this), Arguments(parameters));
            if (result) *result = value.release();
            return S_OK;
        } catch (...) {
            return reportCurrentException(information);
        }
    }
};

} // namespace corvelle::com
