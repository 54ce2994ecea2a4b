#include "host/com/module_desktop.h"

#include "com/error.h"
#include "forms/form.h"
#include "forms/win32/win32_desktop.h"
#include "forms/win32/win32_peer.h"
#include "host/com/module.h"

#include <utility>

namespace corvelle::host {

namespace {

/// While it serves messages the DLL has code of its own on the stack. So it stays loaded then, and as long as
/// there is a window.
class ModuleDesktop : public forms::Win32Desktop {
  public:
    /// Keeps desktop and DLL.
    class Use {
      public:
        explicit Use(ModuleDesktop& desktop) : desktop_(desktop) { ++desktop_.uses_; }
        ~Use() { --desktop_.uses_; }
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

      private:
        ModuleDesktop& desktop_;
        ModuleLock lock_;
    };

    ModuleDesktop() : Win32Desktop(moduleInstance()) {}

    const DWORD thread = GetCurrentThreadId();
    bool isInUse() const { return uses_ > 0; }

    std::unique_ptr<forms::FormPeer> makePeer(forms::Form& form) override;
    void doEvents() override {
        const Use use(*this);
        Win32Desktop::doEvents();
    }
    bool waitForEvents() override {
        const Use use(*this);
        return Win32Desktop::waitForEvents();
    }
    void runModal(forms::Form& form) override {
        const Use use(*this);
        Win32Desktop::runModal(form);
    }
    std::optional<std::string> chooseFile(const forms::CommonDialog& dialog, bool save) override {
        const Use use(*this);
        return Win32Desktop::chooseFile(dialog, save);
    }

  protected:
    int showMessageBox(const std::string& text, int flags, const std::string& title) override {
        const Use use(*this);
        return Win32Desktop::showMessageBox(text, flags, title);
    }

  private:
    int uses_ = 0;
};

/// While it is on the screen a window needs no owner: its add-in may be gone.
class ModulePeer : public forms::Win32Peer {
  public:
    ModulePeer(ModuleDesktop& desktop, forms::Form& form)
        : Win32Peer(desktop, form), use_(desktop), form_(form) {}

    void show() override {
        if (formWindow()->isThere()) shown_ = form_.shared_from_this();
        Win32Peer::show();
    }
    void hide() override {
        const auto last = std::exchange(shown_, nullptr);
        Win32Peer::hide();
    }

  private:
    ModuleDesktop::Use use_;
    forms::Form& form_;
    std::shared_ptr<forms::Form> shown_;
};

std::unique_ptr<forms::FormPeer> ModuleDesktop::makePeer(forms::Form& form) {
    return std::make_unique<ModulePeer>(*this, form);
}

/// Never destroyed: when the process ends there is nothing left to tidy up.
std::shared_ptr<ModuleDesktop>& desktop() {
    static auto& kept = *std::make_unique<std::shared_ptr<ModuleDesktop>>().release();
    return kept;
}

} // namespace

std::shared_ptr<forms::Desktop> useDesktop() {
    auto& kept = desktop();
    if (kept && kept->thread != GetCurrentThreadId()) throw com::HresultError(RPC_E_WRONG_THREAD);
    if (!kept) kept = std::make_shared<ModuleDesktop>();
    return kept;
}

bool releaseDesktop() {
    auto& kept = desktop();
    if (!kept) return true;
    if (kept.use_count() > 1 || kept->isInUse() || kept->thread != GetCurrentThreadId()) return false;
    kept.reset();
    return true;
}

} // namespace corvelle::host
