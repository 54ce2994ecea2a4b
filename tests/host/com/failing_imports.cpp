#include "host/com/failing_imports.h"

#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <io.h>

namespace corvelle::host::test {

namespace {

int untilFailure = 0;
bool anyFailed = false;

bool fails() {
    if (untilFailure <= 0 || --untilFailure > 0) return false;
    return anyFailed = true;
}

LONG WINAPI openKey(HKEY key, LPCWSTR name, DWORD options, REGSAM access, PHKEY opened) {
    return fails() ? ERROR_ACCESS_DENIED : RegOpenKeyExW(key, name, options, access, opened);
}
LONG WINAPI createKey(HKEY key, LPCWSTR name, DWORD reserved, LPWSTR type, DWORD options, REGSAM access,
                      LPSECURITY_ATTRIBUTES security, PHKEY opened, LPDWORD disposition) {
    return fails()
               ? ERROR_ACCESS_DENIED
               : RegCreateKeyExW(key, name, reserved, type, options, access, security, opened, disposition);
}
LONG WINAPI queryValue(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size) {
    return fails() ? ERROR_ACCESS_DENIED : RegQueryValueExW(key, name, reserved, type, data, size);
}
LONG WINAPI setValue(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data, DWORD size) {
    return fails() ? ERROR_ACCESS_DENIED : RegSetValueExW(key, name, reserved, type, data, size);
}

int fileFailed() {
    errno = EIO;
    return -1;
}
int openFile(const wchar_t* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const int mode = va_arg(rest, int); // read by nobody who did not pass it
    va_end(rest);
    return fails() ? fileFailed() : _wopen(path, flags, mode);
}
int readFile(int file, void* buffer, unsigned size) {
    return fails() ? fileFailed() : _read(file, buffer, size);
}
int writeFile(int file, const void* buffer, unsigned size) {
    return fails() ? fileFailed() : _write(file, buffer, size);
}
int closeFile(int file) {
    const int closed = _close(file); // it is closed whatever is said
    return fails() ? fileFailed() : closed;
}
BOOL WINAPI moveFile(LPCWSTR from, LPCWSTR to, DWORD flags) {
    if (!fails()) return MoveFileExW(from, to, flags);
    SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
}

struct Replacement {
    Imports kind;
    const char* name;
    void* function;
    void* original;
};

Replacement replacements[] = {
    {Imports::Registry, "RegOpenKeyExW", reinterpret_cast<void*>(openKey), nullptr},
    {Imports::Registry, "RegCreateKeyExW", reinterpret_cast<void*>(createKey), nullptr},
    {Imports::Registry, "RegQueryValueExW", reinterpret_cast<void*>(queryValue), nullptr},
    {Imports::Registry, "RegSetValueExW", reinterpret_cast<void*>(setValue), nullptr},
    {Imports::Files, "_wopen", reinterpret_cast<void*>(openFile), nullptr},
    {Imports::Files, "_read", reinterpret_cast<void*>(readFile), nullptr},
    {Imports::Files, "_write", reinterpret_cast<void*>(writeFile), nullptr},
    {Imports::Files, "_close", reinterpret_cast<void*>(closeFile), nullptr},
    {Imports::Files, "MoveFileExW", reinterpret_cast<void*>(moveFile), nullptr},
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

FailingImports::FailingImports(HMODULE module, Imports kind, int n) : module_(module), kind_(kind) {
    untilFailure = n;
    anyFailed = false;
    forEachImport(module_, [this](const char* name, void** place) {
        for (Replacement& replacement : replacements) {
            if (replacement.kind != kind_ || std::strcmp(name, replacement.name) != 0) continue;
            replacement.original = *place;
            put(place, replacement.function);
        }
    });
}

FailingImports::~FailingImports() {
    untilFailure = 0;
    forEachImport(module_, [this](const char* name, void** place) {
        for (const Replacement& replacement : replacements) {
            if (replacement.kind == kind_ && std::strcmp(name, replacement.name) == 0)
                put(place, replacement.original);
        }
    });
}

bool FailingImports::failed() const {
    return anyFailed;
}

} // namespace corvelle::host::test
