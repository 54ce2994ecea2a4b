#include "forms/win32/win32_desktop.h"

#include "base/scope_exit.h"
#include "forms/form.h"
#include "forms/timer.h"
#include "forms/win32/file_dialog.h"
#include "forms/win32/form_window.h"
#include "forms/win32/thread_windows.h"
#include "forms/win32/win32_peer.h"

#include <algorithm>
#include <commctrl.h>
#include <iterator>
#include <string>

namespace corvelle::forms {

namespace {

constexpr UINT_PTR flushTimer = 1; // the forms' timers are numbered from the next on
constexpr DWORD flushPeriod = 40;  // milliseconds: late text appears 25 times a second
constexpr int manyYields = 64;     // that found nothing, in a row

int screenDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : 96;
}

// Two desktops of one module, on two threads, each have classes of their own.
std::string className(const char* name, const void* desktop) {
    return std::string("Corvelle.") + name + "." + std::to_string(reinterpret_cast<std::uintptr_t>(desktop));
}

HBRUSH systemBrush(int colour) {
    return reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(colour + 1));
}

bool isMainWindowOfHost(HWND window) {
    return IsWindowVisible(window) && !GetWindow(window, GW_OWNER) &&
           (GetWindowLongPtrA(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION && !FormWindow::of(window);
}

FormWindow& windowOf(Form& form) {
    return *static_cast<Win32Peer*>(form.peer())->formWindow();
}

} // namespace

// While a box is open it is modal to the program, and the focus that comes and goes with it is nobody's
// event.
class Win32Desktop::Box {
  public:
    explicit Box(Win32Desktop& desktop)
        : desktop_(desktop), owner_(desktop.ownerNow(nullptr)), disabled_(owner_) {
        desktop_.flush();
        ++desktop_.openBoxes_;
    }
    ~Box() {
        --desktop_.openBoxes_;
        if (desktop_.openBoxes_ > 0) return;
        disabled_.enable();
        // The focus that comes back is an event, whose handler may unload a form.
        for (std::size_t i = 0; i < desktop_.windows_.size(); ++i) desktop_.windows_[i]->boxesClosed();
    }
    Box(const Box&) = delete;
    Box& operator=(const Box&) = delete;

    HWND owner() const { return owner_; }

  private:
    Win32Desktop& desktop_;
    HWND owner_; // the system disables and enables this one
    DisabledWindows disabled_;
};

Win32Desktop::Win32Desktop(HINSTANCE module, int dpi)
    : module_(module), scale_(dpi > 0 ? dpi : screenDpi()), gdi_(module, scale_),
      formClass_(module, className("Form", this), FormWindow::procedure, systemBrush(COLOR_BTNFACE)),
      plainClass_(module, className("Plain", this), DefWindowProcA, nullptr),
      timerClass_(module, className("Timer", this), onTimerMessage, nullptr), lastTimer_(flushTimer) {
    INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_BAR_CLASSES | ICC_TAB_CLASSES};
    InitCommonControlsEx(&wanted);
    timerWindow_ =
        CreateWindowExA(0, timerClass_.name(), "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, module_, nullptr);
    if (!timerWindow_) throw base::RunTimeError(base::ErrorNumber::OutOfMemory);
    SetWindowLongPtrA(timerWindow_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

Win32Desktop::~Win32Desktop() {
    SetWindowLongPtrA(timerWindow_, GWLP_USERDATA, 0);
    DestroyWindow(timerWindow_);
}

// Windows

std::unique_ptr<FormPeer> Win32Desktop::makePeer(Form& form) {
    return std::make_unique<Win32Peer>(*this, form);
}

void Win32Desktop::remove(FormWindow& window) {
    windows_.erase(std::remove(windows_.begin(), windows_.end(), &window), windows_.end());
}

HWND Win32Desktop::ownerNow(HWND except) const {
    HWND owner = GetActiveWindow();
    if (owner && owner != except && IsWindowVisible(owner)) return owner;
    // The thread is in the background.
    if (Form* const modal = topModal(); modal && modal->peer()) {
        const HWND top = windowOf(*modal).window();
        if (top != except && IsWindowVisible(top)) return top;
    }
    const std::vector<HWND> windows = threadWindows();
    const auto found = std::find_if(windows.begin(), windows.end(), isMainWindowOfHost);
    return found == windows.end() ? nullptr : *found;
}

FormWindow* Win32Desktop::waitingForFocus() const {
    const auto found = std::find_if(windows_.rbegin(), windows_.rend(),
                                    [](const FormWindow* window) { return window->waitsForFocus(); });
    return found == windows_.rend() ? nullptr : *found;
}

void Win32Desktop::modelessShown(int more) {
    modeless_ += more;
    if (modeless_ == 0) {
        hook_.reset();
    } else if (!hook_) {
        hook_.emplace();
    }
}

class Win32Desktop::OthersDisabled : public Disabled {
  public:
    explicit OthersDisabled(HWND except) : windows_(except) {}

  private:
    DisabledWindows windows_;
};

std::unique_ptr<Desktop::Disabled> Win32Desktop::disableOthers(Form& form) {
    FormWindow& window = windowOf(form);
    window.setModal(ownerNow(window.window()));
    return std::make_unique<OthersDisabled>(window.window());
}

void Win32Desktop::serveModal(Form& form, const std::function<bool()>& isOpen) {
    const auto window = static_cast<Win32Peer*>(form.peer())->formWindow();
    while (isOpen() && window->isThere() && waitForEvents()) {
    }
}

// Messages

void Win32Desktop::doEvents() {
    flushInTime();
    // A loop that yields once a module line would spend its time on asking a queue that is empty: after many
    // times in vain it asks once a tick of the clock.
    const DWORD now = GetTickCount();
    if (vainYields_ >= manyYields && now == lastVainYield_) return;
    ++vainYields_;
    lastVainYield_ = now;
    ++loops_;
    const base::ScopeExit ended([this] { --loops_; });
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        vainYields_ = 0;
        if (message.message == WM_QUIT) {
            quitting_ = true;
            PostQuitMessage(static_cast<int>(message.wParam)); // for the loop around
            return;
        }
        dispatch(message);
    }
}

bool Win32Desktop::waitForEvents() {
    if (quitting_) return false;
    flush();
    MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    vainYields_ = 0; // something is there
    doEvents();
    return !quitting_;
}

void Win32Desktop::dispatch(MSG& message) {
    // Where the hook is, it has taken the keys of our windows already.
    if (!hook_ && FormWindow::takeKey(message)) return;
    TranslateMessage(&message);
    DispatchMessageA(&message);
}

void Win32Desktop::handlerEnded() noexcept {
    --handlers_;
    try {
        flush();
    } catch (...) { // no memory for a text: the next flush writes it
    }
}

void Win32Desktop::textIsLate() {
    if (handlers_ == 0) {
        textLate_ = true;
        return flush();
    }
    if (textLate_) return;
    textLate_ = true;
    flushInTime();
    if (textLate_ && !flushTimerOn_)
        flushTimerOn_ = SetTimer(timerWindow_, flushTimer, flushPeriod, nullptr) != 0;
}

void Win32Desktop::flushInTime() {
    if (textLate_ && GetTickCount() - lastFlush_ >= flushPeriod) flush();
}

void Win32Desktop::flush() {
    if (!textLate_) return;
    lastFlush_ = GetTickCount();
    for (FormWindow* window : windows_) window->writeLateText();
    textLate_ = false;
}

// Services

int Win32Desktop::showMessageBox(const std::string& text, int flags, const std::string& title) {
    std::string lines; // the box breaks lines at line feeds
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool alone = text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n');
        lines += alone ? '\n' : text[i];
    }
    const bool asks = (flags & box::yesNo) != 0;
    const Box box(*this);
    const int given = MessageBoxA(box.owner(), lines.c_str(), title.c_str(), static_cast<UINT>(flags));
    if (!asks) return answer::ok;
    return given == IDYES ? answer::yes : answer::no; // also where no box could be shown
}

std::optional<std::string> Win32Desktop::chooseFile(const CommonDialog& dialog, bool save) {
    const Box box(*this);
    return showFileDialog(box.owner(), dialog, save);
}

void Win32Desktop::showHelp(Control* caller, const std::string& file, int command, std::uint32_t data) {
    HWND window = GetActiveWindow();
    if (caller && caller->form().peer()) {
        window = windowOf(caller->form()).windowOf(*caller);
    }
    help_.show(window, file, command, data);
}

Size Win32Desktop::pictureSize(const Picture& picture) const {
    constexpr Size icon{480, 480};
    BITMAP own{};
    const HBITMAP bitmap = picture.empty() ? nullptr : gdi_.bitmap(picture.name());
    if (!bitmap || GetObjectA(bitmap, sizeof own, &own) == 0) return icon;
    return {scale_.twips(static_cast<int>(own.bmWidth)), scale_.twips(static_cast<int>(own.bmHeight))};
}

Colour Win32Desktop::resolve(Colour colour) const {
    if (!isSystemColour(colour)) return colour & 0xFFFFFFU;
    return GetSysColor(static_cast<int>(colour & 0xFFU));
}

// Timers

void Win32Desktop::startTimer(Timer& timer, std::int32_t interval) {
    const UINT_PTR number = ++lastTimer_;
    if (SetTimer(timerWindow_, number, static_cast<UINT>(interval), nullptr) == 0) {
        throw base::RunTimeError(base::ErrorNumber::OutOfMemory);
    }
    timers_[number] = &timer;
}

void Win32Desktop::stopTimer(Timer& timer) {
    for (auto it = timers_.begin(); it != timers_.end();) {
        if (it->second == &timer) {
            KillTimer(timerWindow_, it->first);
            it = timers_.erase(it);
        } else {
            ++it;
        }
    }
}

void Win32Desktop::tick(UINT_PTR number) {
    if (number == flushTimer) {
        if (textLate_) return flushInTime();
        KillTimer(timerWindow_, flushTimer);
        flushTimerOn_ = false;
        return;
    }
    const auto found = timers_.find(number); // a tick of a stopped timer may still have waited
    if (found != timers_.end()) found->second->ticked();
}

LRESULT CALLBACK Win32Desktop::onTimerMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const desktop = reinterpret_cast<Win32Desktop*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (!desktop || message != WM_TIMER) return DefWindowProcA(window, message, wParam, lParam);
    return desktop->guarded<LRESULT>(0, [desktop, wParam] {
        desktop->tick(wParam);
        return 0;
    });
}

// Errors

void Win32Desktop::report(const char* text) noexcept {
    try {
        msgBox(text, box::okOnly);
    } catch (...) { // there is no room for a box either
    }
}

void Win32Desktop::reportNumber(int number) noexcept {
    try {
        msgBox(base::describeError(number), box::okOnly);
    } catch (...) {
    }
}

} // namespace corvelle::forms
