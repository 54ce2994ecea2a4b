#include "com/dispatch.h"

#include "com/error.h"

#include <windows.h>

namespace corvelle::com {

DISPID Dispatch::idOf(const wchar_t* name) {
    for (const auto& [known, id] : ids_) {
        if (known == name) return id;
    }
    DISPID id = DISPID_UNKNOWN;
    auto* text = const_cast<wchar_t*>(name); // which the object only reads
    runTimeErrorIfFailed(object_->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id));
    ids_.emplace_back(name, id);
    return id;
}

void Dispatch::invoke(const wchar_t* name, WORD kind, const Variant* arguments, std::size_t count,
                      Variant* result) {
    if (!object_) throw base::RunTimeError(base::ErrorNumber::ObjectVariableNotSet);
    const auto object = object_; // the call may end us
    const DISPID id = idOf(name);
    std::array<VARIANT, mostArguments> values; // the last argument first; they stay the caller's
    for (std::size_t i = 0; i < count; ++i) values[count - 1 - i] = arguments[i].get();
    DISPID put = DISPID_PROPERTYPUT;
    const bool puts = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS parameters{values.data(), puts ? &put : nullptr, static_cast<UINT>(count), puts ? 1U : 0U};
    EXCEPINFO information{};
    UINT wrong = 0;
    const auto status = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                       result ? result->receive() : nullptr, &information, &wrong);
    if (FAILED(status)) throw runTimeError(status, information);
}

} // namespace corvelle::com
