#pragma once

#include <filesystem>

namespace corvelle::base {

/// Whether two paths that differ in nothing but letter case at the most are one file's, as the system's disks
/// have it.
bool isSameName(const std::filesystem::path& a, const std::filesystem::path& b);

} // namespace corvelle::base
