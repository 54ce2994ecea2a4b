#include "base/file_properties.h"

#include "base/file_descriptor.h"
#include "base/file_error.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace corvelle::base {

namespace {

namespace fs = std::filesystem;

constexpr const char* accessList = "system.posix_acl_access";

// Attributes that speak of the old bytes, or give the file rights that a change of them ends.
bool isBoundToContent(const std::string& name) {
    return name == "security.capability" || name == "security.ima" || name == "security.evm";
}

// What a call writes that is asked for the size first. Less than none where there are no such things.
template <class Call>
std::string sized(const Call& call, const fs::path& path) {
    std::string bytes;
    while (true) {
        const auto size = call(nullptr, 0);
        if (size < 0 && (errno == ENOTSUP || errno == ENODATA || errno == ENOSYS)) return {};
        if (size < 0) throw fileErrorOfErrno(path);
        bytes.resize(static_cast<std::size_t>(size));
        if (size == 0) return bytes;
        const auto got = call(bytes.data(), bytes.size());
        if (got < 0 && errno == ERANGE) continue; // it has grown meanwhile
        if (got < 0) throw fileErrorOfErrno(path);
        bytes.resize(static_cast<std::size_t>(got));
        return bytes;
    }
}

using Attributes = std::vector<std::pair<std::string, std::string>>;

bool hasAccessList(const Attributes& attributes) {
    return std::any_of(attributes.begin(), attributes.end(),
                       [](const auto& attribute) { return attribute.first == accessList; });
}

FileError cannotKeepAccessList() {
    return {ErrorNumber::PermissionDenied, "its access list cannot be kept"};
}

Attributes attributesOf(const fs::path& path) {
    Attributes result;
    const auto names =
        sized([&](char* to, std::size_t size) { return ::listxattr(path.c_str(), to, size); }, path);
    for (std::size_t at = 0; at < names.size();) {
        const std::string name = names.c_str() + at;
        at += name.size() + 1;
        if (isBoundToContent(name)) continue;
        result.emplace_back(
            name, sized([&](char* to,
                            std::size_t size) { return ::getxattr(path.c_str(), name.c_str(), to, size); },
                        path));
    }
    return result;
}

void giveAttributes(int file, const Attributes& attributes, const fs::path& path) {
    for (const auto& [name, value] : attributes) {
        std::string now(value.size() + 1, '\0');
        const auto size = ::fgetxattr(file, name.c_str(), now.data(), now.size());
        if (size == static_cast<ssize_t>(value.size()) && now.compare(0, value.size(), value) == 0) continue;
        if (::fsetxattr(file, name.c_str(), value.data(), value.size(), 0) != 0)
            throw name == accessList ? cannotKeepAccessList()
                                     : FileError(ErrorNumber::PermissionDenied,
                                                 "its extended attribute " + name + " cannot be kept");
    }
    // The folder may give each new file an access list that the old one has not.
    if (!hasAccessList(attributes) && ::fremovexattr(file, accessList) != 0 && errno != ENODATA &&
        errno != ENOTSUP && errno != ENOSYS)
        throw fileErrorOfErrno(path);
}

} // namespace

FileProperties FileProperties::of(const fs::path& path, const fs::file_status& status, bool breakLinks) {
    FileProperties result;
    if (!fs::exists(status)) return result;
    // A new file could be renamed over one that this user may not write.
    struct stat found;
    if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0 || ::stat(path.c_str(), &found) != 0)
        throw fileErrorOfErrno(path);
    if (found.st_nlink > 1 && !breakLinks)
        throw FileError(ErrorNumber::PathFileAccessError, "the file has other hard links");
    result.mode = found.st_mode & 07777;
    result.owner = {found.st_uid, found.st_gid};
    result.attributes = attributesOf(path);
    return result;
}

void FileProperties::giveTo(int file, const fs::path& path) const {
    if (!owner) return;
    const auto [user, group] = *owner;
    struct stat now;
    if (::fstat(file, &now) != 0) throw fileErrorOfErrno(path);
    // Only root may give a file away, others at most to a group of theirs.
    if ((now.st_uid != user || now.st_gid != group) && ::fchown(file, user, group) != 0) [[maybe_unused]]
        const int groupAlone = ::fchown(file, static_cast<uid_t>(-1), group);
    if (::fstat(file, &now) != 0) throw fileErrorOfErrno(path);
    unsigned given = mode;
    // What a set bit does must not be done for another user or group than before, nor may another group have
    // more rights than everybody.
    if (now.st_uid != user) given &= ~static_cast<unsigned>(S_ISUID);
    if (now.st_gid != group) {
        given &= ~static_cast<unsigned>(S_ISGID);
        given &= ~070U | (given & 07U) << 3;
        if (hasAccessList(attributes)) throw cannotKeepAccessList();
    }
    giveAttributes(file, attributes, path);
    if (::fstat(file, &now) != 0) throw fileErrorOfErrno(path);
    // A disk without permissions of its own shows every file with the same ones and lets none be set.
    if ((now.st_mode & 07777) != given && ::fchmod(file, given) != 0) throw fileErrorOfErrno(path);
}

// The file is replaced already and cannot be brought back, so a folder that cannot be flushed is no failure.
void flushFolder(const fs::path& folder) {
    const FileDescriptor opened = openToRead(folder);
    if (opened.isOpen()) flushToDisk(opened.number());
}

bool isOwnOrFoldersOwners(const std::filesystem::path& path) {
    struct stat file, folder;
    if (::lstat(path.c_str(), &file) != 0) return false;
    return file.st_uid == ::geteuid() ||
           (::stat(path.parent_path().c_str(), &folder) == 0 && file.st_uid == folder.st_uid);
}

} // namespace corvelle::base
