#include "host/com/registration.h"

#include "base/win32/registry_key.h"
#include "com/error.h"
#include "host/com/class_table.h"
#include "host/com/indicator/indicator_control.h"
#include "host/com/module.h"

#include <optional>
#include <string>

namespace corvelle::host {

namespace {

using base::RegistryKey;

// That a class may be used by late-bound callers, and that it is a control.
const std::wstring programmable = L"{40FC6ED5-2438-11CF-A3DB-080036F12502}";
const std::wstring control = L"{40FC6ED4-2438-11CF-A3DB-080036F12502}";

std::wstring textOf(REFGUID id) {
    wchar_t text[40];
    StringFromGUID2(id, text, 40);
    return text;
}

/// The type library's identity, as the registry has it.
class LibraryKey {
  public:
    LibraryKey() : library_(typeLibrary()) {
        TLIBATTR* attributes = nullptr;
        com::hresultErrorIfFailed(library_->GetLibAttr(&attributes));
        attributes_ = *attributes;
        library_->ReleaseTLibAttr(attributes);
    }

    ITypeLib* library() const { return library_.get(); }
    const TLIBATTR& attributes() const { return attributes_; }
    std::wstring id() const { return textOf(attributes_.guid); }
    std::wstring version() const {
        return std::to_wstring(attributes_.wMajorVerNum) + L"." + std::to_wstring(attributes_.wMinorVerNum);
    }
    std::wstring path() const { return L"TypeLib\\" + id(); }
    std::wstring versionPath() const { return path() + L"\\" + version(); }
    std::wstring filePath() const {
        wchar_t locale[16];
        wsprintfW(locale, L"%lx", attributes_.lcid);
        return versionPath() + L"\\" + locale + L"\\win32";
    }

  private:
    com::Ptr<ITypeLib> library_;
    TLIBATTR attributes_{};
};

std::wstring classPath(const ComClass& entry) {
    return L"CLSID\\" + textOf(entry.id);
}

void set(const std::wstring& path, const std::wstring& value, const std::wstring& name = {}) {
    RegistryKey key;
    com::hresultErrorUnlessSuccess(key.make(HKEY_CLASSES_ROOT, path));
    com::hresultErrorUnlessSuccess(key.set(name, value));
}

void remove(const std::wstring& path) {
    com::hresultErrorUnlessSuccess(RegistryKey::remove(HKEY_CLASSES_ROOT, path));
}

std::optional<std::wstring> registeredText(const std::wstring& path) {
    return RegistryKey::open(HKEY_CLASSES_ROOT, path).text();
}

bool isSame(const std::wstring& a, const std::wstring& b) {
    return lstrcmpiW(a.c_str(), b.c_str()) == 0;
}

// As one may write it in more ways than one, a path of a file that is there.
std::wstring longName(const std::wstring& path) {
    std::wstring name(GetLongPathNameW(path.c_str(), nullptr, 0), L'\0');
    const DWORD length = GetLongPathNameW(path.c_str(), name.data(), static_cast<DWORD>(name.size()));
    if (length == 0 || length >= name.size()) return path;
    return name.substr(0, length);
}

bool isSameFile(const std::wstring& a, const std::wstring& b) {
    return isSame(longName(a), longName(b));
}

/// What a container wants to know of a control before it makes one.
void registerControl(const std::wstring& path, const std::wstring& file) {
    set(path + L"\\Control", L"");
    set(path + L"\\MiscStatus", L"0");
    set(path + L"\\MiscStatus\\1", std::to_wstring(IndicatorControl::miscStatus));
    set(path + L"\\ToolboxBitmap32", file + L", 103");
    set(path + L"\\Implemented Categories\\" + control, L"");
}

void registerClass(const ComClass& entry, const LibraryKey& library, const std::wstring& file) {
    const std::wstring path = classPath(entry);
    const std::wstring progId = entry.progId;
    set(path, entry.description);
    set(path + L"\\InprocServer32", file);
    set(path + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
    set(path + L"\\ProgID", progId);
    set(path + L"\\TypeLib", library.id());
    set(path + L"\\Version", library.version());
    set(path + L"\\Programmable", L"");
    set(path + L"\\Implemented Categories\\" + programmable, L"");
    if (entry.isControl) registerControl(path, file);
    set(progId, entry.description);
    set(progId + L"\\CLSID", textOf(entry.id));
}

void unregisterClass(const ComClass& entry, const std::wstring& file) {
    const std::wstring path = classPath(entry);
    const auto registered = registeredText(path + L"\\InprocServer32");
    if (registered && !isSameFile(*registered, file)) return; // another copy's
    remove(path);
    const std::wstring progId = entry.progId;
    const auto id = registeredText(progId + L"\\CLSID");
    if (id && isSame(*id, textOf(entry.id))) remove(progId);
}

void unregisterTypeLibrary(const std::wstring& file) {
    const LibraryKey key;
    const auto registered = registeredText(key.filePath());
    if (!registered || !isSameFile(*registered, file)) return; // another copy's
    const TLIBATTR& of = key.attributes();
    com::hresultErrorIfFailed(
        UnRegisterTypeLib(of.guid, of.wMajorVerNum, of.wMinorVerNum, of.lcid, of.syskind));
    remove(key.versionPath()); // flags and folder
    RegistryKey::removeIfEmpty(HKEY_CLASSES_ROOT, key.path());
}

} // namespace

void registerServer() {
    const LibraryKey library;
    const std::wstring path = modulePath();
    std::wstring file = path;
    std::wstring helpFolder = path.substr(0, path.find_last_of(L'\\'));
    com::hresultErrorIfFailed(RegisterTypeLib(library.library(), file.data(), helpFolder.data()));
    for (const ComClass& entry : classTable()) registerClass(entry, library, path);
}

void unregisterServer() {
    const std::wstring file = modulePath();
    for (const ComClass& entry : classTable()) unregisterClass(entry, file);
    unregisterTypeLibrary(file);
}

} // namespace corvelle::host
