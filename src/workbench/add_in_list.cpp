#include "workbench/add_in_list.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/win32/code_page.h"
#include "base/win32/registry_key.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace corvelle::workbench {

namespace {

using base::RegistryKey;

const std::wstring listKey = L"Software\\Microsoft\\Visual Basic\\6.0\\Addins";
constexpr const char* iniFile = "vbaddin.ini";
constexpr const char* iniSection = "Add-Ins32";
constexpr const wchar_t* loadBehavior = L"LoadBehavior";
constexpr DWORD startupBit = 1; // of LoadBehavior and of the number in the file

// What no text stands for is nowhere in the registry.
std::wstring wide(const std::string& text) {
    return base::wideText(text).value_or(L"?");
}

std::string textOf(const RegistryKey& key, const wchar_t* name = L"") {
    return base::messageText(key.text(name).value_or(L""));
}

bool isClass(const std::string& progId) {
    return static_cast<bool>(RegistryKey::open(HKEY_CLASSES_ROOT, wide(progId) + L"\\CLSID"));
}

std::vector<ListedAddIn>::iterator find(std::vector<ListedAddIn>& list, const std::string& progId) {
    return std::find_if(list.begin(), list.end(),
                        [&](const ListedAddIn& one) { return base::equalIgnoringCase(one.progId, progId); });
}

// An add-in that is in the list already keeps what stands there.
void addFrom(HKEY root, std::vector<ListedAddIn>& list) {
    for (const auto& name : RegistryKey::open(root, listKey).subkeys()) {
        const std::string progId = base::messageText(name);
        if (find(list, progId) != list.end()) continue;
        const auto key = RegistryKey::open(root, listKey + L"\\" + name);
        list.push_back({progId, textOf(key, L"FriendlyName"), textOf(key, L"Description"),
                        (key.number(loadBehavior).value_or(0) & startupBit) != 0});
    }
}

std::vector<std::string> iniEntries() {
    std::array<char, 32767> names{}; // the most that the system keeps of a section
    GetPrivateProfileStringA(iniSection, nullptr, "", names.data(), names.size(), iniFile);
    std::vector<std::string> entries;
    for (const char* name = names.data(); *name != '\0'; name += std::strlen(name) + 1)
        entries.emplace_back(name);
    return entries;
}

bool isInIni(const std::string& progId) {
    const auto entries = iniEntries();
    return std::any_of(entries.begin(), entries.end(),
                       [&](const std::string& name) { return base::equalIgnoringCase(name, progId); });
}

} // namespace

std::vector<ListedAddIn> listAddIns() {
    std::vector<ListedAddIn> list;
    addFrom(HKEY_CURRENT_USER, list);
    addFrom(HKEY_LOCAL_MACHINE, list);
    for (const auto& progId : iniEntries()) {
        const bool loads = (GetPrivateProfileIntA(iniSection, progId.c_str(), 0, iniFile) & startupBit) != 0;
        if (const auto listed = find(list, progId); listed != list.end()) {
            listed->onStartup |= loads;
        } else {
            list.push_back({progId, {}, {}, loads});
        }
    }
    for (const char* own : {"Corvelle.CodeFormatter", "Corvelle.ContextHelpIndexer"}) {
        if (isClass(own) && find(list, own) == list.end()) list.push_back({own, {}, {}, false});
    }
    for (auto& addIn : list) {
        if (addIn.description.empty())
            addIn.description = textOf(RegistryKey::open(HKEY_CLASSES_ROOT, wide(addIn.progId)));
        if (addIn.name.empty()) addIn.name = addIn.progId;
    }
    std::sort(list.begin(), list.end(), [](const ListedAddIn& a, const ListedAddIn& b) {
        return base::upper(a.name) < base::upper(b.name);
    });
    return list;
}

void setOnStartup(const std::string& progId, bool onStartup) {
    const bool inIni = isInIni(progId);
    const std::wstring path = listKey + L"\\" + wide(progId);
    bool kept = true;
    if (inIni)
        kept =
            WritePrivateProfileStringA(iniSection, progId.c_str(), onStartup ? "1" : "0", iniFile) != FALSE;
    const auto users = RegistryKey::open(HKEY_CURRENT_USER, path);
    const auto machines = RegistryKey::open(HKEY_LOCAL_MACHINE, path);
    if (users || machines || !inIni) {
        const DWORD before = (users ? users : machines).number(loadBehavior).value_or(0);
        const DWORD now = onStartup ? before | startupBit : before & ~startupBit;
        RegistryKey key;
        kept = key.make(HKEY_CURRENT_USER, path) == ERROR_SUCCESS &&
               key.set(loadBehavior, now) == ERROR_SUCCESS && kept;
    }
    if (!kept) throw base::RunTimeError(base::ErrorNumber::PathFileAccessError);
}

} // namespace corvelle::workbench
