#include "base/file.h"

#include <cerrno>
#include <string>
#include <utility>

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace corvelle::base {

namespace {

namespace fs = std::filesystem;

FileError refused(ErrorNumber number) {
    return FileError(number);
}

#ifdef _WIN32

// What the new file takes over from the old one. Windows hands permissions down from the folder.
struct Permissions {
    static unsigned initialMode() { return 0666; }
};

Permissions permissionsOf(const fs::path&, const fs::file_status&) {
    return {};
}

void give(int, const Permissions&, const fs::path&) {}

void flushFolder(const fs::path&) {}

#else

struct Permissions {
    unsigned mode = 0666;
    std::optional<std::pair<uid_t, gid_t>> owner; // none where there is no old file

    // The old file's group may not be this process's: nobody else sees the new file before it is given away.
    unsigned initialMode() const { return owner ? mode & 0700 : mode; }
};

Permissions permissionsOf(const fs::path& path, const fs::file_status& status) {
    Permissions result;
    if (!fs::exists(status)) return result;
    // A new file could be renamed over one that this user may not write.
    struct stat found;
    if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0 || ::stat(path.c_str(), &found) != 0)
        throw fileErrorOfErrno(path);
    result.mode = found.st_mode & 07777;
    result.owner = {found.st_uid, found.st_gid};
    return result;
}

void give(int file, const Permissions& permissions, const fs::path& path) {
    if (!permissions.owner) return;
    struct stat now;
    if (::fstat(file, &now) != 0) throw fileErrorOfErrno(path);
    unsigned mode = permissions.mode;
    const auto [user, group] = *permissions.owner;
    if (now.st_uid != user || now.st_gid != group) {
        // Only root may give a file away; a set-user bit must not then work for the wrong user.
        if (::fchown(file, user, group) != 0 && ::fchown(file, static_cast<uid_t>(-1), group) != 0)
            mode &= 0777;
    }
    // A disk without permissions of its own shows every file with the same ones and lets none be set.
    if ((now.st_mode & 07777) != mode && ::fchmod(file, mode) != 0) throw fileErrorOfErrno(path);
}

// The file is replaced already and cannot be brought back, so a folder that cannot be flushed is no failure.
void flushFolder(const fs::path& folder) {
    const FileDescriptor opened = openToRead(folder);
    if (opened.isOpen()) flushToDisk(opened.number());
}

#endif

// What cannot be looked at need not be new: it may be a link, or have permissions to keep.
void requireKnown(const fs::file_status& status, const std::error_code& error, const fs::path& path) {
    if (status.type() == fs::file_type::none) throw fileErrorOf(error, path);
}

// The file that the path stands for: where a symbolic link points, else the path itself.
fs::path resolved(const fs::path& path) {
    std::error_code error;
    const auto status = fs::symlink_status(path, error);
    requireKnown(status, error, path);
    if (!fs::is_symlink(status)) return path;
    auto target = fs::canonical(path, error);
    if (error) throw fileErrorOf(error, path);
    return target;
}

// A new file in the folder, removed at the end of its life unless it has been renamed.
class TemporaryFile {
  public:
    TemporaryFile(const fs::path& folder, unsigned mode, const fs::path& target) {
        constexpr int attempts = 10000;
        for (int i = 0; i < attempts; ++i) {
            path_ = folder / (".corvelle" + std::to_string(i) + ".tmp");
            FileDescriptor file = openNew(path_, mode);
            if (file.isOpen()) {
                file_.emplace(std::move(file));
                return;
            }
            if (errno != EEXIST) throw fileErrorOfErrno(target);
        }
        throw refused(ErrorNumber::FileAlreadyExists);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (path_.empty()) return;
        file_->close();
        std::error_code ignored;
        fs::remove(path_, ignored);
    }

    int number() const { return file_->number(); }
    bool close() { return file_->close(); }
    void renameTo(const fs::path& target) {
        std::error_code error;
        fs::rename(path_, target, error);
        if (error) throw fileErrorOf(error, target);
        path_.clear();
    }

  private:
    fs::path path_;
    std::optional<FileDescriptor> file_;
};

void requireReplaceable(const fs::file_status& status) {
    if (!fs::exists(status)) return;
    if (!fs::is_regular_file(status) || isReadOnly(status)) throw refused(ErrorNumber::PathFileAccessError);
}

void requireUnchanged(const fs::path& target, const std::optional<FileStamp>& stamp) {
    FileStamp now;
    if (!stamp || (stampOf(target, now) && now == *stamp)) return;
    throw FileError(static_cast<std::int32_t>(ErrorNumber::PermissionDenied),
                    "the file was changed meanwhile");
}

} // namespace

void replaceFile(const fs::path& path, const std::function<void(FileWriter&)>& write,
                 const std::optional<FileStamp>& stamp) {
    const fs::path target = resolved(path);
    std::error_code error;
    const auto status = fs::status(target, error);
    requireKnown(status, error, path);
    requireReplaceable(status);
    const auto permissions = permissionsOf(target, status);

    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    TemporaryFile temporary(folder, permissions.initialMode(), target);
    FileWriter writer(temporary.number(), path);
    write(writer);
    writer.flush();
    give(temporary.number(), permissions, path);
    if (!flushToDisk(temporary.number()) || !temporary.close()) throw fileErrorOfErrno(path);
    requireUnchanged(target, stamp);
    temporary.renameTo(target);
    flushFolder(folder);
}

} // namespace corvelle::base
