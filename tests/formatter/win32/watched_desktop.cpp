#include "formatter/win32/watched_desktop.h"

#include <exception>
#include <gtest/gtest.h>
#include <thread>

namespace corvelle::formatter::tests {

WatchedDesktop::~WatchedDesktop() {
    MSG message; // the user has left word to quit
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message != WM_QUIT) DispatchMessageA(&message);
    }
}

bool WatchedDesktop::waitForEvents() {
    ++waits_;
    return Win32Desktop::waitForEvents();
}

void WatchedDesktop::letUserWork(const std::function<void()>& show,
                                 const std::function<void(const User&)>& user) {
    const DWORD thread = GetCurrentThreadId();
    std::thread works([&] {
        try {
            user(User(thread, waits_));
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
        }
        PostThreadMessageA(thread, WM_QUIT, 0, 0); // closes what a failure has left open
    });
    show();
    while (waitForEvents()) {
    }
    works.join();
}

} // namespace corvelle::formatter::tests
