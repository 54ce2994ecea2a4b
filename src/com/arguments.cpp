#include "com/arguments.h"

#include "com/error.h"

namespace corvelle::com {

namespace {

template <class Conversion>
auto converted(Conversion&& conversion) {
    try {
        return conversion();
    } catch (const base::RunTimeError&) {
        throw HresultError(DISP_E_TYPEMISMATCH);
    }
}

VARIANT leftOut() {
    return Variant(missing).release();
}

} // namespace

bool Arguments::has(std::size_t index) const {
    return index < count() && !isMissing(at(index));
}

const VARIANT& Arguments::at(std::size_t index) const {
    static const VARIANT nothing = leftOut();
    if (index >= count() || !parameters_.rgvarg) return nothing;
    const auto* value = &parameters_.rgvarg[count() - 1 - index]; // the last one comes first
    if (V_VT(value) == (VT_BYREF | VT_VARIANT) && V_VARIANTREF(value)) value = V_VARIANTREF(value);
    return *value;
}

std::int32_t Arguments::number(std::size_t index) const {
    return converted([&] { return longOf(at(index)); });
}

bool Arguments::boolean(std::size_t index) const {
    return converted([&] { return booleanOf(at(index)); });
}

std::string Arguments::text(std::size_t index) const {
    return converted([&] { return textOf(at(index)); });
}

Ptr<IDispatch> Arguments::object(std::size_t index) const {
    return converted([&] { return objectOf(at(index)); });
}

bool Arguments::isText(std::size_t index) const {
    return (V_VT(&at(index)) & ~VT_BYREF) == VT_BSTR;
}

void Arguments::setBoolean(std::size_t index, bool value) const {
    if (index >= count() || !parameters_.rgvarg) return;
    const auto truth = value ? VARIANT_TRUE : VARIANT_FALSE;
    const auto& argument = parameters_.rgvarg[count() - 1 - index];
    if (V_VT(&argument) == (VT_BYREF | VT_BOOL) && V_BOOLREF(&argument)) {
        *V_BOOLREF(&argument) = truth;
    } else if (V_VT(&argument) == (VT_BYREF | VT_VARIANT) && V_VARIANTREF(&argument)) {
        auto* inner = V_VARIANTREF(&argument);
        if (V_VT(inner) == VT_BOOL) V_BOOL(inner) = truth;
        if (V_VT(inner) == (VT_BYREF | VT_BOOL) && V_BOOLREF(inner)) *V_BOOLREF(inner) = truth;
    }
}

} // namespace corvelle::com
