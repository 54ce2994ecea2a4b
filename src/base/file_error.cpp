#include "base/file_error.h"

#include "base/paths.h"

#include <cerrno>
#include <new>
#include <utility>

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

// The outermost folder of the path that is not there.
std::filesystem::path missingFolder(const std::filesystem::path& path) {
    auto folder = path.parent_path();
    while (folder.has_relative_path() && !folderIsThere(folder)) folder = folder.parent_path();
    return folder;
}

std::string missing(const std::filesystem::path& path) {
    std::string text = describeError(static_cast<std::int32_t>(ErrorNumber::PathNotFound));
    try {
        return text + ": " + textOf(missingFolder(path));
    } catch (const RunTimeError&) { // it has a character that no text can show
        return text;
    }
}

std::string reasonFor(const std::error_code& code, ErrorNumber number, const std::filesystem::path& path) {
    switch (code.default_error_condition().value()) {
    case EISDIR:
        return notAFile("a folder").reason();
    case ELOOP:
        return "symbolic links that lead in a circle";
    case ENAMETOOLONG:
        return "the name is too long";
    case EMFILE:
    case ENFILE:
        return "too many open files";
    case ENOMEM:
        return describeError(static_cast<std::int32_t>(ErrorNumber::OutOfMemory));
    case EROFS:
        return "the disk is read-only";
    case EFBIG:
        return "the file would be too large";
#ifdef EDQUOT
    case EDQUOT:
        return "the user's share of the disk is used up";
#endif
    case EIO:
        break;
    default:
        if (number == ErrorNumber::PathNotFound) return missing(path);
        if (number == ErrorNumber::DeviceIOError) return code.message();
    }
    if (number == ErrorNumber::PathFileAccessError) return notAFile("a folder").reason();
    return describeError(static_cast<std::int32_t>(number));
}

} // namespace

FileError::FileError(ErrorNumber number) : RunTimeError(number), reason_(description()) {}

FileError::FileError(ErrorNumber number, std::string reason)
    : RunTimeError(number), reason_(std::move(reason)) {}

FileError::FileError(std::int32_t number, std::string description)
    : RunTimeError(number, std::move(description)), reason_(this->description()) {}

FileError fileErrorOf(const std::error_code& code, const std::filesystem::path& path) {
    const auto number = numberOf(code.default_error_condition().value(), path);
    return {number, reasonFor(code, number, path)};
}

FileError fileErrorOfErrno(const std::filesystem::path& path) {
    return fileErrorOf(std::error_code(errno, std::generic_category()), path);
}

std::string reasonOf(const std::exception& error) {
    if (const auto* ofFile = dynamic_cast<const FileError*>(&error)) return ofFile->reason();
    if (dynamic_cast<const std::bad_alloc*>(&error))
        return describeError(static_cast<std::int32_t>(ErrorNumber::OutOfMemory));
    return error.what();
}

bool isReadOnly(const std::filesystem::file_status& status) {
    using std::filesystem::perms;
    constexpr auto anyWrite = perms::owner_write | perms::group_write | perms::others_write;
    return std::filesystem::is_regular_file(status) && (status.permissions() & anyWrite) == perms::none;
}

std::string_view whatInsteadOfFile(const std::filesystem::file_status& status) {
    using std::filesystem::file_type;
    switch (status.type()) {
    case file_type::directory:
        return "a folder";
    case file_type::fifo:
        return "a FIFO";
    case file_type::socket:
        return "a socket";
    case file_type::block:
    case file_type::character:
        return "a device";
    case file_type::unknown:
        return "something else";
    default:
        return {};
    }
}

FileError notAFile(std::string_view what) {
    return {ErrorNumber::PathFileAccessError, "this is " + std::string(what) + ", not a file"};
}

} // namespace corvelle::base
