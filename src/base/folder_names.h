#pragma once

#include <filesystem>
#include <vector>

namespace corvelle::base {

/// The names of all that stands in a folder, sorted. Of one that this user may not read there are none.
/// Throws FileError.
std::vector<std::filesystem::path> namesIn(const std::filesystem::path& folder);

} // namespace corvelle::base
