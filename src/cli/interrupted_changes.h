#pragma once

#include <filesystem>
#include <vector>

namespace corvelle::cli {

/// Puts right what runs that were killed have left of changes to several files with any of these, or files in
/// their folders, among them, and tells of it on standard error. The caller has the folders' lock. Throws
/// base::FileError.
void completeInterruptedChanges(const std::vector<std::filesystem::path>& files);

} // namespace corvelle::cli
