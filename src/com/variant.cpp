#include "com/variant.h"

#include "com/error.h"

#include <utility>

namespace corvelle::com {

namespace {

using base::ErrorNumber;
using base::RunTimeError;

// The system follows a reference without a look.
void requireReferent(const VARIANT& value) {
    if ((V_VT(&value) & VT_BYREF) != 0 && !V_BYREF(&value)) throw RunTimeError(ErrorNumber::TypeMismatch);
}

Variant changed(const VARIANT& value, VARTYPE type) {
    requireReferent(value);
    Variant result;
    // The function takes the value as one that it might write; it does not.
    const auto status =
        VariantChangeType(result.receive(), const_cast<VARIANT*>(&value), VARIANT_ALPHABOOL, type);
    if (status == DISP_E_OVERFLOW) throw RunTimeError(ErrorNumber::Overflow);
    if (status == E_OUTOFMEMORY) throw RunTimeError(ErrorNumber::OutOfMemory);
    if (FAILED(status)) throw RunTimeError(ErrorNumber::TypeMismatch);
    return result;
}

// The value that a reference of whatever kind leads to.
Variant withoutReference(const VARIANT& value) {
    requireReferent(value);
    Variant result;
    if (FAILED(VariantCopyInd(result.receive(), const_cast<VARIANT*>(&value))))
        throw RunTimeError(ErrorNumber::TypeMismatch);
    return result;
}

} // namespace

Variant::Variant(Missing) : Variant() {
    V_VT(&value_) = VT_ERROR;
    V_ERROR(&value_) = DISP_E_PARAMNOTFOUND;
}

Variant::Variant(bool value) : Variant() {
    V_VT(&value_) = VT_BOOL;
    V_BOOL(&value_) = value ? VARIANT_TRUE : VARIANT_FALSE;
}

Variant::Variant(std::int32_t value) : Variant() {
    V_VT(&value_) = VT_I4;
    V_I4(&value_) = value;
}

Variant::Variant(Bstr text) : Variant() {
    V_VT(&value_) = VT_BSTR;
    V_BSTR(&value_) = text.release();
}

Variant::Variant(IDispatch* object) : Variant() {
    V_VT(&value_) = VT_DISPATCH;
    V_DISPATCH(&value_) = object;
    if (object) object->AddRef();
}

Variant::Variant(IUnknown* object) : Variant() {
    V_VT(&value_) = VT_UNKNOWN;
    V_UNKNOWN(&value_) = object;
    if (object) object->AddRef();
}

Variant::Variant(const VARIANT& value) : Variant() {
    runTimeErrorIfFailed(VariantCopy(&value_, const_cast<VARIANT*>(&value)));
}

Variant::Variant(Variant&& other) noexcept : value_(other.release()) {}

Variant& Variant::operator=(Variant other) noexcept {
    std::swap(value_, other.value_);
    return *this;
}

VARIANT* Variant::receive() {
    VariantClear(&value_);
    return &value_;
}

VARIANT Variant::release() {
    VARIANT result = value_;
    VariantInit(&value_);
    return result;
}

std::string textOf(const VARIANT& value) {
    if (V_VT(&value) == VT_BSTR) return textOf(V_BSTR(&value));
    const auto text = changed(value, VT_BSTR);
    return textOf(V_BSTR(&text.get()));
}

std::int32_t longOf(const VARIANT& value) {
    if (V_VT(&value) == VT_I4) return V_I4(&value);
    const auto number = changed(value, VT_I4);
    return V_I4(&number.get());
}

bool booleanOf(const VARIANT& value) {
    const auto truth = changed(value, VT_BOOL);
    return V_BOOL(&truth.get()) != VARIANT_FALSE;
}

Ptr<IUnknown> unknownOf(const VARIANT& value) {
    const auto direct = withoutReference(value);
    switch (direct.type()) {
    case VT_EMPTY:
    case VT_NULL:
        return {};
    case VT_DISPATCH:
        return Ptr<IUnknown>(V_DISPATCH(&direct.get()));
    case VT_UNKNOWN:
        return Ptr<IUnknown>(V_UNKNOWN(&direct.get()));
    default:
        throw RunTimeError(ErrorNumber::ObjectRequired);
    }
}

Ptr<IDispatch> objectOf(const VARIANT& value) {
    const auto object = unknownOf(value);
    auto result = object.query<IDispatch>();
    if (object && !result) throw RunTimeError(ErrorNumber::TypeMismatch);
    return result;
}

bool isMissing(const VARIANT& value) {
    return V_VT(&value) == VT_ERROR && V_ERROR(&value) == DISP_E_PARAMNOTFOUND;
}

} // namespace corvelle::com
