#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvelle::base {

/// What a new file takes over from the one in whose place it comes. Both functions throw FileError. On
/// Windows there is nothing here: the call that puts a file in the place of another keeps what belongs to
/// that one.
struct FileProperties {
    unsigned mode = 0;
    std::optional<std::pair<unsigned, unsigned>> owner{}; ///< user and group; none where there is no old file
    std::vector<std::pair<std::string, std::string>> attributes{}; ///< extended ones, access lists among them

    /// Those of the file, which this user must be allowed to write; of none, nothing. A file
    /// with other hard links, which would keep the old bytes, is refused (75) unless they may be broken.
    static FileProperties of(const std::filesystem::path& path, const std::filesystem::file_status& status,
                             bool breakLinks);
    /// The mode to create the new file with: nobody else sees what comes in place of an old one before it is
    /// whole.
    unsigned initialMode() const { return owner ? 0600 : 0666; }
    /// Gives them to the open file. What cannot be kept is an error
    /// (70), but for the owner, whom only root may choose: then the rights that would go to the wrong user or
    /// group are left out. The path is the one that errors are about.
    void giveTo(int file, const std::filesystem::path& path) const;
};

/// Flushes a folder's names to the disk where the system can do it.
void flushFolder(const std::filesystem::path& folder);

/// Whether a file is this user's or that of its folder's owner, who may do with the folder's files what he
/// likes. Windows does not tell one user's files from another's: there, every file is.
bool isOwnOrFoldersOwners(const std::filesystem::path& path);

} // namespace corvelle::base
