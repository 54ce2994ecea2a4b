#include "forms/win32/thread_windows.h"

namespace corvelle::forms {

namespace {

BOOL CALLBACK collect(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

} // namespace

std::vector<HWND> threadWindows() {
    std::vector<HWND> found;
    EnumThreadWindows(GetCurrentThreadId(), collect, reinterpret_cast<LPARAM>(&found));
    return found;
}

} // namespace corvelle::forms
