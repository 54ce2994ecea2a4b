#include "host/com/failing_ide.h"

#include <utility>
#include <vector>

namespace corvelle::host::test {

FailingObject::FailingObject(com::Ptr<IDispatch> original, std::shared_ptr<IdeCalls> calls)
    : original_(std::move(original)), calls_(std::move(calls)) {
    calls_->originals[this] = original_.get();
}

FailingObject::~FailingObject() {
    calls_->originals.erase(this);
}

HRESULT FailingObject::QueryInterface(REFIID iid, void** result) {
    const HRESULT own = Object::QueryInterface(iid, result);
    return own == E_NOINTERFACE ? original_->QueryInterface(iid, result) : own;
}

HRESULT FailingObject::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) {
    return original_->GetIDsOfNames(iid, names, count, locale, ids);
}

HRESULT FailingObject::Invoke(DISPID id, REFIID iid, LCID locale, WORD kind, DISPPARAMS* parameters,
                              VARIANT* result, EXCEPINFO* information, UINT* argument) {
    if (calls_->untilFailure > 0 && --calls_->untilFailure == 0) {
        calls_->failed = true;
        if (information) {
            *information = {};
            information->scode = E_FAIL;
        }
        return DISP_E_EXCEPTION;
    }
    std::vector<VARIANTARG> arguments(parameters->rgvarg, parameters->rgvarg + parameters->cArgs);
    for (VARIANTARG& one : arguments) { // borrowed, as arguments are
        const auto known =
            one.vt == VT_DISPATCH ? calls_->originals.find(one.pdispVal) : calls_->originals.end();
        if (known != calls_->originals.end()) one.pdispVal = known->second;
    }
    DISPPARAMS passed = *parameters;
    passed.rgvarg = arguments.data();
    const HRESULT returned = original_->Invoke(id, iid, locale, kind, &passed, result, information, argument);
    if (SUCCEEDED(returned) && result && result->vt == VT_DISPATCH && result->pdispVal) {
        const auto inner = com::Ptr<IDispatch>::take(result->pdispVal);
        result->pdispVal = com::Ptr<IDispatch>(com::make<FailingObject>(inner, calls_)).release();
    }
    return returned;
}

} // namespace corvelle::host::test
