#include "faults/system_calls.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

// The C library's functions of these names, for this program and the libraries that it uses: what is linked
// into a program comes before what is in a shared library.

namespace corvelle::test {

namespace {

struct Faults {
    std::atomic<bool> armed = false;
    std::atomic<int> callsBefore = 0;
    FailingSystem::Way way = FailingSystem::Way::Once;
    std::optional<SystemCall> only;
} faults;

int errorOf(SystemCall call) {
    switch (call) {
    case SystemCall::Open:
        return EMFILE;
    case SystemCall::Write:
    case SystemCall::MakeFolder:
        return ENOSPC;
    case SystemCall::Rename:
    case SystemCall::Permissions:
        return EACCES;
    default:
        return EIO;
    }
}

// Whether this is the n-th call, or a later one.
bool isNth(SystemCall call) {
    if (!faults.armed || (faults.only && *faults.only != call)) return false;
    const int before = faults.callsBefore--;
    return before == 0 || (before < 0 && faults.way == FailingSystem::Way::ForGood);
}

bool canBeInterrupted(SystemCall call) {
    return call == SystemCall::Open || call == SystemCall::Read || call == SystemCall::Write ||
           call == SystemCall::Flush;
}

// Whether the call fails; then errno says why.
bool fails(SystemCall call) {
    using Way = FailingSystem::Way;
    if (!isNth(call) || faults.way == Way::Short) return false;
    if (faults.way == Way::Interrupted && !canBeInterrupted(call)) return false;
    errno = faults.way == Way::Interrupted ? EINTR : errorOf(call);
    return true;
}

template <class Transfer>
ssize_t transfer(SystemCall call, std::size_t size, const Transfer& real) {
    if (faults.way == FailingSystem::Way::Short) return real(isNth(call) && size > 1 ? 1 : size);
    return fails(call) ? -1 : real(size);
}

template <class Function>
Function realFunction(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

FailingSystem::FailingSystem(int n, Way way, std::optional<SystemCall> only) {
    faults.callsBefore = n - 1;
    faults.way = way;
    faults.only = only;
    faults.armed = true;
}

FailingSystem::~FailingSystem() {
    faults.armed = false;
    faults.way = Way::Once;
}

bool FailingSystem::failed() const {
    return faults.callsBefore < 0;
}

} // namespace corvelle::test

using corvelle::test::fails;
using corvelle::test::faults;
using corvelle::test::realFunction;
using corvelle::test::SystemCall;
using corvelle::test::transfer;

extern "C" {

int open(const char* path, int flags, ...) {
    static const auto real = realFunction<int (*)(const char*, int, ...)>("open");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return fails(SystemCall::Open) ? -1 : real(path, flags, mode);
}

ssize_t read(int file, void* buffer, std::size_t size) {
    static const auto real = realFunction<ssize_t (*)(int, void*, std::size_t)>("read");
    return transfer(SystemCall::Read, size, [&](std::size_t part) { return real(file, buffer, part); });
}

ssize_t write(int file, const void* bytes, std::size_t size) {
    static const auto real = realFunction<ssize_t (*)(int, const void*, std::size_t)>("write");
    return transfer(SystemCall::Write, size, [&](std::size_t part) { return real(file, bytes, part); });
}

// Nothing is flushed to the disk, which would only take time.
int fsync(int) {
    return fails(SystemCall::Flush) ? -1 : 0;
}

int close(int file) {
    static const auto real = realFunction<int (*)(int)>("close");
    // The file is closed all the same, as the system does it.
    const int result = real(file);
    return fails(SystemCall::Close) ? -1 : result;
}

int rename(const char* from, const char* to) noexcept {
    static const auto real = realFunction<int (*)(const char*, const char*)>("rename");
    return fails(SystemCall::Rename) ? -1 : real(from, to);
}

int stat(const char* path, struct stat* status) noexcept {
    static const auto real = realFunction<int (*)(const char*, struct stat*)>("stat");
    return fails(SystemCall::Status) ? -1 : real(path, status);
}

int lstat(const char* path, struct stat* status) noexcept {
    static const auto real = realFunction<int (*)(const char*, struct stat*)>("lstat");
    return fails(SystemCall::Status) ? -1 : real(path, status);
}

int fstat(int file, struct stat* status) noexcept {
    static const auto real = realFunction<int (*)(int, struct stat*)>("fstat");
    return fails(SystemCall::Status) ? -1 : real(file, status);
}

char* realpath(const char* path, char* resolved) noexcept {
    static const auto real = realFunction<char* (*)(const char*, char*)>("realpath");
    return fails(SystemCall::Status) ? nullptr : real(path, resolved);
}

int faccessat(int folder, const char* path, int mode, int flags) noexcept {
    static const auto real = realFunction<int (*)(int, const char*, int, int)>("faccessat");
    return fails(SystemCall::Permissions) ? -1 : real(folder, path, mode, flags);
}

int fchmod(int file, mode_t mode) noexcept {
    static const auto real = realFunction<int (*)(int, mode_t)>("fchmod");
    return fails(SystemCall::Permissions) ? -1 : real(file, mode);
}

int fchown(int file, uid_t user, gid_t group) noexcept {
    static const auto real = realFunction<int (*)(int, uid_t, gid_t)>("fchown");
    return fails(SystemCall::Permissions) ? -1 : real(file, user, group);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept {
    static const auto real = realFunction<int (*)(int, const char*, int, const char*, unsigned)>("renameat2");
    return fails(SystemCall::Rename) ? -1 : real(fromFolder, from, toFolder, to, flags);
}

int flock(int file, int operation) noexcept {
    static const auto real = realFunction<int (*)(int, int)>("flock");
    return fails(SystemCall::Lock) ? -1 : real(file, operation);
}

ssize_t listxattr(const char* path, char* names, std::size_t size) noexcept {
    static const auto real = realFunction<ssize_t (*)(const char*, char*, std::size_t)>("listxattr");
    return fails(SystemCall::Permissions) ? -1 : real(path, names, size);
}

ssize_t getxattr(const char* path, const char* name, void* value, std::size_t size) noexcept {
    static const auto real =
        realFunction<ssize_t (*)(const char*, const char*, void*, std::size_t)>("getxattr");
    return fails(SystemCall::Permissions) ? -1 : real(path, name, value, size);
}

int fsetxattr(int file, const char* name, const void* value, std::size_t size, int flags) noexcept {
    static const auto real =
        realFunction<int (*)(int, const char*, const void*, std::size_t, int)>("fsetxattr");
    return fails(SystemCall::Permissions) ? -1 : real(file, name, value, size, flags);
}

int fremovexattr(int file, const char* name) noexcept {
    static const auto real = realFunction<int (*)(int, const char*)>("fremovexattr");
    return fails(SystemCall::Permissions) ? -1 : real(file, name);
}

int mkdir(const char* path, mode_t mode) noexcept {
    static const auto real = realFunction<int (*)(const char*, mode_t)>("mkdir");
    return fails(SystemCall::MakeFolder) ? -1 : real(path, mode);
}

DIR* opendir(const char* path) {
    static const auto real = realFunction<DIR* (*)(const char*)>("opendir");
    return fails(SystemCall::ReadFolder) ? nullptr : real(path);
}

} // extern "C"
