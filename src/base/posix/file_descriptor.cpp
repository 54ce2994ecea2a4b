#include "base/file_descriptor.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvelle::base {

namespace {

// A call that a signal broke off is made again.
template <class Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

constexpr std::size_t largestTransfer = std::size_t{1} << 30;

FileStamp stampFrom(const struct stat& status) {
    return {status.st_dev,
            status.st_ino,
            static_cast<std::uint64_t>(status.st_size),
            status.st_mtim.tv_sec,
            status.st_mtim.tv_nsec,
            status.st_ctim.tv_sec * 1000000000 + status.st_ctim.tv_nsec};
}

} // namespace

FileDescriptor openToRead(const std::filesystem::path& path) {
    return FileDescriptor(
        uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
}

FileDescriptor openToTruncate(const std::filesystem::path& path) {
    return FileDescriptor(
        uninterrupted([&] { return ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666); }));
}

FileDescriptor openNew(const std::filesystem::path& path, unsigned mode) {
    return FileDescriptor(
        uninterrupted([&] { return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode); }));
}

bool FileDescriptor::close() {
    const int number = number_;
    number_ = -1;
    return number < 0 || ::close(number) == 0;
}

std::ptrdiff_t readSome(int file, char* buffer, std::size_t size) {
    return uninterrupted([&] { return ::read(file, buffer, std::min(size, largestTransfer)); });
}

bool writeAll(int file, const char* bytes, std::size_t size) {
    while (size > 0) {
        const auto written =
            uninterrupted([&] { return ::write(file, bytes, std::min(size, largestTransfer)); });
        if (written < 0) return false;
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

bool flushToDisk(int file) {
    return uninterrupted([&] { return ::fsync(file); }) == 0;
}

std::string_view whatInsteadOfFile(int file) {
    struct stat status;
    if (::fstat(file, &status) != 0 || S_ISREG(status.st_mode)) return {};
    if (S_ISDIR(status.st_mode)) return "a folder";
    if (S_ISFIFO(status.st_mode)) return "a FIFO";
    return S_ISSOCK(status.st_mode) ? "a socket" : "a device";
}

bool stampOf(int file, FileStamp& stamp) {
    struct stat status;
    if (::fstat(file, &status) != 0) return false;
    stamp = stampFrom(status);
    return true;
}

bool stampOf(const std::filesystem::path& path, FileStamp& stamp) {
    struct stat status;
    if (::stat(path.c_str(), &status) != 0) return false;
    stamp = stampFrom(status);
    return true;
}

} // namespace corvelle::base
