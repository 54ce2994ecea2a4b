#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// Paths as 8-bit text, as project files hold them and messages show them. POSIX systems take the bytes as
// they are. Windows takes them in the code page of the program's locale (LC_CTYPE), which is the machine's
// once `setlocale(LC_CTYPE, "")` was called.
namespace corvelle::base {

/// The path that the text spells. Bytes that the code page does not know stand for the characters of their
/// value.
std::filesystem::path pathOf(std::string_view text);

/// The path as text. Throws FileError 52 for a name that the code page cannot hold.
std::string textOf(const std::filesystem::path& path);

} // namespace corvelle::base
