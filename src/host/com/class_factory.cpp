#include "host/com/class_factory.h"

#include "com/error.h"

namespace corvelle::host {

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    if (outer) {
        if (!made_.makePart || !IsEqualIID(iid, IID_IUnknown)) return CLASS_E_NOAGGREGATION;
        return com::guarded([&] { *result = made_.makePart(outer).release(); });
    }
    return com::guarded([&] { return made_.make()->QueryInterface(iid, result); });
}

HRESULT ClassFactory::LockServer(BOOL lock) {
    if (lock) {
        com::lockModule();
    } else {
        com::unlockModule();
    }
    return S_OK;
}

} // namespace corvelle::host
