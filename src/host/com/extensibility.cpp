#include "host/com/extensibility.h"

#include "com/dispatch_server.h"
#include "com/error.h"
#include "host/com/add_in_list.h"
#include "ide/automation/automation.h"

namespace corvelle::host {

namespace {

enum Method : DISPID { onConnection = 1, onDisconnection, onAddInsUpdate, onStartupComplete };

struct NamedMethod {
    const wchar_t* name;
    Method id;
};

constexpr NamedMethod methods[] = {
    {L"OnConnection", onConnection},
    {L"OnDisconnection", onDisconnection},
    {L"OnAddInsUpdate", onAddInsUpdate},
    {L"OnStartupComplete", onStartupComplete},
};

} // namespace

// The methods

HRESULT Extensibility::OnConnection(IDispatch* VBInst, vbext_ConnectMode ConnectMode, ::AddIn*, SAFEARRAY**) {
    return com::guarded([&] { connect(VBInst, ConnectMode); });
}

void Extensibility::connect(IDispatch* VBInst, std::int32_t ConnectMode) {
    const com::Ptr<IUnknown> alive(&owner_); // the IDE may let go of us meanwhile
    try {
        enterSettings();
    } catch (const com::HresultError&) {
        // Without them the add-ins have their defaults.
    }
    addIn_->IDTExtensibility_OnConnection(automation::vbe(VBInst), ConnectMode);
}

HRESULT Extensibility::OnDisconnection(vbext_DisconnectMode, SAFEARRAY**) {
    const com::Ptr<IUnknown> alive(&owner_);
    return com::guarded([&] { addIn_->IDTExtensibility_OnDisconnection(); });
}

HRESULT Extensibility::OnAddInsUpdate(SAFEARRAY**) {
    return S_OK;
}

HRESULT Extensibility::OnStartupComplete(SAFEARRAY**) {
    return S_OK;
}

// The same, late-bound

HRESULT Extensibility::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT Extensibility::GetTypeInfo(UINT, LCID, ITypeInfo** information) {
    if (!information) return E_POINTER;
    *information = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT Extensibility::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (!IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids) return E_POINTER;
    for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
    if (count == 0) return S_OK;
    for (const auto& method : methods) {
        if (!com::isMemberName(method.name, names[0])) continue;
        ids[0] = method.id;
        return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
    }
    return DISP_E_UNKNOWNNAME;
}

HRESULT Extensibility::Invoke(DISPID id, REFIID iid, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                              EXCEPINFO* information, UINT*) {
    if (!IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (!parameters) return E_POINTER;
    if ((kind & DISPATCH_METHOD) == 0) return DISP_E_MEMBERNOTFOUND;
    if (parameters->cNamedArgs > 0) return DISP_E_NONAMEDARGS;
    if (result) VariantInit(result);
    try {
        const com::Arguments arguments(*parameters);
        switch (id) {
        case onConnection:
            connect(arguments.object(0).get(), arguments.number(1));
            return S_OK;
        case onDisconnection:
            return OnDisconnection(vbext_dm_HostShutdown, nullptr);
        case onAddInsUpdate:
        case onStartupComplete:
            return S_OK;
        default:
            return DISP_E_MEMBERNOTFOUND;
        }
    } catch (...) {
        return com::reportCurrentException(information);
    }
}

} // namespace corvelle::host
