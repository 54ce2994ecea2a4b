#pragma once

#include "base/run_time_error.h"
#include "forms/desktop.h"
#include "forms/win32/gdi.h"
#include "forms/win32/html_help.h"
#include "forms/win32/message_hook.h"
#include "forms/win32/registry_settings.h"
#include "forms/win32/scale.h"
#include "forms/win32/thread_windows.h"
#include "forms/win32/window_class.h"

#include <map>
#include <memory>
#include <new>
#include <optional>
#include <utility>
#include <vector>
#include <windows.h>

namespace corvelle::forms {

class FormWindow;

/// The real window system, for the thread that makes it. Text goes to the functions for 8-bit text as it is:
/// our strings are in the system's ANSI code page, which is what those functions take.
class Win32Desktop : public Desktop {
  public:
    /// The module has the pictures as its resources and owns the window classes. The resolution is the
    /// screen's unless one is given, in pixels an inch.
    explicit Win32Desktop(HINSTANCE module, int dpi = 0);
    /// All forms must have been unloaded.
    ~Win32Desktop() override;

    Settings& settings() override { return settings_; }
    std::unique_ptr<FormPeer> makePeer(Form& form) override;
    void doEvents() override;
    bool waitForEvents() override;
    bool isQuitting() const override { return quitting_; }
    void calledFromOutside() override {
        if (loops_ == 0 && openBoxes_ == 0) quitting_ = false;
    }
    void handlerBegins() override { ++handlers_; }
    void handlerEnded() noexcept override;
    std::optional<std::string> chooseFile(const CommonDialog& dialog, bool save) override;
    void showHelp(Control* caller, const std::string& file, int command, std::uint32_t data) override;
    Size pictureSize(const Picture& picture) const override;
    Colour resolve(Colour colour) const override;
    void startTimer(Timer& timer, std::int32_t interval) override;
    void stopTimer(Timer& timer) override;

    // For the windows.

    HINSTANCE module() const { return module_; }
    const Scale& scale() const { return scale_; }
    GdiCache& gdi() { return gdi_; }
    HtmlHelp& help() { return help_; }
    const char* formClass() const { return formClass_.name(); }
    const char* plainClass() const { return plainClass_.name(); }
    /// The window that a window shown now belongs to: the thread's active one, or the host's main window.
    HWND ownerNow(HWND except) const;
    /// Whether a message box or a file dialog of ours is open.
    bool boxIsOpen() const { return openBoxes_ > 0; }
    void add(FormWindow& window) { windows_.push_back(&window); }
    void remove(FormWindow& window);
    /// A form that was shown while it was disabled and may have the focus now; null if there is none.
    FormWindow* waitingForFocus() const;
    /// A modeless window has appeared or gone: the hook for its keys is there as long as one is.
    void modelessShown(int more);
    /// A window has text that it has not put on the screen yet. It may wait while a handler runs.
    void textIsLate();
    /// Writes it, so that it stands there before anybody looks.
    void flush();

    /// Runs what the window system calls; nothing thrown gets past it, an error is shown in a message box.
    template <class Result, class Function>
    Result guarded(Result otherwise, Function&& function) noexcept {
        try {
            return function();
        } catch (const base::RunTimeError& error) {
            report(error.what());
        } catch (const std::bad_alloc&) {
            reportNumber(static_cast<int>(base::ErrorNumber::OutOfMemory));
        } catch (const std::exception& error) {
            report(error.what());
        } catch (...) {
            reportNumber(0);
        }
        return otherwise;
    }

  protected:
    std::unique_ptr<Disabled> disableOthers(Form& form) override;
    void serveModal(Form& form, const std::function<bool()>& isOpen) override;
    int showMessageBox(const std::string& text, int flags, const std::string& title) override;

  private:
    class Box;
    class OthersDisabled;

    static LRESULT CALLBACK onTimerMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void tick(UINT_PTR number);
    void flushInTime();
    void dispatch(MSG& message);
    void report(const char* text) noexcept;
    void reportNumber(int number) noexcept;

    HINSTANCE module_;
    Scale scale_;
    mutable GdiCache gdi_;
    RegistrySettings settings_;
    HtmlHelp help_;
    WindowClass formClass_, plainClass_, timerClass_;
    HWND timerWindow_ = nullptr; // never on the screen
    std::map<UINT_PTR, Timer*> timers_;
    UINT_PTR lastTimer_;
    std::vector<FormWindow*> windows_;
    std::optional<MessageHook> hook_;
    int modeless_ = 0;
    int openBoxes_ = 0;
    int loops_ = 0; // of our own on the stack
    int handlers_ = 0;
    bool quitting_ = false;
    bool textLate_ = false;
    bool flushTimerOn_ = false;
    DWORD lastFlush_ = 0;
    int vainYields_ = 0;
    DWORD lastVainYield_ = 0;
};

} // namespace corvelle::forms
