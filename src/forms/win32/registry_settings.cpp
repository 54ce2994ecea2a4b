#include "forms/win32/registry_settings.h"

#include "base/run_time_error.h"

#include <memory>
#include <type_traits>
#include <windows.h>

namespace corvelle::forms {

namespace {

struct CloseKey {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, CloseKey>;

std::string path(const std::string& application, const std::string& section) {
    return "Software\\VB and VBA Program Settings\\" + application + "\\" + section;
}

} // namespace

std::string RegistrySettings::get(const std::string& application, const std::string& section,
                                  const std::string& key, const std::string& otherwise) {
    HKEY opened = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, path(application, section).c_str(), 0, KEY_QUERY_VALUE, &opened) !=
        ERROR_SUCCESS) {
        return otherwise;
    }
    const Key folder(opened);
    DWORD type = 0;
    DWORD size = 0;
    if (RegQueryValueExA(opened, key.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS ||
        type != REG_SZ) {
        return otherwise;
    }
    std::string value(size, '\0');
    if (RegQueryValueExA(opened, key.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(value.data()), &size) !=
            ERROR_SUCCESS ||
        type != REG_SZ) {
        return otherwise;
    }
    value.resize(size);
    return value.substr(0, value.find('\0')); // what is stored need not end in NUL, and may hold several
}

void RegistrySettings::save(const std::string& application, const std::string& section,
                            const std::string& key, const std::string& value) {
    HKEY opened = nullptr;
    LONG failed = RegCreateKeyExA(HKEY_CURRENT_USER, path(application, section).c_str(), 0, nullptr, 0,
                                  KEY_SET_VALUE, nullptr, &opened, nullptr);
    if (failed == ERROR_SUCCESS) {
        const Key folder(opened);
        failed = RegSetValueExA(opened, key.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                                static_cast<DWORD>(value.size() + 1));
    }
    if (failed == ERROR_ACCESS_DENIED) throw base::RunTimeError(base::ErrorNumber::PermissionDenied);
    if (failed != ERROR_SUCCESS) throw base::RunTimeError(base::ErrorNumber::InvalidProcedureCall);
}

} // namespace corvelle::forms
