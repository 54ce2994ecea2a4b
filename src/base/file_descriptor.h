#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>

namespace corvelle::base {

/// What tells one state of a file from another. Two stamps are equal when nothing has written to the file
/// or put another in its place, as far as the disk's clock can tell.
struct FileStamp {
    std::uint64_t device = 0, inode = 0; ///< what makes it the file that it is, under any name
    std::uint64_t size = 0;
    std::int64_t seconds = 0, nanoseconds = 0; ///< when it was last written
    std::int64_t changed = 0; ///< when it or its name, owner, permissions were last changed; 0 on Windows

    bool operator==(const FileStamp&) const = default;
};

/// An open file, closed at the end of its life. Errors are in `errno`, as the system's calls leave them.
class FileDescriptor {
  public:
    FileDescriptor() = default;
    explicit FileDescriptor(int number) : number_(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : number_(other.number_) { other.number_ = -1; }
    FileDescriptor& operator=(FileDescriptor&& other) = delete;
    ~FileDescriptor() { close(); }

    bool isOpen() const { return number_ >= 0; }
    int number() const { return number_; }
    /// Whether the file is closed without an error.
    bool close();

  private:
    int number_ = -1;
};

/// The following give a closed descriptor when the file could not be opened. Opening to read waits for nobody
/// at the other end of a FIFO and takes no terminal for this process.
FileDescriptor openToRead(const std::filesystem::path& path);
FileDescriptor openToTruncate(const std::filesystem::path& path);
/// A file that did not exist before. The mode is that of POSIX, less the process's mask.
FileDescriptor openNew(const std::filesystem::path& path, unsigned mode);

/// Bytes read, 0 at the end of the file, -1 on failure. At most 1 GiB at once.
std::ptrdiff_t readSome(int file, char* buffer, std::size_t size);
/// Whether all the bytes were written.
bool writeAll(int file, const char* bytes, std::size_t size);
/// Whether the file's bytes have reached the disk.
bool flushToDisk(int file);
/// What is open instead of a file on a disk ("a folder", "a FIFO", "a socket", "a device"); empty for a file.
std::string_view whatInsteadOfFile(int file);
/// Whether the stamp could be taken.
bool stampOf(int file, FileStamp& stamp);
bool stampOf(const std::filesystem::path& path, FileStamp& stamp);

} // namespace corvelle::base
