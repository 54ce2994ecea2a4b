#include "host/com/dll.h"

#include "places.h"

#include <stdexcept>

namespace corvelle::host::test {

// From the package's description, not from its headers: what clients have compiled into them.
const CLSID formatterClass = {0x62F4B4DF, 0x0200, 0x11D9, {0xB8, 0x4C, 0x9D, 0xC4, 0xC3, 0x7C, 0x90, 0x5E}};
const CLSID indexerClass = {0x07C23A6F, 0xE632, 0x4DEC, {0xB2, 0x0D, 0x1F, 0xA0, 0xD7, 0x67, 0x85, 0x4A}};

namespace {

template <class Function>
Function* exported(HMODULE module, const char* name) {
    const auto found = GetProcAddress(module, name);
    if (!found) throw std::runtime_error(std::string(name) + " is not exported");
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(found));
}

} // namespace

Dll::Dll(const std::wstring& path) : module_(LoadLibraryW(path.c_str())) {
    if (!module_) throw std::runtime_error("the DLL cannot be loaded");
}

std::wstring Dll::path() {
    const com::Bstr given{std::string_view(CORVELLE_DLL)};
    wchar_t full[MAX_PATH];
    const DWORD length = GetFullPathNameW(given.get(), MAX_PATH, full, nullptr);
    return std::wstring(full, length);
}

HRESULT Dll::getClassObject(REFCLSID id, REFIID iid, void** result) const {
    return exported<HRESULT WINAPI(REFCLSID, REFIID, void**)>(module_, "DllGetClassObject")(id, iid, result);
}

HRESULT Dll::call(const char* name) const {
    return exported<HRESULT WINAPI()>(module_, name)();
}

HRESULT Dll::install(bool in) const {
    return exported<HRESULT WINAPI(BOOL, const wchar_t*)>(module_, "DllInstall")(in ? TRUE : FALSE, L"");
}

com::Ptr<IUnknown> Dll::make(REFCLSID id) const {
    com::Ptr<IClassFactory> factory;
    com::Ptr<IUnknown> object;
    if (FAILED(getClassObject(id, IID_IClassFactory, reinterpret_cast<void**>(factory.receive()))) ||
        FAILED(factory->CreateInstance(nullptr, IID_IUnknown, reinterpret_cast<void**>(object.receive())))) {
        return {};
    }
    return object;
}

} // namespace corvelle::host::test
