#pragma once

#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <windows.h>

namespace corvelle::host {

/// A key of the registry. Failures throw HresultError.
class RegistryKey {
  public:
    /// Opens the key, or makes it.
    static RegistryKey make(HKEY root, const std::wstring& path);

    /// Writes a text; an empty name is the key's default value.
    void set(const std::wstring& name, const std::wstring& value) const;
    void set(const std::wstring& name, DWORD value) const;
    bool has(const std::wstring& name) const;

    /// A text under a key; none if it cannot be read.
    static std::optional<std::wstring> text(HKEY root, const std::wstring& path,
                                            const std::wstring& name = {});
    /// Deletes a key with all that is below it; one that is not there is fine.
    static void remove(HKEY root, const std::wstring& path);
    /// Deletes a value; one that is not there is fine.
    static void removeValue(HKEY root, const std::wstring& path, const std::wstring& name);
    /// Deletes a key that has become empty.
    static void removeIfEmpty(HKEY root, const std::wstring& path);

  private:
    struct Close {
        void operator()(HKEY key) const { RegCloseKey(key); }
    };
    using Handle = std::unique_ptr<std::remove_pointer_t<HKEY>, Close>;

    explicit RegistryKey(HKEY key) : key_(key) {}
    static Handle open(HKEY root, const std::wstring& path, REGSAM rights);

    Handle key_;
};

} // namespace corvelle::host
