#include "host/com/module.h"

#include "com/error.h"

namespace corvelle::host {

namespace {

HINSTANCE module = nullptr;

} // namespace

HINSTANCE moduleInstance() {
    return module;
}

void setModuleInstance(HINSTANCE instance) {
    module = instance;
}

std::wstring modulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) throw com::HresultError(HRESULT_FROM_WIN32(GetLastError()));
        if (length < path.size()) return path.substr(0, length);
        path.resize(2 * path.size());
    }
}

com::Ptr<ITypeLib> typeLibrary() {
    com::Ptr<ITypeLib> library;
    com::hresultErrorIfFailed(LoadTypeLibEx(modulePath().c_str(), REGKIND_NONE, library.receive()));
    return library;
}

com::Ptr<ITypeInfo> typeInfo(REFGUID id) {
    com::Ptr<ITypeInfo> information;
    com::hresultErrorIfFailed(typeLibrary()->GetTypeInfoOfGuid(id, information.receive()));
    return information;
}

} // namespace corvelle::host
