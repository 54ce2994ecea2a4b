#pragma once

#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>
#include <windows.h>

namespace corvelle::base {

/// A key of the registry, open as long as the object lives, or none. What reads finds nothing where there is
/// no key; what changes something gives the system's error, ERROR_SUCCESS once it is done. The empty name is
/// the key's default value.
class RegistryKey {
  public:
    RegistryKey() = default;
    /// None if it cannot be opened.
    static RegistryKey open(HKEY parent, const std::wstring& path, REGSAM rights = KEY_READ);
    /// Opens the key, or makes it.
    [[nodiscard]] LONG make(HKEY parent, const std::wstring& path, REGSAM rights = KEY_READ | KEY_WRITE);
    explicit operator bool() const { return key_ != nullptr; }

    bool has(const std::wstring& name) const;
    std::optional<std::wstring> text(const std::wstring& name = {}) const;
    std::optional<DWORD> number(const std::wstring& name) const;
    /// The names of the keys right below.
    std::vector<std::wstring> subkeys() const;

    [[nodiscard]] LONG set(const std::wstring& name, const std::wstring& value) const;
    [[nodiscard]] LONG set(const std::wstring& name, DWORD value) const;
    /// A value that is not there is fine.
    [[nodiscard]] LONG removeValue(const std::wstring& name) const;

    /// Deletes a key with all that is below it; one that is not there is fine.
    [[nodiscard]] static LONG remove(HKEY parent, const std::wstring& path);
    /// Deletes a key that has become empty.
    static void removeIfEmpty(HKEY parent, const std::wstring& path);

  private:
    struct Close {
        void operator()(HKEY key) const { RegCloseKey(key); }
    };

    std::unique_ptr<std::remove_pointer_t<HKEY>, Close> key_;
};

} // namespace corvelle::base
