#include "base/file_owner.h"

#include <sys/stat.h>
#include <unistd.h>

namespace corvelle::base {

bool isOwnOrFoldersOwners(const std::filesystem::path& path) {
    struct stat file, folder;
    if (::lstat(path.c_str(), &file) != 0) return false;
    return file.st_uid == ::geteuid() ||
           (::stat(path.parent_path().c_str(), &folder) == 0 && file.st_uid == folder.st_uid);
}

} // namespace corvelle::base
