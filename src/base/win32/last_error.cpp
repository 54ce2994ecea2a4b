#include "base/win32/last_error.h"

#include <cerrno>
#include <system_error>
#include <windows.h>

namespace corvelle::base {

int errnoOfLastError() {
    switch (const auto error = GetLastError()) {
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return EEXIST;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_DIRECTORY:
        return ENOENT;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
        return EACCES;
    default:
        return std::error_code(static_cast<int>(error), std::system_category())
            .default_error_condition()
            .value();
    }
}

} // namespace corvelle::base
