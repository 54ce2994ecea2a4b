#include "base/file.h"

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

// Reads to the end. The expected size is a guess: right for most files, 0 for a pipe.
std::string readToEnd(int file, std::uint64_t expected, const std::filesystem::path& path) {
    if (expected > largestFile) throw tooLarge();
    // One byte more, so that the read that finds the end needs no more room.
    constexpr std::size_t guess = std::size_t{1} << 12;
    std::string bytes(expected > 0 ? static_cast<std::size_t>(expected) + 1 : guess, '\0');
    std::size_t size = 0;
    while (true) {
        const auto got = readSome(file, bytes.data() + size, bytes.size() - size);
        if (got < 0) throw fileErrorOfErrno(path);
        size += static_cast<std::size_t>(got);
        if (size > largestFile) throw tooLarge();
        if (got == 0) break;
        if (size == bytes.size()) bytes.resize(bytes.size() * 2);
    }
    bytes.resize(size);
    return bytes;
}

FileDescriptor openOutput(const std::filesystem::path& path) {
    std::error_code ignored;
    if (isReadOnly(std::filesystem::status(path, ignored))) throw FileError(ErrorNumber::PathFileAccessError);
    FileDescriptor file = openToTruncate(path);
    if (!file.isOpen()) throw fileErrorOfErrno(path);
    return file;
}

} // namespace

std::string readFile(const std::filesystem::path& path, FileStamp* stamp) {
    FileStamp taken;
    const FileDescriptor file = openToRead(path);
    if (!file.isOpen() || !stampOf(file.number(), taken)) throw fileErrorOfErrno(path);
    if (stamp) *stamp = taken;
    return readToEnd(file.number(), taken.size, path);
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
