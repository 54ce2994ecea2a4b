#include "base/folder_lock.h"

#include <windows.h>

namespace corvelle::base {

namespace {

constexpr const wchar_t* lockName = L".corvelle.lock";

} // namespace

// A folder cannot be locked itself. The file in it that stands for the lock goes with its last handle, which
// the system closes for a process that is killed; one that a power failure left is taken up as it is.
HeldFolder::Answer HeldFolder::take() {
    // A file that is just going away answers "access denied", as a folder does that may not be written into.
    constexpr int attempts = 20;
    constexpr DWORD pause = 5;
    for (int i = 0; i < attempts; ++i) {
        const HANDLE file = CreateFileW(
            (folder_ / lockName).c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
            FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
        if (file != INVALID_HANDLE_VALUE) {
            handle_ = reinterpret_cast<std::intptr_t>(file);
            return Answer::Held;
        }
        const auto error = GetLastError();
        if (error == ERROR_SHARING_VIOLATION) return Answer::Taken;
        if (error != ERROR_ACCESS_DENIED && error != ERROR_DELETE_PENDING) break;
        Sleep(pause);
    }
    return Answer::CannotLock;
}

void HeldFolder::letGo() {
    if (handle_ != none) CloseHandle(reinterpret_cast<HANDLE>(std::exchange(handle_, none)));
}

} // namespace corvelle::base
