// The indicator's members: late-bound calls and _Indicator.

#include "com/variant.h"
#include "host/com/indicator/indicator_control.h"

namespace corvelle::host {

namespace {

// A VB Long with bit 31 set is a colour of the system, but as a number it is negative: the library's unsigned
// type would not take it.
bool takeAsColour(VARIANT& value) {
    VARIANT number;
    VariantInit(&number);
    if (FAILED(VariantChangeType(&number, &value, 0, VT_I4))) return false;
    const auto bits = static_cast<ULONG>(V_I4(&number));
    VariantInit(&value);
    V_VT(&value) = VT_UI4;
    V_UI4(&value) = bits;
    return true;
}

bool isColour(ITypeInfo& members, DISPID id) {
    for (const wchar_t* colour :
         {L"FillColor", L"ForeColor", L"DotColor", L"ScrollColor", L"Backcolor", L"BorderColor"}) {
        auto name = const_cast<LPOLESTR>(colour);
        DISPID found = DISPID_UNKNOWN;
        if (SUCCEEDED(members.GetIDsOfNames(&name, 1, &found)) && found == id) return true;
    }
    return false;
}

} // namespace

// Late-bound calls

HRESULT IndicatorControl::invoke(DISPID id, WORD kind, DISPPARAMS& parameters, VARIANT* result,
                                 EXCEPINFO* information, UINT* wrong) {
    DISPPARAMS given = parameters;
    VARIANT colour;
    const bool puts = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (puts && given.cArgs == 1 && isColour(*members_.get(), id)) {
        colour = given.rgvarg[0]; // still the caller's
        if (takeAsColour(colour)) given.rgvarg = &colour;
    }
    const HRESULT status = DispatchObject::invoke(id, kind, given, result, information, wrong);
    if (SUCCEEDED(status) && result && V_VT(result) == VT_UI4) V_VT(result) = VT_I4; // a VB Long
    return status;
}

// Properties

HRESULT IndicatorControl::get_RaiseTicK(VARIANT_BOOL* value) {
    return get(value, [this] { return indicator_.RaiseTicK ? VARIANT_TRUE : VARIANT_FALSE; });
}

HRESULT IndicatorControl::put_RaiseTicK(VARIANT_BOOL value) {
    return run([&] { indicator_.RaiseTicK = value != VARIANT_FALSE; });
}

HRESULT IndicatorControl::get_FillColor(OLE_COLOR* value) {
    return get(value, [this] { return indicator_.FillColor(); });
}

HRESULT IndicatorControl::put_FillColor(OLE_COLOR value) {
    return run([&] { indicator_.setFillColor(value); });
}

HRESULT IndicatorControl::get_ForeColor(OLE_COLOR* value) {
    return get(value, [this] { return indicator_.ForeColor(); });
}

HRESULT IndicatorControl::put_ForeColor(OLE_COLOR value) {
    return run([&] { indicator_.setForeColor(value); });
}

HRESULT IndicatorControl::get_Interval(LONG* value) {
    return get(value, [this] { return indicator_.Interval(); });
}

HRESULT IndicatorControl::put_Interval(LONG value) {
    return run([&] { indicator_.setInterval(value); });
}

HRESULT IndicatorControl::get_DotColor(OLE_COLOR* value) {
    return get(value, [this] { return indicator_.DotColor(); });
}

HRESULT IndicatorControl::put_DotColor(OLE_COLOR value) {
    return run([&] { indicator_.setDotColor(value); });
}

HRESULT IndicatorControl::get_VisualEffect(LONG* value) {
    return get(value, [this] { return indicator_.VisualEffect(); });
}

HRESULT IndicatorControl::put_VisualEffect(LONG value) {
    return run([&] { indicator_.setVisualEffect(value); });
}

HRESULT IndicatorControl::get_ScrollColor(OLE_COLOR* value) {
    return get(value, [this] { return indicator_.ScrollColor(); });
}

HRESULT IndicatorControl::put_ScrollColor(OLE_COLOR value) {
    return run([&] { indicator_.setScrollColor(value); });
}

HRESULT IndicatorControl::get_BorderStyle(LONG* value) {
    return get(value, [this] { return indicator_.BorderStyle(); });
}

HRESULT IndicatorControl::put_BorderStyle(LONG value) {
    return run([&] { indicator_.setBorderStyle(value); });
}

HRESULT IndicatorControl::get_Backcolor(OLE_COLOR* value) {
    return get(value, [this] { return indicator_.Backcolor(); });
}

HRESULT IndicatorControl::put_Backcolor(OLE_COLOR value) {
    return run([&] { indicator_.setBackcolor(value); });
}

HRESULT IndicatorControl::get_BorderColor(OLE_COLOR* value) {
    return get(value, [this] { return indicator_.BorderColor(); });
}

HRESULT IndicatorControl::put_BorderColor(OLE_COLOR value) {
    return run([&] { indicator_.setBorderColor(value); });
}

HRESULT IndicatorControl::get_RunTimeInterval(LONG* value) {
    return get(value, [this] { return indicator_.RunTimeInterval(); });
}

// Methods

HRESULT IndicatorControl::StartNow() {
    return run([this] { indicator_.StartNow(); });
}

HRESULT IndicatorControl::stopNow() {
    return run([this] { indicator_.stopNow(); });
}

HRESULT IndicatorControl::PauseNow() {
    return run([this] { indicator_.PauseNow(); });
}

HRESULT IndicatorControl::ResumeNow() {
    return run([this] { indicator_.ResumeNow(); });
}

} // namespace corvelle::host
