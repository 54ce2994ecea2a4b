#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// Paths as 8-bit text, as project files hold them, file dialogs give them and messages show them. POSIX
// systems take the bytes as they are. Windows takes them in the machine's code page, whatever the locale of
// the program that this code runs in.
namespace corvelle::base {

/// The path that the text spells. Throws FileError 52 for bytes that the code page does not know.
std::filesystem::path pathOf(std::string_view text);

/// The path as text. Throws FileError 52 for a name that the code page cannot hold.
std::string textOf(const std::filesystem::path& path);

/// Whether two paths that differ in nothing but letter case at the most are one file's, as the system's disks
/// have it.
bool isSameName(const std::filesystem::path& a, const std::filesystem::path& b);

/// Whether both paths stand for the same file, which need not exist. Throws FileError when the disk fails to
/// tell.
bool isSamePath(const std::filesystem::path& a, const std::filesystem::path& b);

/// The names of all that stands in a folder, sorted. Of one that this user may not read there are none.
/// Throws FileError.
std::vector<std::filesystem::path> namesIn(const std::filesystem::path& folder);

} // namespace corvelle::base
