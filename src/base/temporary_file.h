#pragma once

#include "base/file_descriptor.h"

#include <filesystem>
#include <optional>

namespace corvelle::base {

/// A new file in a folder under a name that no other file has, removed at the end of its life unless it has
/// been let go. While it is open other runs leave it alone; those of runs that were killed are swept by the
/// first one that a later run makes in the same folder.
class TemporaryFile {
  public:
    /// The mode is that of POSIX, less the process's mask. Throws FileError about the target.
    TemporaryFile(const std::filesystem::path& folder, unsigned mode, const std::filesystem::path& target);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    const std::filesystem::path& path() const { return path_; }
    int number() const { return file_->number(); }
    bool close() { return file_->close(); }
    /// Before it changes names with the file of the stamp: gives it a name that tells whoever sweeps after a
    /// kill which of the two may be removed. A file of neither kind, which somebody wrote at that moment, is
    /// not. Throws FileError about the path.
    void prepareExchange(const FileStamp& old, const std::filesystem::path& path);
    /// That name. The file is open.
    std::filesystem::path exchangeName(const FileStamp& old, const std::filesystem::path& path) const;
    /// Whether it has the name still that it was made with.
    bool hasFirstName() const { return hasFirstName_; }
    /// It has got another name, or what stands under its own is not ours any more.
    void letGo();
    /// Whatever ends the process, the file stays until the next run.
    void surviveSignals();

  private:
    std::filesystem::path path_;
    std::optional<FileDescriptor> file_;
    int slot_ = -1;
    bool hasFirstName_ = true;
};

/// From now on a signal that ends the process (SIGINT, SIGTERM, SIGHUP; Ctrl-C, Ctrl-Break, the console's
/// close) removes the temporary files first. The process then ends as it would have ended.
void removeTemporaryFilesAtSignals();

// What each platform does in its own way.

/// Creates the file and keeps other runs from sweeping it; closed, with `errno`, if that could not be done.
FileDescriptor openTemporary(const std::filesystem::path& path, unsigned mode);
/// Whether the name is one that a TemporaryFile gives, and gives to a file of that stamp.
bool isTemporaryName(const std::filesystem::path& name, const FileStamp& stamp);
/// Removes the file if it is a temporary one of this user's that no process has open.
void sweep(const std::filesystem::path& path);
/// Tells one process from others that run at the same time.
std::uint64_t processNumber();

} // namespace corvelle::base
