#include "workbench/main_window.h"

#include "workbench/resource.h"
#include "workbench/title.h"
#include "workbench/window_procedure.h"

#include <algorithm>
#include <commctrl.h>

namespace corvelle::workbench {

namespace {

constexpr const char* className = "Workbench.Main";
constexpr UINT_PTR lookTimer = 1;
constexpr UINT lookPeriod = 200; // milliseconds
constexpr int splitter = 4;      // pixels

// The places of the menus that change.
constexpr int addInsPlace = 2;
constexpr int windowPlace = 3;

} // namespace

MainWindow::MainWindow() {
    INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_LISTVIEW_CLASSES | ICC_TREEVIEW_CLASSES};
    InitCommonControlsEx(&wanted);
    const HINSTANCE program = GetModuleHandleA(nullptr);
    accelerators_ = LoadAcceleratorsA(program, MAKEINTRESOURCEA(IDR_MAIN));
    registerClass(className, procedure, LoadCursorA(nullptr, IDC_SIZEWE),
                  reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_BTNFACE + 1)));
    CreateWindowExA(0, className, programTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                    CW_USEDEFAULT, GetSystemMetrics(SM_CXSCREEN) * 4 / 5,
                    GetSystemMetrics(SM_CYSCREEN) * 4 / 5, nullptr,
                    LoadMenuA(program, MAKEINTRESOURCEA(IDR_MAIN)), program, this);
}

MainWindow::~MainWindow() {
    if (window_) DestroyWindow(window_);
    if (session_.ide()) session_.ide()->setObserver(nullptr); // an add-in may hold it longer
}

void MainWindow::show() {
    ShowWindow(window_, SW_SHOWDEFAULT);
    UpdateWindow(window_);
}

int MainWindow::run() {
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        // The program's own keys come first, whichever window has the focus; of others' dialog keys nothing
        // is known.
        if (window_ && IsWindowEnabled(window_) &&
            (TranslateMDISysAccel(children_.client(), &message) ||
             TranslateAcceleratorA(window_, accelerators_, &message)))
            continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
        if (commands.idle) commands.idle();
    }
    return static_cast<int>(message.wParam);
}

LRESULT CALLBACK MainWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* const made =
            static_cast<MainWindow*>(reinterpret_cast<const CREATESTRUCTA*>(lParam)->lpCreateParams);
        made->window_ = window;
        setOwner(window, made);
    }
    auto* const owner = ownerOf<MainWindow>(window);
    if (!owner) return DefWindowProcA(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        setOwner<MainWindow>(window, nullptr);
        owner->window_ = nullptr;
    }
    return guarded(window, [&] { return owner->take(message, wParam, lParam); });
}

LRESULT MainWindow::take(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = window_;
    switch (message) {
    case WM_CREATE:
        create();
        return 0;
    case WM_SIZE:
        layOut();
        return 0;
    case WM_SETFOCUS:
        SetFocus(children_.active() ? children_.client() : tree_.window());
        return 0;
    case WM_TIMER:
        tick();
        return 0;
    case WM_INITMENUPOPUP:
        if (addInMenu_ && reinterpret_cast<HMENU>(wParam) == addInMenu_->popup()) addInMenu_->update();
        break;
    case WM_NOTIFY: {
        const auto* const notice = reinterpret_cast<const NMHDR*>(lParam);
        if (notice->hwndFrom != tree_.window()) break;
        if (notice->code == NM_DBLCLK || notice->code == NM_RETURN) {
            openSelectedAsIs();
            return notice->code == NM_RETURN ? 1 : 0;
        }
        if (notice->code == TVN_SELCHANGED) {
            if (const auto* const component = tree_.selected()) session_.setActive(*component);
            updateTitle();
        }
        break;
    }
    case WM_COMMAND:
        if (runCommand(LOWORD(wParam))) return 0;
        break;
    case WM_LBUTTONDOWN:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
        if (dragSplitter(message, lParam)) return 0;
        break;
    case WM_CLOSE:
        close();
        return 0;
    case WM_QUERYENDSESSION:
        return mayLeave() ? TRUE : FALSE;
    case WM_ENDSESSION:
        if (wParam != 0 && commands.leaving) commands.leaving();
        return 0;
    case WM_DESTROY:
        KillTimer(window, lookTimer);
        PostQuitMessage(0);
        return 0;
    case WM_NCDESTROY:
        return DefWindowProcA(window, message, wParam, lParam);
    default:
        break;
    }
    return DefFrameProcA(window_ ? window_ : window, children_.client(), message, wParam, lParam);
}

void MainWindow::create() {
    const HMENU menu = GetMenu(window_);
    children_.onActivated = [this](workspace::Component& component) {
        session_.setActive(component);
        updateTitle();
    };
    children_.onActiveCodeChanged = [this] { session_.ide()->setActiveCodePane(children_.activeCode()); };
    children_.onDesignerClosed = [](workspace::Component& component) { component.designerWindow()->Close(); };
    addInMenu_.emplace(GetSubMenu(menu, addInsPlace), menus_.addIns());
    tree_.create(window_);
    children_.create(window_, GetSubMenu(menu, windowPlace));
    RECT inside{};
    GetClientRect(window_, &inside);
    treeWidth_ = static_cast<int>(inside.right) / 4;
    SetTimer(window_, lookTimer, lookPeriod, nullptr);
}

void MainWindow::layOut() {
    RECT inside{};
    GetClientRect(window_, &inside);
    const int width = static_cast<int>(inside.right);
    const int height = static_cast<int>(inside.bottom);
    const int left = std::clamp(treeWidth_, 0, std::max(width - splitter, 0));
    MoveWindow(tree_.window(), 0, 0, left, height, TRUE);
    MoveWindow(children_.client(), left + splitter, 0, std::max(width - left - splitter, 0), height, TRUE);
}

bool MainWindow::dragSplitter(UINT message, LPARAM lParam) {
    const int x = static_cast<short>(LOWORD(lParam));
    if (message == WM_LBUTTONDOWN) {
        dragging_ = true;
        SetCapture(window_);
    } else if (dragging_) {
        treeWidth_ = std::max(x, 0);
        layOut();
        if (message == WM_LBUTTONUP) {
            dragging_ = false;
            ReleaseCapture();
        }
    }
    return dragging_;
}

void MainWindow::showCode(workspace::Component& component) {
    children_.open(ChildWindow::Kind::Code, component);
}

void MainWindow::designerChanged(workspace::Component& component) {
    if (!component.designerWindow()->isVisible()) {
        children_.close(ChildWindow::Kind::Designer, component);
    } else if (!children_.find(ChildWindow::Kind::Designer, component)) {
        children_.open(ChildWindow::Kind::Designer, component);
    }
}

void MainWindow::designerFocused(workspace::Component& component) {
    children_.open(ChildWindow::Kind::Designer, component);
}

void MainWindow::tick() {
    children_.tick();
    tree_.update(session_.ide().get());
    updateTitle();
}

void MainWindow::updateTitle() {
    std::string title = session_.title();
    if (!session_.unsaved().empty()) title += "*";
    title += (title.empty() ? "" : " - ") + std::string(programTitle);
    if (title == title_) return;
    title_ = title;
    SetWindowTextA(window_, title.c_str());
}

} // namespace corvelle::workbench
