#include "base/folder_lock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace corvelle::base {

// The lock is one on the folder itself: there is no file that could be left behind.
HeldFolder::Answer HeldFolder::take() {
    const int file = ::open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0) return Answer::CannotLock;
    int result = 0;
    do {
        result = ::flock(file, LOCK_EX | LOCK_NB);
    } while (result != 0 && errno == EINTR);
    if (result == 0) {
        handle_ = file;
        return Answer::Held;
    }
    const bool isTaken = errno == EWOULDBLOCK;
    ::close(file);
    return isTaken ? Answer::Taken : Answer::CannotLock;
}

void HeldFolder::letGo() {
    if (handle_ != none) ::close(static_cast<int>(std::exchange(handle_, none)));
}

} // namespace corvelle::base
