#include "workbench/child_windows.h"

#include "workbench/code_window.h"
#include "workbench/designer_window.h"
#include "workbench/resource.h"
#include "workbench/window_procedure.h"

#include <algorithm>

namespace corvelle::workbench {

namespace {

constexpr const char* className = "Workbench.Child";

}

ChildWindow::ChildWindow(Kind kind, workspace::Component& component, Owner& owner)
    : kind_(kind), component_(component), owner_(owner) {}

ChildWindow::~ChildWindow() {
    if (window_) setOwner<ChildWindow>(window_, nullptr);
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
    if (!child) return DefMDIChildProcA(window, message, wParam, lParam);
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

void ChildWindows::create(HWND frame, HMENU windowMenu) {
    CLIENTCREATESTRUCT wanted{windowMenu, IDM_FIRST_WINDOW};
    client_ = CreateWindowExA(WS_EX_CLIENTEDGE, "MDICLIENT", "",
                              WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_VSCROLL | WS_HSCROLL, 0, 0, 0, 0,
                              frame, nullptr, GetModuleHandleA(nullptr), &wanted);
}

void ChildWindows::open(ChildWindow::Kind kind, workspace::Component& component) {
    if (const auto* const child = find(kind, component)) {
        if (IsIconic(child->window())) {
            SendMessageA(client_, WM_MDIRESTORE, reinterpret_cast<WPARAM>(child->window()), 0);
        }
        SendMessageA(client_, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(child->window()), 0);
        return;
    }
    if (kind == ChildWindow::Kind::Code) {
        windows_.push_back(
            std::make_unique<CodeWindow>(client_, component, static_cast<ChildWindow::Owner&>(*this)));
    } else {
        windows_.push_back(
            std::make_unique<DesignerWindow>(client_, component, static_cast<ChildWindow::Owner&>(*this)));
    }
}

void ChildWindows::close(ChildWindow::Kind kind, const workspace::Component& component) {
    if (const auto* const child = find(kind, component))
        SendMessageA(client_, WM_MDIDESTROY, reinterpret_cast<WPARAM>(child->window()), 0);
}

void ChildWindows::closeAll() {
    while (!windows_.empty()) {
        SendMessageA(client_, WM_MDIDESTROY, reinterpret_cast<WPARAM>(windows_.back()->window()), 0);
    }
}

ChildWindow* ChildWindows::find(ChildWindow::Kind kind, const workspace::Component& component) const {
    const auto found = std::find_if(windows_.begin(), windows_.end(), [&](const auto& child) {
        return child->kind() == kind && &child->component() == &component;
    });
    return found == windows_.end() ? nullptr : found->get();
}

ChildWindow* ChildWindows::active() const {
    const LRESULT window = SendMessageA(client_, WM_MDIGETACTIVE, 0, 0);
    return window == 0 ? nullptr : ownerOf<ChildWindow>(reinterpret_cast<HWND>(window));
}

workspace::Component* ChildWindows::topCode() const {
    for (HWND window = GetWindow(client_, GW_CHILD); window; window = GetWindow(window, GW_HWNDNEXT)) {
        const auto found = std::find_if(windows_.begin(), windows_.end(), [window](const auto& child) {
            return child->window() == window && child->kind() == ChildWindow::Kind::Code;
        });
        if (found != windows_.end()) return &(*found)->component();
    }
    return nullptr;
}

void ChildWindows::tick() {
    for (std::size_t i = 0; i < windows_.size(); ++i) windows_[i]->tick();
}

std::vector<workspace::Component*> ChildWindows::codePanes() const {
    std::vector<workspace::Component*> components;
    for (const auto& child : windows_) {
        if (child->kind() == ChildWindow::Kind::Code) components.push_back(&child->component());
    }
    return components;
}

void ChildWindows::childActivated(ChildWindow& child) {
    if (child.kind() == ChildWindow::Kind::Code) setActiveCode(&child.component());
    if (onActivated) onActivated(child.component());
}

void ChildWindows::childClosed(ChildWindow& child) {
    auto& component = child.component();
    const auto kind = child.kind();
    windows_.erase(std::remove_if(windows_.begin(), windows_.end(),
                                  [&child](const auto& one) { return one.get() == &child; }),
                   windows_.end());
    if (kind == ChildWindow::Kind::Designer) {
        if (onDesignerClosed) onDesignerClosed(component);
    } else if (activeCode_ == &component) {
        setActiveCode(topCode());
    }
}

void ChildWindows::setActiveCode(workspace::Component* component) {
    activeCode_ = component;
    if (onActiveCodeChanged) onActiveCodeChanged();
}

} // namespace corvelle::workbench
