#include "host/com/registered.h"

#include <gtest/gtest.h>
#include <initializer_list>

namespace corvelle::host::test {

namespace {

bool exists(const std::wstring& path) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
}

/// The keys below a path whose own names begin so.
void addKeys(std::vector<std::wstring>& found, const std::wstring& path, const std::wstring& beginning) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    wchar_t name[256];
    DWORD length = 256;
    for (DWORD i = 0;
         RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++i, length = 256) {
        const std::wstring text(name, length);
        if (CompareStringW(LOCALE_INVARIANT, NORM_IGNORECASE, text.c_str(),
                           static_cast<int>(std::min(text.size(), beginning.size())), beginning.c_str(),
                           static_cast<int>(beginning.size())) == CSTR_EQUAL) {
            found.push_back(path + L"\\" + text);
        }
    }
    RegCloseKey(key);
}

} // namespace

Registered::Registered() {
    EXPECT_EQ(dll_.registerServer(), S_OK);
}

Registered::~Registered() {
    CoFreeUnusedLibraries();
    EXPECT_EQ(dll_.unregisterServer(), S_OK);
    EXPECT_EQ(traces(), std::vector<std::wstring>());
    EXPECT_EQ(dll_.canUnloadNow(), S_OK);
}

std::vector<std::wstring> Registered::traces() {
    std::vector<std::wstring> found;
    addKeys(found, L"", L"Corvelle.");
    for (const wchar_t* path :
         {L"CLSID\\{62F4B4DF-0200-11D9-B84C-9DC4C37C905E}", L"CLSID\\{07C23A6F-E632-4DEC-B20D-1FA0D767854A}",
          L"CLSID\\{435CCC43-251D-4D82-91FC-F439ECF3F35C}",
          L"TypeLib\\{62F4B4DD-0200-11D9-B84C-9DC4C37C905E}",
          L"Interface\\{6D72C108-BF9E-45BD-BBE8-F70BEC0F7544}",
          L"Interface\\{0553F03D-4F0B-497B-9832-A30160A7A5A7}",
          L"Interface\\{DD83CAF6-189D-4075-9245-C48364BD5DC8}",
          L"Interface\\{56E317F1-35DE-44D2-A1B0-3BBA706F31AD}"}) {
        if (exists(path)) found.push_back(path);
    }
    return found;
}

} // namespace corvelle::host::test
