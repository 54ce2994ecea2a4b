#include "host/com/add_in_entries.h"

#include "base/win32/registry_key.h"
#include "com/error.h"
#include "host/com/class_table.h"
#include "host/com/module.h"

#include <string>

namespace corvelle::host {

namespace {

using base::RegistryKey;
using com::hresultErrorUnlessSuccess;

const std::wstring visualBasic = L"Software\\Microsoft\\Visual Basic";
const std::wstring versionKey = visualBasic + L"\\6.0";
const std::wstring listKey = versionKey + L"\\Addins";
const wchar_t listFile[] = L"vbaddin.ini"; // in the Windows folder
const wchar_t listSection[] = L"Add-Ins32";
const std::wstring settingsKey = L"Software\\VB and VBA Program Settings";

struct Setting {
    std::wstring path, name, file;
};

const Setting settings[] = {
    {settingsKey + L"\\Trellis\\Configurations", L"Help File", L"FormatterHelp.chm"},
    {settingsKey + L"\\Trellis\\Indexer", L"ExcludeList_Path", L"exclude.lst"},
};

std::wstring besideModule(const std::wstring& file) {
    const std::wstring path = modulePath();
    return path.substr(0, path.find_last_of(L'\\') + 1) + file;
}

bool exists(const std::wstring& file) {
    return GetFileAttributesW(file.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool isNamed(const std::wstring& path, const std::wstring& name) {
    return lstrcmpiW(path.substr(path.find_last_of(L'\\') + 1).c_str(), name.c_str()) == 0;
}

void require(BOOL done) {
    if (!done) throw com::HresultError(HRESULT_FROM_WIN32(GetLastError()));
}

void enter(const ComClass& addIn) {
    RegistryKey key;
    hresultErrorUnlessSuccess(key.make(HKEY_CURRENT_USER, listKey + L"\\" + addIn.progId));
    hresultErrorUnlessSuccess(key.set(L"FriendlyName", addIn.description));
    hresultErrorUnlessSuccess(key.set(L"Description", addIn.description));
    hresultErrorUnlessSuccess(key.set(L"CommandLineSafe", DWORD{0}));
    if (!key.has(L"LoadBehavior")) hresultErrorUnlessSuccess(key.set(L"LoadBehavior", DWORD{0}));
    wchar_t line[16];
    if (GetPrivateProfileStringW(listSection, addIn.progId, L"", line, 16, listFile) == 0) {
        require(WritePrivateProfileStringW(listSection, addIn.progId, L"0", listFile));
    }
}

void remove(const ComClass& addIn) {
    hresultErrorUnlessSuccess(RegistryKey::remove(HKEY_CURRENT_USER, listKey + L"\\" + addIn.progId));
    wchar_t line[16];
    if (GetPrivateProfileStringW(listSection, addIn.progId, L"", line, 16, listFile) > 0) {
        require(WritePrivateProfileStringW(listSection, addIn.progId, nullptr, listFile));
    }
}

/// A list that has only ever been ours goes.
void removeEmptyFile() {
    wchar_t text[16];
    if (GetPrivateProfileSectionW(listSection, text, 16, listFile) > 0) return;
    WritePrivateProfileStringW(listSection, nullptr, nullptr, listFile);
    WritePrivateProfileStringW(nullptr, nullptr, nullptr, listFile); // onto the disk
    wchar_t folder[MAX_PATH];
    GetWindowsDirectoryW(folder, MAX_PATH);
    const std::wstring path = std::wstring(folder) + L"\\" + listFile;
    WIN32_FILE_ATTRIBUTE_DATA file{};
    constexpr DWORD blankLine = 2;
    if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &file) && file.nFileSizeLow <= blankLine) {
        DeleteFileW(path.c_str());
    }
}

} // namespace

void enterAddIns() {
    for (const ComClass& entry : classTable()) {
        if (!entry.isControl) enter(entry);
    }
}

void enterSettings() {
    for (const Setting& setting : settings) {
        const std::wstring file = besideModule(setting.file);
        if (!exists(file)) continue;
        const auto now = RegistryKey::open(HKEY_CURRENT_USER, setting.path).text(setting.name);
        if (now && !(isNamed(*now, setting.file) && !exists(*now))) continue;
        RegistryKey key;
        hresultErrorUnlessSuccess(key.make(HKEY_CURRENT_USER, setting.path));
        hresultErrorUnlessSuccess(key.set(setting.name, file));
    }
}

void removeAddIns() {
    for (const ComClass& entry : classTable()) {
        if (!entry.isControl) remove(entry);
    }
    removeEmptyFile();
    for (const std::wstring& path : {listKey, versionKey, visualBasic}) {
        RegistryKey::removeIfEmpty(HKEY_CURRENT_USER, path);
    }
    for (const Setting& setting : settings) {
        const auto key = RegistryKey::open(HKEY_CURRENT_USER, setting.path, KEY_READ | KEY_SET_VALUE);
        if (key.text(setting.name) == besideModule(setting.file))
            hresultErrorUnlessSuccess(key.removeValue(setting.name));
        RegistryKey::removeIfEmpty(HKEY_CURRENT_USER, setting.path);
    }
    for (const std::wstring& path : {settingsKey + L"\\Trellis", settingsKey}) {
        RegistryKey::removeIfEmpty(HKEY_CURRENT_USER, path);
    }
}

} // namespace corvelle::host
