#include "host/com/indicator/indicator_control.h"

#include "com/variant.h"
#include "host/com/indicator/connection_points.h"
#include "host/com/indicator/himetric.h"

#include <olectl.h>
#include <vector>

namespace corvelle::host {

namespace {

constexpr int usualWidth = 160, usualHeight = 20; // pixels
constexpr DISPID tick = 1;

com::Ptr<ITypeInfo> describe(ITypeLib& library, REFGUID guid) {
    com::Ptr<ITypeInfo> information;
    com::runTimeErrorIfFailed(library.GetTypeInfoOfGuid(guid, information.receive()));
    return information;
}

} // namespace

com::Ptr<IUnknown> IndicatorControl::make(HINSTANCE module, ITypeLib& library, IUnknown* outer) {
    IndicatorControl* const control = std::make_unique<IndicatorControl>(module, library, outer).release();
    return com::Ptr<IUnknown>::take(&control->inner_); // with the reference it starts with
}

IndicatorControl::IndicatorControl(HINSTANCE module, ITypeLib& library, IUnknown* outer)
    : outer_(outer), module_(module), members_(describe(library, __uuidof(_Indicator))),
      class_(describe(library, __uuidof(Indicator))), desktop_(module),
      home_(*static_cast<_Indicator*>(this)), indicator_(desktop_, home_),
      extent_(toHimetric(usualWidth, usualHeight, dpi())),
      ticks_(com::make<com::ConnectionPoint>(__uuidof(__Indicator), this)),
      changes_(com::make<PropertyNotifyPoint>(this)) {
    com::runTimeErrorIfFailed(CreateOleAdviseHolder(advices_.receive()));
    setSize({usualWidth, usualHeight});
    home_.onRefresh = [this] { pictureChanged(); };
    indicator_.onPropertyChanged = [this](const std::string& key) { propertyChanged(key); };
    indicator_.onTick = [this] {
        if (frozen_ == 0) ticks_->fire(tick, {});
    };
}

IndicatorControl::~IndicatorControl() {
    ticks_->leave();
    changes_->leave();
}

// IUnknown

HRESULT IndicatorControl::QueryInterface(REFIID iid, void** result) {
    return outer_ ? outer_->QueryInterface(iid, result) : Object::QueryInterface(iid, result);
}

ULONG IndicatorControl::AddRef() {
    return outer_ ? outer_->AddRef() : Object::AddRef();
}

ULONG IndicatorControl::Release() {
    return outer_ ? outer_->Release() : Object::Release();
}

HRESULT IndicatorControl::Inner::QueryInterface(REFIID iid, void** result) {
    if (!control_.outer_ || !IsEqualIID(iid, IID_IUnknown))
        return control_.Object::QueryInterface(iid, result);
    if (!result) return E_POINTER;
    *result = this;
    AddRef();
    return S_OK;
}

void* IndicatorControl::find(REFIID iid) {
    if (IsEqualIID(iid, IID_IDispatch)) return static_cast<_Indicator*>(this);
    if (IsEqualIID(iid, IID_IOleWindow)) return static_cast<IOleInPlaceObject*>(this);
    if (IsEqualIID(iid, IID_IViewObject)) return static_cast<IViewObject2*>(this);
    if (IsEqualIID(iid, IID_IPersist)) return static_cast<IPersistStreamInit*>(this);
    // The same methods in the same places, and InitNew behind them.
    if (IsEqualIID(iid, IID_IPersistStream)) return static_cast<IPersistStreamInit*>(this);
    if (IsEqualIID(iid, IID_IProvideClassInfo)) return static_cast<IProvideClassInfo2*>(this);
    return Object::find(iid);
}

// What the indicator tells

void IndicatorControl::propertyChanged(const std::string& key) {
    dirty_ = true;
    std::wstring name(key.begin(), key.end());
    LPOLESTR names = name.data();
    DISPID id = DISPID_UNKNOWN;
    if (SUCCEEDED(members_->GetIDsOfNames(&names, 1, &id))) changes_->changed(id);
}

// IConnectionPointContainer

HRESULT IndicatorControl::EnumConnectionPoints(IEnumConnectionPoints** points) {
    if (!points) return E_POINTER;
    *points = nullptr;
    return com::guarded([&] {
        *points =
            com::make<ConnectionPoints>(std::vector<com::Ptr<IConnectionPoint>>{ticks_, changes_}).release();
    });
}

HRESULT IndicatorControl::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
    if (!point) return E_POINTER;
    *point = nullptr;
    if (IsEqualIID(iid, __uuidof(__Indicator))) *point = com::Ptr<IConnectionPoint>(ticks_).release();
    if (IsEqualIID(iid, IID_IPropertyNotifySink)) *point = com::Ptr<IConnectionPoint>(changes_).release();
    return *point ? S_OK : CONNECT_E_NOCONNECTION;
}

// IProvideClassInfo2, ISupportErrorInfo

HRESULT IndicatorControl::GetClassInfo(ITypeInfo** information) {
    if (!information) return E_POINTER;
    *information = com::Ptr<ITypeInfo>(class_).release();
    return S_OK;
}

HRESULT IndicatorControl::GetGUID(DWORD kind, GUID* guid) {
    if (!guid) return E_POINTER;
    *guid = GUID_NULL;
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *guid = __uuidof(__Indicator);
    return S_OK;
}

HRESULT IndicatorControl::InterfaceSupportsErrorInfo(REFIID iid) {
    return IsEqualIID(iid, __uuidof(_Indicator)) ? S_OK : S_FALSE;
}

} // namespace corvelle::host
