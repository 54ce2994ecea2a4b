#pragma once

#include <filesystem>

namespace corvelle::base {

/// Whether both paths stand for the same file, which need not exist. Throws FileError when the disk fails to
/// tell.
bool isSamePath(const std::filesystem::path& a, const std::filesystem::path& b);

} // namespace corvelle::base
