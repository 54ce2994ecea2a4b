#include "base/file_error.h"

#include <cerrno>

namespace corvelle::base {

namespace {

bool isFolder(const std::filesystem::path& path) {
    std::error_code ignored;
    return std::filesystem::is_directory(path, ignored);
}

bool folderIsThere(const std::filesystem::path& path) {
    const auto folder = path.parent_path();
    return folder.empty() || isFolder(folder);
}

ErrorNumber numberOf(int code, const std::filesystem::path& path) {
    switch (code) {
    case ENOENT:
        return folderIsThere(path) ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound;
    case ENOTDIR:
        return ErrorNumber::PathNotFound;
    case EISDIR:
        return ErrorNumber::PathFileAccessError;
    case EACCES:
    case EPERM:
    case EROFS:
    case ETXTBSY:
        // Windows answers "access denied" to the opening of a folder as well.
        return isFolder(path) ? ErrorNumber::PathFileAccessError : ErrorNumber::PermissionDenied;
    case ENOSPC:
    case EFBIG:
#ifdef EDQUOT
    case EDQUOT:
#endif
        return ErrorNumber::DiskFull;
    default:
        return ErrorNumber::DeviceIOError;
    }
}

} // namespace

FileError fileErrorOf(const std::error_code& code, const std::filesystem::path& path) {
    return FileError(numberOf(code.default_error_condition().value(), path));
}

FileError fileErrorOfErrno(const std::filesystem::path& path) {
    return fileErrorOf(std::error_code(errno, std::generic_category()), path);
}

bool isReadOnly(const std::filesystem::file_status& status) {
    using std::filesystem::perms;
    constexpr auto anyWrite = perms::owner_write | perms::group_write | perms::others_write;
    return std::filesystem::is_regular_file(status) && (status.permissions() & anyWrite) == perms::none;
}

} // namespace corvelle::base
