#include "base/file_descriptor.h"

#include <algorithm>
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

namespace corvelle::base {

namespace {

constexpr std::size_t largestTransfer = std::size_t{1} << 30;

FileStamp stampFrom(const struct _stat64& status) {
    return {0, 0, static_cast<std::uint64_t>(status.st_size), status.st_mtime, 0};
}

} // namespace

FileDescriptor openToRead(const std::filesystem::path& path) {
    return FileDescriptor(_wopen(path.c_str(), _O_RDONLY | _O_BINARY | _O_NOINHERIT));
}

FileDescriptor openToTruncate(const std::filesystem::path& path) {
    return FileDescriptor(_wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_TRUNC | _O_BINARY | _O_NOINHERIT,
                                 _S_IREAD | _S_IWRITE));
}

FileDescriptor openNew(const std::filesystem::path& path, unsigned) {
    return FileDescriptor(_wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT,
                                 _S_IREAD | _S_IWRITE));
}

bool FileDescriptor::close() {
    const int number = number_;
    number_ = -1;
    return number < 0 || _close(number) == 0;
}

std::ptrdiff_t readSome(int file, char* buffer, std::size_t size) {
    return _read(file, buffer, static_cast<unsigned>(std::min(size, largestTransfer)));
}

bool writeAll(int file, const char* bytes, std::size_t size) {
    while (size > 0) {
        const auto written = _write(file, bytes, static_cast<unsigned>(std::min(size, largestTransfer)));
        if (written < 0) return false;
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

bool flushToDisk(int file) {
    return _commit(file) == 0;
}

std::string_view whatInsteadOfFile(int file) {
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(file));
    return GetFileType(handle) == FILE_TYPE_DISK ? std::string_view() : "a device";
}

bool stampOf(int file, FileStamp& stamp) {
    struct _stat64 status;
    if (_fstat64(file, &status) != 0) return false;
    stamp = stampFrom(status);
    return true;
}

bool stampOf(const std::filesystem::path& path, FileStamp& stamp) {
    struct _stat64 status;
    if (_wstat64(path.c_str(), &status) != 0) return false;
    stamp = stampFrom(status);
    return true;
}

} // namespace corvelle::base
