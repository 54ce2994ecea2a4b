#include "base/file.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <exception>
#include <utility>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace corvelle::base {

namespace {

constexpr std::uint64_t largestFile = 0xFFFFFFFF;

FileError tooLarge() {
    return FileError(static_cast<std::int32_t>(ErrorNumber::OutOfMemory), "The file is larger than 4 GiB");
}

void requireFile(const std::filesystem::file_status& status) {
    if (const auto what = whatInsteadOfFile(status); !what.empty()) throw notAFile(what);
}

void requireWritable(const std::filesystem::file_status& status) {
    if (isReadOnly(status)) throw FileError(ErrorNumber::PathFileAccessError, "the file is read-only");
}

constexpr std::size_t firstBlock = std::size_t{1} << 16;

// Reads until the buffer is full or the file ends.
std::size_t fill(int file, std::string& bytes, std::size_t size, const std::filesystem::path& path) {
    while (size < bytes.size()) {
        const auto got = readSome(file, bytes.data() + size, bytes.size() - size);
        if (got < 0) throw fileErrorOfErrno(path);
        if (got == 0) break;
        size += static_cast<std::size_t>(got);
    }
    return size;
}

// Reads to the end. The expected size is a guess: right for most files, 0 for a pipe.
std::string readToEnd(int file, std::uint64_t expected, const std::filesystem::path& path,
                      const FirstBlockCheck& check = {}) {
    if (expected > largestFile && !check) throw tooLarge();
    // One byte more, so that the read that finds the end needs no more room.
    std::string bytes(static_cast<std::size_t>(
                          std::min<std::uint64_t>(expected > 0 ? expected + 1 : firstBlock, firstBlock)),
                      '\0');
    std::size_t size = fill(file, bytes, 0, path);
    if (check) check(std::string_view(bytes).substr(0, size));
    if (expected > largestFile) throw tooLarge();
    while (size == bytes.size()) {
        const bool grows = expected < size; // it tells no size, or has grown meanwhile
        bytes.resize(grows ? size * 2 : static_cast<std::size_t>(expected) + 1);
        size = fill(file, bytes, size, path);
        if (size > largestFile) throw tooLarge();
    }
    bytes.resize(size);
    return bytes;
}

FileDescriptor openOutput(const std::filesystem::path& path) {
    std::error_code ignored;
    requireWritable(std::filesystem::status(path, ignored));
    FileDescriptor file = openToTruncate(path);
    if (!file.isOpen()) throw fileErrorOfErrno(path);
    return file;
}

} // namespace

std::string readFile(const std::filesystem::path& path, FileStamp* stamp, const FirstBlockCheck& check) {
    // Before it is opened, which a device may notice; that it is no other by then is asked below.
    std::error_code ignored;
    requireFile(std::filesystem::status(path, ignored));
    FileStamp taken;
    const FileDescriptor file = openToRead(path);
    if (!file.isOpen() || !stampOf(file.number(), taken)) throw fileErrorOfErrno(path);
    if (const auto what = whatInsteadOfFile(file.number()); !what.empty()) throw notAFile(what);
    if (stamp) *stamp = taken;
    return readToEnd(file.number(), taken.size, path, check);
}

std::optional<FileStamp> stampIfThere(const std::filesystem::path& path) {
    FileStamp stamp;
    if (stampOf(path, stamp)) return stamp;
    if (errno == ENOENT || errno == ENOTDIR) return std::nullopt;
    throw fileErrorOfErrno(path);
}

std::string readStandardInput() {
#ifdef _WIN32
    _setmode(0, _O_BINARY);
#endif
    FileStamp stamp;
    const bool known = stampOf(0, stamp);
    return readToEnd(0, known ? stamp.size : 0, "-");
}

FileWriter::FileWriter(int file, const std::filesystem::path& path)
    : file_(file), path_(path), buffer_(std::make_unique<char[]>(capacity)) {}

void FileWriter::flush() {
    if (!writeAll(file_, buffer_.get(), used_)) throw fileErrorOfErrno(path_);
    used_ = 0;
}

void FileWriter::writeSlowly(std::string_view bytes) {
    flush();
    if (bytes.size() < capacity) return write(bytes);
    if (!writeAll(file_, bytes.data(), bytes.size())) throw fileErrorOfErrno(path_);
}

OutputFile::OutputFile(std::filesystem::path path)
    : path_(std::move(path)), file_(openOutput(path_)), writer_(file_.number(), path_) {}

OutputFile::~OutputFile() {
    if (!file_.isOpen()) return;
    try {
        writer_.flush();
    } catch (const std::exception&) {
        // Whoever wants to know calls close.
    }
}

void OutputFile::close() {
    writer_.flush();
    if (!file_.close()) throw fileErrorOfErrno(path_);
}

void writeFile(const std::filesystem::path& path, std::string_view bytes) {
    FileDescriptor file = openOutput(path);
    if (!writeAll(file.number(), bytes.data(), bytes.size()) || !file.close()) throw fileErrorOfErrno(path);
}

} // namespace corvelle::base
