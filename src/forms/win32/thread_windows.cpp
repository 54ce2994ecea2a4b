#include "forms/win32/thread_windows.h"

#include <new>

namespace corvelle::forms {

namespace {

struct List {
    std::vector<HWND> windows;
    bool complete = true;
};

BOOL CALLBACK collect(HWND window, LPARAM parameter) {
    auto& list = *reinterpret_cast<List*>(parameter);
    try {
        list.windows.push_back(window);
        return TRUE;
    } catch (const std::bad_alloc&) { // nothing may get into the system's code
        list.complete = false;
        return FALSE;
    }
}

} // namespace

std::vector<HWND> threadWindows() {
    List found;
    EnumThreadWindows(GetCurrentThreadId(), collect, reinterpret_cast<LPARAM>(&found));
    if (!found.complete) throw std::bad_alloc();
    return found.windows;
}

} // namespace corvelle::forms
