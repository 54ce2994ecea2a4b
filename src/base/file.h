#pragma once

#include "base/file_descriptor.h"
#include "base/file_error.h"

#include <cstddef>
#include <cstring>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

// Whole files, as bytes. Each function throws FileError.
namespace corvelle::base {

/// Looks at the first 64 KiB of a file, or all of it, and throws if the rest need not be read.
using FirstBlockCheck = std::function<void(std::string_view)>;

/// The whole file; at most 4 GiB - 1 bytes. What is no file (a FIFO, a device, ...) is not opened but refused
/// (75): nothing waits for another program. Takes the file's stamp before reading where one is asked for, so
/// that a change during the reading shows as well.
std::string readFile(const std::filesystem::path& path, FileStamp* stamp = nullptr,
                     const FirstBlockCheck& check = {});

/// The file's stamp; none if there is no such file.
std::optional<FileStamp> stampIfThere(const std::filesystem::path& path);

/// What is left on standard input, as bytes; at most 4 GiB - 1.
std::string readStandardInput();

/// Gathers what is written to an open file, so that a line costs a copy and not a system call.
class FileWriter {
  public:
    /// The path is the one that errors are about. What is not flushed at the end of the life is lost.
    FileWriter(int file, const std::filesystem::path& path);

    void write(std::string_view bytes) {
        if (bytes.size() > capacity - used_) return writeSlowly(bytes);
        // An empty view may have no address at all.
        if (!bytes.empty()) std::memcpy(buffer_.get() + used_, bytes.data(), bytes.size());
        used_ += bytes.size();
    }
    /// Hands over to the system what has been gathered.
    void flush();

  private:
    static constexpr std::size_t capacity = std::size_t{1} << 16;

    void writeSlowly(std::string_view bytes);

    int file_;
    const std::filesystem::path& path_;
    std::unique_ptr<char[]> buffer_;
    std::size_t used_ = 0;
};

/// How an old file may be replaced.
struct ReplaceOptions {
    std::optional<FileStamp> stamp{};          ///< refused (70) unless the file is in the state of its stamp
    std::optional<std::string_view> content{}; ///< with a stamp: and holds these bytes; they must live on
    bool breakLinks = false;                   ///< what other hard links show stays old; else refused (75)
    bool onlyNew = false;                      ///< refused (70) if there is a file
};

/// Puts a new file in the place of the old one at once: whoever reads the path sees the whole old file or the
/// whole new one, after a crash too. A symbolic link keeps pointing to the file that is replaced; permissions
/// and, where allowed, the owner are the old file's. A path that does not exist yet becomes a new file. What
/// PendingFile refuses is refused. On any failure, one of `write` included, the old file is as it was and
/// nothing is left beside it.
void replaceFile(const std::filesystem::path& path, const std::function<void(FileWriter&)>& write,
                 const ReplaceOptions& options = {});

/// A file that is written from its start: created, or truncated, by the constructor. A file without any write
/// permission is refused (75), whoever asks. What has been written reaches the file at the latest at the end
/// of the object's life; only `close` tells whether it did.
class OutputFile {
  public:
    explicit OutputFile(std::filesystem::path path);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void write(std::string_view bytes) { writer_.write(bytes); }
    void close();

  private:
    std::filesystem::path path_;
    FileDescriptor file_;
    FileWriter writer_;
};

/// Writes the bytes into the file, which is created or truncated. A file without any write permission is
/// refused (75), whoever asks.
void writeFile(const std::filesystem::path& path, std::string_view bytes);

} // namespace corvelle::base
