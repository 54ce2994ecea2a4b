#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// Paths as 8-bit text, as project files hold them, file dialogs give them and messages show them. POSIX
// systems take the bytes as they are. Windows takes them in the machine's code page, whatever the locale of
// the program that this code runs in.
namespace corvelle::base {

/// The path that the text spells. Throws FileError 52 for bytes that the code page does not know.
std::filesystem::path pathOf(std::string_view text);

/// The path as text. Throws FileError 52 for a name that the code page cannot hold.
std::string textOf(const std::filesystem::path& path);

} // namespace corvelle::base
