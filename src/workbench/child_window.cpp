#include "workbench/child_window.h"

#include "workbench/window_procedure.h"

namespace corvelle::workbench {

namespace {

constexpr const char* className = "Workbench.Child";

}

ChildWindow::ChildWindow(Kind kind, workspace::Component& component, Owner& owner)
    : kind_(kind), component_(component), owner_(owner) {}

ChildWindow::~ChildWindow() {
    if (window_ != nullptr) setOwner<ChildWindow>(window_, nullptr);
}

void ChildWindow::open(HWND client) {
    registerClass(className, procedure, LoadCursorA(nullptr, IDC_ARROW), nullptr);
    MDICREATESTRUCTA wanted{};
    wanted.szClass = className;
    wanted.szTitle = "";
    wanted.hOwner = GetModuleHandleA(nullptr);
    wanted.x = wanted.y = wanted.cx = wanted.cy = CW_USEDEFAULT;
    wanted.lParam = reinterpret_cast<LPARAM>(this);
    SendMessageA(client, WM_MDICREATE, 0, reinterpret_cast<LPARAM>(&wanted));
}

LRESULT CALLBACK ChildWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* const wanted = reinterpret_cast<const CREATESTRUCTA*>(lParam);
        const auto* const child = static_cast<const MDICREATESTRUCTA*>(wanted->lpCreateParams);
        auto* const made = reinterpret_cast<ChildWindow*>(child->lParam);
        made->window_ = window;
        setOwner(window, made);
    }
    auto* const child = ownerOf<ChildWindow>(window);
    if (child == nullptr) return DefMDIChildProcA(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        setOwner<ChildWindow>(window, nullptr);
        child->window_ = nullptr;
        const LRESULT result = DefMDIChildProcA(window, message, wParam, lParam);
        child->owner_.childClosed(*child);
        return result;
    }
    return guarded(window, [&] { return child->take(message, wParam, lParam); });
}

LRESULT ChildWindow::take(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        content_ = makeContent(window_);
        return 0;
    case WM_SIZE:
        MoveWindow(content_, 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
        break; // the system's part of it places a maximised window's buttons
    case WM_SETFOCUS:
        SetFocus(content_);
        return 0;
    case WM_MDIACTIVATE:
        if (reinterpret_cast<HWND>(lParam) == window_) {
            SetFocus(content_);
            owner_.childActivated(*this);
        }
        return 0;
    case WM_COMMAND:
        if (reinterpret_cast<HWND>(lParam) != content_) break;
        notified(HIWORD(wParam));
        return 0;
    default:
        break;
    }
    return DefMDIChildProcA(window_, message, wParam, lParam);
}

} // namespace corvelle::workbench
