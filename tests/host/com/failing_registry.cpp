#include "host/com/failing_registry.h"

#include <cstring>

namespace corvelle::host::test {

namespace {

int untilFailure = 0;
bool anyFailed = false;

bool fails() {
    if (untilFailure <= 0 || --untilFailure > 0) return false;
    return anyFailed = true;
}

LONG WINAPI openKey(HKEY key, LPCSTR name, DWORD options, REGSAM access, PHKEY opened) {
    return fails() ? ERROR_ACCESS_DENIED : RegOpenKeyExA(key, name, options, access, opened);
}
LONG WINAPI createKey(HKEY key, LPCSTR name, DWORD reserved, LPSTR type, DWORD options, REGSAM access,
                      LPSECURITY_ATTRIBUTES security, PHKEY opened, LPDWORD disposition) {
    return fails()
               ? ERROR_ACCESS_DENIED
               : RegCreateKeyExA(key, name, reserved, type, options, access, security, opened, disposition);
}
LONG WINAPI queryValue(HKEY key, LPCSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size) {
    return fails() ? ERROR_ACCESS_DENIED : RegQueryValueExA(key, name, reserved, type, data, size);
}
LONG WINAPI setValue(HKEY key, LPCSTR name, DWORD reserved, DWORD type, const BYTE* data, DWORD size) {
    return fails() ? ERROR_ACCESS_DENIED : RegSetValueExA(key, name, reserved, type, data, size);
}

struct Replacement {
    const char* name;
    void* function;
    void* original;
};

Replacement replacements[] = {
    {"RegOpenKeyExA", reinterpret_cast<void*>(openKey), nullptr},
    {"RegCreateKeyExA", reinterpret_cast<void*>(createKey), nullptr},
    {"RegQueryValueExA", reinterpret_cast<void*>(queryValue), nullptr},
    {"RegSetValueExA", reinterpret_cast<void*>(setValue), nullptr},
};

// What the module reaches its imported functions by.
template <class Visit>
void forEachImport(HMODULE module, const Visit& visit) {
    const auto base = reinterpret_cast<BYTE*>(module);
    const auto dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto nt = reinterpret_cast<const IMAGE_NT_HEADERS32*>(base + dos->e_lfanew);
    const auto& directory = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    auto library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
    for (; library->Name != 0; ++library) {
        auto name = reinterpret_cast<const IMAGE_THUNK_DATA32*>(base + library->OriginalFirstThunk);
        auto place = reinterpret_cast<void**>(base + library->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++place) {
            if (IMAGE_SNAP_BY_ORDINAL32(name->u1.Ordinal)) continue;
            const auto import = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
            visit(reinterpret_cast<const char*>(import->Name), place);
        }
    }
}

void put(void** place, void* function) {
    DWORD before = 0;
    VirtualProtect(place, sizeof *place, PAGE_READWRITE, &before);
    *place = function;
    VirtualProtect(place, sizeof *place, before, &before);
}

} // namespace

FailingRegistry::FailingRegistry(HMODULE module, int n) : module_(module) {
    untilFailure = n;
    anyFailed = false;
    forEachImport(module_, [](const char* name, void** place) {
        for (Replacement& replacement : replacements) {
            if (std::strcmp(name, replacement.name) != 0) continue;
            replacement.original = *place;
            put(place, replacement.function);
        }
    });
}

FailingRegistry::~FailingRegistry() {
    untilFailure = 0;
    forEachImport(module_, [](const char* name, void** place) {
        for (const Replacement& replacement : replacements) {
            if (std::strcmp(name, replacement.name) == 0) put(place, replacement.original);
        }
    });
}

bool FailingRegistry::failed() const {
    return anyFailed;
}

} // namespace corvelle::host::test
