#pragma once

#include <filesystem>

namespace corvelle::base {

/// Whether a file is this user's or that of its folder's owner, who may do with the folder's files what he
/// likes. Windows does not tell one user's files from another's: there, every file is.
bool isOwnOrFoldersOwners(const std::filesystem::path& path);

} // namespace corvelle::base
