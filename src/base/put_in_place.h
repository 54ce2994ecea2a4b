#pragma once

#include "base/file.h"
#include "base/temporary_file.h"

#include <filesystem>

namespace corvelle::base {

/// Gives the whole temporary file the target's place, where a file may stand or not, in one step. With a
/// stamp, a file that somebody has written since, up to that very step, is put back: error 70. Throws
/// FileError about the path.
void putInPlace(TemporaryFile& temporary, const std::filesystem::path& target,
                const std::filesystem::path& path, const ReplaceOptions& options);

/// The error for a file that is not what was read.
FileError changedMeanwhile();

} // namespace corvelle::base
