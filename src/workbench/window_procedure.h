#pragma once

#include <exception>
#include <string>
#include <windows.h>

namespace corvelle::workbench {

/// Shows what went wrong, with the program's title.
void reportError(HWND owner, const std::string& text);

/// Registers a window class, once.
void registerClass(const char* name, WNDPROC procedure, HCURSOR cursor, HBRUSH ground);

/// What the window's procedure is to be told to; nothing before the window has it.
template <class Owner>
Owner* ownerOf(HWND window) {
    return reinterpret_cast<Owner*>(GetWindowLongPtrA(window, GWLP_USERDATA));
}

/// Tells the window's messages to that object from now on; nobody with a null pointer.
template <class Owner>
void setOwner(HWND window, Owner* owner) {
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(owner));
}

/// Runs what a message asks for. A failure is reported here: it must not pass through the system's code.
template <class Work>
LRESULT guarded(HWND window, const Work& work) {
    try {
        return work();
    } catch (const std::exception& error) {
        reportError(window, error.what());
    }
    return 0;
}

} // namespace corvelle::workbench
