#include "workbench/add_in_list.h"

#include "base/run_time_error.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>
#include <windows.h>

namespace corvelle::workbench {

namespace {

const std::string listKey = "Software\\Microsoft\\Visual Basic\\6.0\\Addins";
constexpr const char* iniFile = "vbaddin.ini";
constexpr const char* iniSection = "Add-Ins32";
constexpr const char* loadBehavior = "LoadBehavior";
constexpr DWORD startupBit = 1; // of LoadBehavior and of the number in the file

/// A key of the registry, open as long as the object lives; empty where it could not be opened.
class Key {
  public:
    Key(HKEY root, const std::string& path, REGSAM access = KEY_READ) {
        if (RegOpenKeyExA(root, path.c_str(), 0, access, &key_) != ERROR_SUCCESS) key_ = nullptr;
    }
    static Key create(HKEY root, const std::string& path) {
        Key made;
        if (RegCreateKeyExA(root, path.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &made.key_,
                            nullptr) != ERROR_SUCCESS) {
            made.key_ = nullptr;
        }
        return made;
    }
    Key(Key&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key() {
        if (key_ != nullptr) RegCloseKey(key_);
    }
    explicit operator bool() const { return key_ != nullptr; }

    std::string text(const char* name) const {
        std::array<char, 1024> text{};
        DWORD size = text.size() - 1; // what is stored need not end with NUL
        DWORD type = 0;
        if (key_ == nullptr ||
            RegQueryValueExA(key_, name, nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &size) !=
                ERROR_SUCCESS) {
            return {};
        }
        return type == REG_SZ ? std::string(text.data()) : std::string();
    }
    DWORD number(const char* name) const {
        DWORD number = 0;
        DWORD size = sizeof number;
        DWORD type = 0;
        if (key_ == nullptr || RegQueryValueExA(key_, name, nullptr, &type, reinterpret_cast<BYTE*>(&number),
                                                &size) != ERROR_SUCCESS) {
            return 0;
        }
        return type == REG_DWORD ? number : 0;
    }
    bool setNumber(const char* name, DWORD number) const {
        return key_ != nullptr &&
               RegSetValueExA(key_, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number),
                              sizeof number) == ERROR_SUCCESS;
    }
    std::vector<std::string> subkeys() const {
        std::vector<std::string> names;
        std::array<char, 256> name{};
        while (key_ != nullptr && RegEnumKeyA(key_, static_cast<DWORD>(names.size()), name.data(),
                                              name.size()) == ERROR_SUCCESS) {
            names.emplace_back(name.data());
        }
        return names;
    }

  private:
    Key() = default;

    HKEY key_ = nullptr;
};

bool isClass(const std::string& progId) {
    return static_cast<bool>(Key(HKEY_CLASSES_ROOT, progId + "\\CLSID"));
}

std::vector<ListedAddIn>::iterator find(std::vector<ListedAddIn>& list, const std::string& progId) {
    return std::find_if(list.begin(), list.end(),
                        [&](const ListedAddIn& one) { return base::equalIgnoringCase(one.progId, progId); });
}

// An add-in that is in the list already keeps what stands there.
void addFrom(HKEY root, std::vector<ListedAddIn>& list) {
    for (const auto& progId : Key(root, listKey).subkeys()) {
        if (find(list, progId) != list.end()) continue;
        const Key key(root, listKey + "\\" + progId);
        list.push_back({progId, key.text("FriendlyName"), key.text("Description"),
                        (key.number(loadBehavior) & startupBit) != 0});
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
        if (addIn.description.empty()) addIn.description = Key(HKEY_CLASSES_ROOT, addIn.progId).text("");
        if (addIn.name.empty()) addIn.name = addIn.progId;
    }
    std::sort(list.begin(), list.end(), [](const ListedAddIn& a, const ListedAddIn& b) {
        return base::upper(a.name) < base::upper(b.name);
    });
    return list;
}

void setOnStartup(const std::string& progId, bool onStartup) {
    const bool inIni = isInIni(progId);
    const std::string path = listKey + "\\" + progId;
    bool kept = true;
    if (inIni)
        kept =
            WritePrivateProfileStringA(iniSection, progId.c_str(), onStartup ? "1" : "0", iniFile) != FALSE;
    const Key users(HKEY_CURRENT_USER, path);
    const Key machines(HKEY_LOCAL_MACHINE, path);
    if (users || machines || !inIni) {
        const DWORD before = users ? users.number(loadBehavior) : machines.number(loadBehavior);
        const DWORD now = onStartup ? before | startupBit : before & ~startupBit;
        kept = Key::create(HKEY_CURRENT_USER, path).setNumber(loadBehavior, now) && kept;
    }
    if (!kept) throw base::RunTimeError(base::ErrorNumber::PathFileAccessError);
}

} // namespace corvelle::workbench
