#include "host/com/registry_key.h"

#include "com/error.h"

namespace corvelle::host {

namespace {

void require(LONG result) {
    if (result != ERROR_SUCCESS) throw com::HresultError(HRESULT_FROM_WIN32(static_cast<DWORD>(result)));
}

} // namespace

RegistryKey RegistryKey::make(HKEY root, const std::wstring& path) {
    HKEY key = nullptr;
    require(RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &key, nullptr));
    return RegistryKey(key);
}

RegistryKey::Handle RegistryKey::open(HKEY root, const std::wstring& path, REGSAM rights) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path.c_str(), 0, rights, &key) != ERROR_SUCCESS) return {};
    return Handle(key);
}

void RegistryKey::set(const std::wstring& name, const std::wstring& value) const {
    const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    require(RegSetValueExW(key_.get(), name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                           size));
}

void RegistryKey::set(const std::wstring& name, DWORD value) const {
    require(RegSetValueExW(key_.get(), name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value),
                           sizeof value));
}

bool RegistryKey::has(const std::wstring& name) const {
    return RegQueryValueExW(key_.get(), name.c_str(), nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

std::optional<std::wstring> RegistryKey::text(HKEY root, const std::wstring& path, const std::wstring& name) {
    const Handle key = open(root, path, KEY_QUERY_VALUE);
    DWORD type = 0, size = 0;
    if (!key || RegQueryValueExW(key.get(), name.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS ||
        type != REG_SZ) {
        return std::nullopt;
    }
    std::wstring value(size / sizeof(wchar_t), L'\0');
    size = static_cast<DWORD>(value.size() * sizeof(wchar_t));
    if (RegQueryValueExW(key.get(), name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(value.data()),
                         &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    value.resize(size / sizeof(wchar_t));
    return value.substr(0, value.find(L'\0'));
}

void RegistryKey::remove(HKEY root, const std::wstring& path) {
    for (;;) {
        const Handle key = open(root, path, KEY_ENUMERATE_SUB_KEYS);
        if (!key) break;
        wchar_t name[256];
        DWORD length = 256;
        if (RegEnumKeyExW(key.get(), 0, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
            break;
        }
        remove(key.get(), std::wstring(name, length));
    }
    const LONG result = RegDeleteKeyW(root, path.c_str());
    if (result != ERROR_FILE_NOT_FOUND) require(result);
}

void RegistryKey::removeValue(HKEY root, const std::wstring& path, const std::wstring& name) {
    const Handle key = open(root, path, KEY_SET_VALUE);
    if (!key) return;
    const LONG result = RegDeleteValueW(key.get(), name.c_str());
    if (result != ERROR_FILE_NOT_FOUND) require(result);
}

void RegistryKey::removeIfEmpty(HKEY root, const std::wstring& path) {
    DWORD keys = 0, values = 0;
    {
        const Handle key = open(root, path, KEY_QUERY_VALUE);
        if (!key || RegQueryInfoKeyW(key.get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                                     nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
            return;
        }
    }
    if (keys == 0 && values == 0) RegDeleteKeyW(root, path.c_str());
}

} // namespace corvelle::host
