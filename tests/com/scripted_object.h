#pragma once

#include "com/arguments.h"
#include "com/object.h"
#include "com/variant.h"

#include <algorithm>
#include <functional>
#include <map>
#include <ole2.h>
#include <string>
#include <utility>
#include <vector>

namespace corvelle::test {

/// An Automation object that does what a test says, good or bad, and notes how it is called.
class ScriptedObject : public com::Object<IDispatch> {
  public:
    struct Call {
        WORD kind;
        com::Arguments arguments;
        const DISPPARAMS& parameters;
        com::Variant result; ///< Empty unless the member sets it
        EXCEPINFO* information;
    };
    using Member = std::function<HRESULT(Call& call)>;

    std::map<std::wstring, Member> members;
    std::vector<std::wstring> lookups; ///< every name that was asked for
    std::vector<WORD> kinds;           ///< of every call

    /// A member whose result is the value, however it is called.
    void answers(const std::wstring& name, com::Variant value) {
        members[name] = [value](Call& call) {
            call.result = value;
            return S_OK;
        };
    }
    /// A member that fails.
    void fails(const std::wstring& name, HRESULT result) {
        members[name] = [result](Call&) { return result; };
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        lookups.emplace_back(names[0]);
        if (members.count(names[0]) == 0) return DISP_E_UNKNOWNNAME;
        const auto known = std::find(names_.begin(), names_.end(), names[0]);
        *ids = static_cast<DISPID>(known - names_.begin()) + 1;
        if (known == names_.end()) names_.emplace_back(names[0]);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* information, UINT*) override {
        kinds.push_back(kind);
        const auto found = members.find(names_[static_cast<std::size_t>(id - 1)]);
        if (found == members.end()) return DISP_E_MEMBERNOTFOUND;
        const auto member = found->second; // which may replace itself
        Call call{kind, com::Arguments(*parameters), *parameters, {}, information};
        const auto status = member(call);
        if (SUCCEEDED(status) && result) *result = call.result.release();
        return status;
    }

  private:
    std::vector<std::wstring> names_; // by DISPID, from 1
};

} // namespace corvelle::test
