#pragma once

#include <filesystem>
#include <string_view>

namespace corvelle::base {

/// Writes a file that was not there before and that nobody may read or change who may not do so with the file
/// `like`; on Windows its rights are those of its folder. False, and nothing is done, if anything has the
/// name already, be it a link that leads nowhere. Throws FileError, and then nothing is left.
bool writeNewFile(const std::filesystem::path& path, std::string_view bytes,
                  const std::filesystem::path& like);

} // namespace corvelle::base
