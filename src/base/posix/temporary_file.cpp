#include "base/temporary_file.h"

#include "base/live_files.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvelle::base {

namespace {

// Whether nobody else has it locked; a disk without locks says neither.
bool lock(int file) {
    return ::flock(file, LOCK_EX | LOCK_NB) == 0;
}

void removeAll(int signal) {
    const int error = errno;
    liveFiles::goAll([](const char* path) { ::unlink(path); });
    errno = error;
    // It is held back until this handler returns.
    ::signal(signal, SIG_DFL);
    ::raise(signal);
}

} // namespace

FileDescriptor openTemporary(const std::filesystem::path& path, unsigned mode) {
    FileDescriptor file = openNew(path, mode);
    if (!file.isOpen()) return file;
    struct stat status;
    // A sweep may have taken it for one that was left, before it was locked.
    if ((!lock(file.number()) && errno == EWOULDBLOCK) ||
        (::fstat(file.number(), &status) == 0 && status.st_nlink == 0)) {
        file.close();
        ::unlink(path.c_str());
        errno = EEXIST;
    }
    return file;
}

void sweep(const std::filesystem::path& path) {
    const FileDescriptor file(
        ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status;
    FileStamp stamp;
    if (!file.isOpen() || !stampOf(file.number(), stamp) || !isTemporaryName(path.filename(), stamp)) return;
    if (::fstat(file.number(), &status) != 0) return;
    const bool ours = status.st_uid == ::geteuid() || ::geteuid() == 0;
    if (S_ISREG(status.st_mode) && ours && status.st_nlink == 1 && lock(file.number()))
        ::unlink(path.c_str());
}

std::uint64_t processNumber() {
    return static_cast<std::uint64_t>(::getpid());
}

void removeTemporaryFilesAtSignals() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction now {};
        // Whoever ignores a signal for us wants the run to go on.
        if (::sigaction(signal, nullptr, &now) != 0 || now.sa_handler == SIG_IGN) continue;
        now.sa_handler = removeAll;
        now.sa_flags = SA_RESTART;
        ::sigaction(signal, &now, nullptr);
    }
}

} // namespace corvelle::base
