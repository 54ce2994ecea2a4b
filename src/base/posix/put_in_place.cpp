#include "base/paths.h"
#include "base/pending_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace corvelle::base {

namespace {

namespace fs = std::filesystem;

// Whether the error says that the disk or the system does not know such a call.
bool isUnknown(int error) {
    return error == EINVAL || error == ENOSYS || error == ENOTSUP;
}

bool exchange(const fs::path& a, const fs::path& b) {
    return ::renameat2(AT_FDCWD, a.c_str(), AT_FDCWD, b.c_str(), RENAME_EXCHANGE) == 0;
}

bool holds(int file, std::string_view bytes) {
    std::array<char, 1 << 16> part;
    if (::lseek(file, 0, SEEK_SET) != 0) return false;
    while (true) {
        const auto got = readSome(file, part.data(), part.size());
        if (got <= 0) return got == 0 && bytes.empty();
        const auto size = static_cast<std::size_t>(got);
        if (bytes.substr(0, size) != std::string_view(part.data(), size)) return false;
        bytes.remove_prefix(size);
    }
}

// Whether the file is the one that was read. That it was renamed changes the time of its last change.
bool isWhatWasRead(const fs::path& displaced, int file, const ReplaceOptions& options) {
    FileStamp now;
    if (!stampOf(displaced, now)) return false;
    now.changed = options.stamp->changed;
    if (now != *options.stamp) return false;
    return !options.content || file < 0 || holds(file, *options.content);
}

void rename(TemporaryFile& temporary, const fs::path& target, const fs::path& path) {
    if (::rename(temporary.path().c_str(), target.c_str()) != 0) throw fileErrorOfErrno(path);
    temporary.letGo();
}

} // namespace

void putInPlace(TemporaryFile& temporary, const fs::path& target, const fs::path& path,
                const ReplaceOptions& options) {
    if (options.onlyNew &&
        ::renameat2(AT_FDCWD, temporary.path().c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0)
        return temporary.letGo();
    if (options.onlyNew && !isUnknown(errno))
        throw errno == EEXIST ? changedMeanwhile() : fileErrorOfErrno(path);
    if (!options.stamp) return rename(temporary, target, path);
    // Locked, the old file is not swept by another run while it bears our name.
    const FileDescriptor old(
        ::open(target.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (old.isOpen()) ::flock(old.number(), LOCK_SH | LOCK_NB);
    temporary.prepareExchange(*options.stamp, path);
    const fs::path displaced = temporary.path();
    if (!exchange(displaced, target)) {
        if (errno == ENOENT) throw changedMeanwhile();
        if (!isUnknown(errno)) throw fileErrorOfErrno(path);
        return rename(temporary, target, path);
    }
    temporary.letGo();
    if (isWhatWasRead(displaced, old.number(), options)) {
        ::unlink(displaced.c_str());
        return;
    }
    if (!exchange(displaced, target))
        throw FileError(ErrorNumber::PermissionDenied,
                        "the file was changed meanwhile; what somebody else wrote is in " +
                            textOf(displaced));
    temporary.close();
    sweep(displaced); // only if it is ours
    throw changedMeanwhile();
}

} // namespace corvelle::base
