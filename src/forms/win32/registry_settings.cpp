#include "forms/win32/registry_settings.h"

#include "base/run_time_error.h"
#include "base/win32/code_page.h"
#include "base/win32/registry_key.h"

namespace corvelle::forms {

namespace {

std::wstring wide(const std::string& text) {
    const auto converted = base::wideText(text);
    if (!converted) throw base::RunTimeError(base::ErrorNumber::InvalidProcedureCall);
    return *converted;
}

std::wstring path(const std::string& application, const std::string& section) {
    return L"Software\\VB and VBA Program Settings\\" + wide(application) + L"\\" + wide(section);
}

} // namespace

std::string RegistrySettings::get(const std::string& application, const std::string& section,
                                  const std::string& key, const std::string& otherwise) {
    const auto folder =
        base::RegistryKey::open(HKEY_CURRENT_USER, path(application, section), KEY_QUERY_VALUE);
    const auto value = folder.text(wide(key));
    return value ? base::messageText(*value) : otherwise;
}

void RegistrySettings::save(const std::string& application, const std::string& section,
                            const std::string& key, const std::string& value) {
    base::RegistryKey folder;
    LONG error = folder.make(HKEY_CURRENT_USER, path(application, section), KEY_SET_VALUE);
    if (error == ERROR_SUCCESS) error = folder.set(wide(key), wide(value));
    if (error == ERROR_ACCESS_DENIED) throw base::RunTimeError(base::ErrorNumber::PermissionDenied);
    if (error != ERROR_SUCCESS) throw base::RunTimeError(base::ErrorNumber::InvalidProcedureCall);
}

} // namespace corvelle::forms
