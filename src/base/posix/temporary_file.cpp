#include "base/temporary_file.h"

#include "base/file_error.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvelle::base {

namespace fs = std::filesystem;

FileProperties FileProperties::of(const fs::path& path, const fs::file_status& status) {
    FileProperties result;
    if (!fs::exists(status)) return result;
    // A new file could be renamed over one that this user may not write.
    struct stat found;
    if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0 || ::stat(path.c_str(), &found) != 0)
        throw fileErrorOfErrno(path);
    result.mode = found.st_mode & 07777;
    result.owner = {found.st_uid, found.st_gid};
    return result;
}

void FileProperties::giveTo(int file, const fs::path& path) const {
    if (!owner) return;
    struct stat now;
    if (::fstat(file, &now) != 0) throw fileErrorOfErrno(path);
    unsigned given = mode;
    const auto [user, group] = *owner;
    if (now.st_uid != user || now.st_gid != group) {
        // Only root may give a file away; a set-user bit must not then work for the wrong user.
        if (::fchown(file, user, group) != 0 && ::fchown(file, static_cast<uid_t>(-1), group) != 0)
            given &= 0777;
    }
    // A disk without permissions of its own shows every file with the same ones and lets none be set.
    if ((now.st_mode & 07777) != given && ::fchmod(file, given) != 0) throw fileErrorOfErrno(path);
}

// The file is replaced already and cannot be brought back, so a folder that cannot be flushed is no failure.
void flushFolder(const fs::path& folder) {
    const FileDescriptor opened = openToRead(folder);
    if (opened.isOpen()) flushToDisk(opened.number());
}

} // namespace corvelle::base
