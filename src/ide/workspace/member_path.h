#pragma once

#include <filesystem>
#include <string_view>

namespace corvelle::workspace {

/// Why a path that a project or a group names is not even looked at, told from its text alone, since a look
/// may log on to a computer or wake a device: "a path on the network", "a device's path". Empty for any other
/// path, and for one on the share or the device that `folder`, where the project stands, is on itself.
std::string_view whyNotLookedAt(std::string_view written, const std::filesystem::path& folder);

} // namespace corvelle::workspace
