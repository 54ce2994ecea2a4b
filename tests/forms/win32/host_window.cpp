#include "forms/win32/host_window.h"

#include <iterator>

namespace corvelle::forms::tests {

namespace {

constexpr const char* className = "Corvelle.Tests.Host";

} // namespace

HostWindow::HostWindow() {
    WNDCLASSEXA wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.lpfnWndProc = procedure;
    wanted.hInstance = GetModuleHandleA(nullptr);
    wanted.lpszClassName = className;
    RegisterClassExA(&wanted);
    window_ = CreateWindowExA(0, className, "Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 200, 100, 600, 500,
                              nullptr, nullptr, wanted.hInstance, nullptr);
    SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetForegroundWindow(window_);
    SetActiveWindow(window_);
    ACCEL keys[] = {{FVIRTKEY, VK_TAB, 1}, {FVIRTKEY, VK_RETURN, 1}, {FVIRTKEY, VK_F1, 1}};
    accelerators_ = CreateAcceleratorTableA(keys, static_cast<int>(std::size(keys)));
}

HostWindow::~HostWindow() {
    SetWindowLongPtrA(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
    DestroyAcceleratorTable(accelerators_);
    UnregisterClassA(className, GetModuleHandleA(nullptr));
}

void HostWindow::serve() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) return PostQuitMessage(0);
        if (TranslateAcceleratorA(window_, accelerators_, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

LRESULT CALLBACK HostWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const self = reinterpret_cast<HostWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (self && message == WM_COMMAND) ++self->commands;
    if (self && message == WM_ACTIVATE && LOWORD(wParam) != WA_INACTIVE) {
        ++self->activations;
        self->wasEnabled = self->wasEnabled && IsWindowEnabled(window);
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

} // namespace corvelle::forms::tests
