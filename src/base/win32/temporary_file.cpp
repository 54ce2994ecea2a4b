#include "base/temporary_file.h"

#include "base/live_files.h"
#include "base/win32/last_error.h"

#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace corvelle::base {

namespace {

BOOL WINAPI removeAll(DWORD) {
    liveFiles::goAll([](const wchar_t* path) { DeleteFileW(path); });
    return FALSE; // the next handler ends the process
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
    FileStamp stamp;
    if (!stampOf(path, stamp) || !isTemporaryName(path.filename(), stamp)) return;
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
