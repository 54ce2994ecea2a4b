#include "host/com/extensibility.h"

#include "com/error.h"
#include "host/com/add_in_entries.h"
#include "ide/automation/automation.h"

#include <limits>

namespace corvelle::host {

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

std::span<const com::Member<Extensibility>> Extensibility::members() {
    using com::Arguments;
    using com::Variant;
    constexpr unsigned anyNumber = std::numeric_limits<unsigned>::max();
    static constexpr com::Member<Extensibility> methods[] = {
        {L"OnConnection", 1, com::method, 0, anyNumber,
         [](Extensibility& self, const Arguments& arguments) -> Variant {
             self.connect(arguments.object(0).get(), arguments.number(1));
             return {};
         }},
        {L"OnDisconnection", 2, com::method, 0, anyNumber,
         [](Extensibility& self, const Arguments&) -> Variant {
             com::hresultErrorIfFailed(self.OnDisconnection(vbext_dm_HostShutdown, nullptr));
             return {};
         }},
        {L"OnAddInsUpdate", 3, com::method, 0, anyNumber,
         [](Extensibility&, const Arguments&) -> Variant { return {}; }},
        {L"OnStartupComplete", 4, com::method, 0, anyNumber,
         [](Extensibility&, const Arguments&) -> Variant { return {}; }},
    };
    return methods;
}

} // namespace corvelle::host
