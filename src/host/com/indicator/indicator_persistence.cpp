// What the container keeps of the indicator: IPersistStreamInit and IPersistPropertyBag.

#include "host/com/indicator/indicator_control.h"
#include "host/com/indicator/property_bags.h"

namespace corvelle::host {

HRESULT IndicatorControl::GetClassID(CLSID* clsid) {
    if (!clsid) return E_POINTER;
    *clsid = __uuidof(Indicator);
    return S_OK;
}

HRESULT IndicatorControl::InitNew() {
    return run([this] {
        indicator_.initProperties();
        dirty_ = true;
    });
}

HRESULT IndicatorControl::IsDirty() {
    return dirty_ ? S_OK : S_FALSE;
}

HRESULT IndicatorControl::Load(IStream* stream) {
    if (!stream) return E_POINTER;
    return run([&] {
        StreamBag bag;
        bag.load(*stream);
        indicator_.readProperties(bag);
        dirty_ = false;
    });
}

HRESULT IndicatorControl::Save(IStream* stream, WINBOOL clearDirty) {
    if (!stream) return E_POINTER;
    return run([&] {
        StreamBag bag;
        indicator_.writeProperties(bag);
        bag.save(*stream);
        if (clearDirty) dirty_ = false;
    });
}

HRESULT IndicatorControl::GetSizeMax(ULARGE_INTEGER* size) {
    if (!size) return E_POINTER;
    return run([&] {
        StreamBag bag;
        indicator_.writeProperties(bag);
        size->QuadPart = bag.size();
    });
}

HRESULT IndicatorControl::Load(IPropertyBag* bag, IErrorLog* log) {
    if (!bag) return E_POINTER;
    return run([&] {
        ContainerBag properties(*bag, log);
        indicator_.readProperties(properties);
        dirty_ = false;
    });
}

HRESULT IndicatorControl::Save(IPropertyBag* bag, WINBOOL clearDirty, WINBOOL all) {
    if (!bag) return E_POINTER;
    return run([&] {
        ContainerBag properties(*bag, all != FALSE);
        indicator_.writeProperties(properties);
        if (clearDirty) dirty_ = false;
    });
}

} // namespace corvelle::host
