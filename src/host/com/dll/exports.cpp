// What the DLL exports, and its entry point.

#include "com/error.h"
#include "host/com/add_in_entries.h"
#include "host/com/class_factory.h"
#include "host/com/class_table.h"
#include "host/com/module.h"
#include "host/com/module_desktop.h"
#include "host/com/registration.h"

#include <olectl.h>

using namespace corvelle;

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) host::setModuleInstance(instance);
    return TRUE;
}

HRESULT WINAPI DllGetClassObject(REFCLSID id, REFIID iid, void** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    return com::guarded([&]() -> HRESULT {
        for (const host::ComClass& entry : host::classTable()) {
            if (!IsEqualCLSID(entry.id, id)) continue;
            return com::make<host::ClassFactory>(entry)->QueryInterface(iid, result);
        }
        return CLASS_E_CLASSNOTAVAILABLE;
    });
}

HRESULT WINAPI DllCanUnloadNow() {
    return com::objectCount() == 0 && host::releaseDesktop() ? S_OK : S_FALSE;
}

HRESULT WINAPI DllRegisterServer() {
    const HRESULT result = com::guarded([] { host::registerServer(); });
    if (FAILED(result)) com::guarded([] { host::unregisterServer(); }); // all or nothing
    return SUCCEEDED(result) ? S_OK : SELFREG_E_CLASS;
}

/// What "regsvr32 /i" does beyond the registration.
HRESULT WINAPI DllInstall(BOOL install, const wchar_t*) {
    return com::guarded([&] {
        if (install) {
            host::enterAddIns();
        } else {
            host::removeAddIns();
        }
    });
}

HRESULT WINAPI DllUnregisterServer() {
    return SUCCEEDED(com::guarded([] { host::unregisterServer(); })) ? S_OK : SELFREG_E_CLASS;
}
}
