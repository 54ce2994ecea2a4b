#include "base/file_descriptor.h"

#include "base/win32/last_error.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

namespace corvelle::base {

namespace {

constexpr std::size_t largestTransfer = std::size_t{1} << 30;

bool stampOf(HANDLE file, FileStamp& stamp) {
    BY_HANDLE_FILE_INFORMATION found;
    if (!GetFileInformationByHandle(file, &found)) return false;
    const auto joined = [](DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; };
    constexpr std::uint64_t second = 10000000; // of the 100 nanoseconds that the time is told in
    const auto time = joined(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime);
    stamp = {found.dwVolumeSerialNumber,
             joined(found.nFileIndexHigh, found.nFileIndexLow),
             joined(found.nFileSizeHigh, found.nFileSizeLow),
             static_cast<std::int64_t>(time / second),
             static_cast<std::int64_t>(time % second * 100),
             0};
    return true;
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
    if (stampOf(reinterpret_cast<HANDLE>(_get_osfhandle(file)), stamp)) return true;
    errno = errnoOfLastError();
    return false;
}

bool stampOf(const std::filesystem::path& path, FileStamp& stamp) {
    const HANDLE file =
        CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr); // which opens folders too
    const bool taken = file != INVALID_HANDLE_VALUE && stampOf(file, stamp);
    if (!taken) errno = errnoOfLastError();
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
    return taken;
}

} // namespace corvelle::base
