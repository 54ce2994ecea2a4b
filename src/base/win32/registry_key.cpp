#include "base/win32/registry_key.h"

namespace corvelle::base {

RegistryKey RegistryKey::open(HKEY parent, const std::wstring& path, REGSAM rights) {
    RegistryKey opened;
    HKEY key = nullptr;
    if (RegOpenKeyExW(parent, path.c_str(), 0, rights, &key) == ERROR_SUCCESS) opened.key_.reset(key);
    return opened;
}

LONG RegistryKey::make(HKEY parent, const std::wstring& path, REGSAM rights) {
    HKEY key = nullptr;
    const LONG error = RegCreateKeyExW(parent, path.c_str(), 0, nullptr, 0, rights, nullptr, &key, nullptr);
    key_.reset(error == ERROR_SUCCESS ? key : nullptr);
    return error;
}

bool RegistryKey::has(const std::wstring& name) const {
    return key_ &&
           RegQueryValueExW(key_.get(), name.c_str(), nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

std::optional<std::wstring> RegistryKey::text(const std::wstring& name) const {
    DWORD type = 0, size = 0;
    if (!key_ ||
        RegQueryValueExW(key_.get(), name.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS ||
        type != REG_SZ) {
        return std::nullopt;
    }
    std::wstring value(size / sizeof(wchar_t), L'\0');
    size = static_cast<DWORD>(value.size() * sizeof(wchar_t));
    if (RegQueryValueExW(key_.get(), name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(value.data()),
                         &size) != ERROR_SUCCESS ||
        type != REG_SZ) {
        return std::nullopt;
    }
    value.resize(size / sizeof(wchar_t));
    return value.substr(0, value.find(L'\0')); // what is stored need not end in NUL, and may hold several
}

std::optional<DWORD> RegistryKey::number(const std::wstring& name) const {
    DWORD type = 0, value = 0, size = sizeof value;
    if (!key_ ||
        RegQueryValueExW(key_.get(), name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(&value), &size) !=
            ERROR_SUCCESS ||
        type != REG_DWORD) {
        return std::nullopt;
    }
    return value;
}

std::vector<std::wstring> RegistryKey::subkeys() const {
    std::vector<std::wstring> names;
    wchar_t name[256]; // the longest that the system allows
    for (DWORD length = 256;
         key_ && RegEnumKeyExW(key_.get(), static_cast<DWORD>(names.size()), name, &length, nullptr, nullptr,
                               nullptr, nullptr) == ERROR_SUCCESS;
         length = 256) {
        names.emplace_back(name, length);
    }
    return names;
}

LONG RegistryKey::set(const std::wstring& name, const std::wstring& value) const {
    const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    return RegSetValueExW(key_.get(), name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                          size);
}

LONG RegistryKey::set(const std::wstring& name, DWORD value) const {
    return RegSetValueExW(key_.get(), name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value),
                          sizeof value);
}

LONG RegistryKey::removeValue(const std::wstring& name) const {
    const LONG error = RegDeleteValueW(key_.get(), name.c_str());
    return error == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : error;
}

LONG RegistryKey::remove(HKEY parent, const std::wstring& path) {
    const auto key = open(parent, path, KEY_ENUMERATE_SUB_KEYS);
    for (const auto& name : key.subkeys()) {
        if (const LONG error = remove(key.key_.get(), name); error != ERROR_SUCCESS) return error;
    }
    const LONG error = RegDeleteKeyW(parent, path.c_str());
    return error == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : error;
}

void RegistryKey::removeIfEmpty(HKEY parent, const std::wstring& path) {
    DWORD keys = 0, values = 0;
    if (const auto key = open(parent, path, KEY_QUERY_VALUE);
        !key || RegQueryInfoKeyW(key.key_.get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                                 nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
        return;
    }
    if (keys == 0 && values == 0) RegDeleteKeyW(parent, path.c_str());
}

} // namespace corvelle::base
