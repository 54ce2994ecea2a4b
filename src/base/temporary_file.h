#pragma once

#include "base/file_descriptor.h"

#include <filesystem>
#include <optional>
#include <utility>

namespace corvelle::base {

/// What a new file takes over from the one in whose place it comes. Both functions throw FileError.
struct FileProperties {
    unsigned mode = 0666;
    std::optional<std::pair<unsigned, unsigned>> owner{}; ///< user and group; none where there is no old file

    /// Those of the file, which this user must be allowed to write; of none, those of any new file.
    static FileProperties of(const std::filesystem::path& path, const std::filesystem::file_status& status);
    /// The mode to create the file with: until it is given away nobody but its maker sees it.
    unsigned initialMode() const { return owner ? mode & 0700 : mode; }
    /// Gives them to the open file. The path is the one that errors are about.
    void giveTo(int file, const std::filesystem::path& path) const;
};

/// Flushes a folder's names to the disk where the system can do it.
void flushFolder(const std::filesystem::path& folder);

/// A new file in a folder, removed at the end of its life unless it has been renamed.
class TemporaryFile {
  public:
    /// Errors are about the target.
    TemporaryFile(const std::filesystem::path& folder, unsigned mode, const std::filesystem::path& target);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    const std::filesystem::path& path() const { return path_; }
    int number() const { return file_->number(); }
    bool close() { return file_->close(); }
    void renameTo(const std::filesystem::path& target);
    /// Leaves the file, which is closed, where it is.
    void keep() { path_.clear(); }

  private:
    std::filesystem::path path_;
    std::optional<FileDescriptor> file_;
};

} // namespace corvelle::base
