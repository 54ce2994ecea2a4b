#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>

namespace corvelle::test {

/// Puts temporary folders, until the end of its life, where nothing waits for a disk, if there is such a
/// place.
class InMemory {
  public:
    InMemory();
    ~InMemory();
    InMemory(const InMemory&) = delete;
    InMemory& operator=(const InMemory&) = delete;
};

/// The files of a folder and the folders in it: bytes by relative path with "/".
using Files = std::map<std::string, std::string>;

/// The text with "#" in the place of a date with its time.
std::string withoutTime(std::string text);
/// What stands in the folder, with "#" in the place of dates with times.
Files filesIn(const std::filesystem::path& folder);
/// Empties the folder and writes the files, with permissions that a new file does not have.
void put(const std::filesystem::path& folder, const Files& files);

/// Whether every file is as it was or as it is to become, whole, and no other is there.
void expectOldOrNew(const Files& before, const Files& whole, const Files& now);

/// Whether the files that were put there have the permissions still.
void expectPermissionsKept(const std::filesystem::path& folder, const Files& before);

} // namespace corvelle::test
