#include "base/temporary_file.h"

#include "base/live_files.h"

#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <system_error>
#include <windows.h>

namespace corvelle::base {

namespace {

BOOL WINAPI removeAll(DWORD) {
    liveFiles::goAll([](const wchar_t* path) { DeleteFileW(path); });
    return FALSE; // the next handler ends the process
}

int errnoOfLastError() {
    switch (const auto error = static_cast<int>(GetLastError())) {
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return EEXIST;
    default:
        return std::error_code(error, std::system_category()).default_error_condition().value();
    }
}

} // namespace

// Others may rename and remove it, so that it can be removed while it is open here; the sweep, which wants it
// for itself alone, cannot have it.
FileDescriptor openTemporary(const std::filesystem::path& path, unsigned) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        errno = errnoOfLastError();
        return {};
    }
    const int number = _open_osfhandle(reinterpret_cast<std::intptr_t>(file), _O_BINARY | _O_NOINHERIT);
    if (number < 0) CloseHandle(file);
    return FileDescriptor(number);
}

void sweep(const std::filesystem::path& path) {
    const HANDLE file = CreateFileW(path.c_str(), DELETE, 0, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
}

std::uint64_t processNumber() {
    return GetCurrentProcessId();
}

void removeTemporaryFilesAtSignals() {
    SetConsoleCtrlHandler(removeAll, TRUE);
}

} // namespace corvelle::base
