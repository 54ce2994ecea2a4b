#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace corvelle::settings {

/// The path as EditorConfig asks for it: absolute, with slashes and without "." and "..".
std::string absolutePath(const std::filesystem::path& path);

/// Reads a settings file of the disk, for EditorConfig: none if there is no such file, which holds for all
/// above a drive or a share too. Throws base::FileError.
std::optional<std::string> readIfThere(const std::string& path);

} // namespace corvelle::settings
