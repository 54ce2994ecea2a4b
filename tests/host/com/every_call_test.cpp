#include "host/com/dll.h"
#include "host/com/failing_ide.h"
#include "host/com/failing_registry.h"
#include "host/com/steps.h"
#include "ide/automation/served_ide.h"

#include <algorithm>
#include <corvelle.h>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <vbide.h>

// The DLL's formatter through COM, from the connection to the disconnection, while each call fails.
namespace corvelle::host::test {
namespace {

BOOL CALLBACK takesInput(HWND window, LPARAM found) {
    if (!IsWindowVisible(window) || !IsWindowEnabled(window)) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

/// The topmost visible window of this thread that takes input; null if there is none.
HWND topWindow() {
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), takesInput, reinterpret_cast<LPARAM>(&found));
    return found;
}

/// A user who goes through the formatter and says yes to every question. What is out of reach is passed over.
class FormatterUser {
  public:
    FormatterUser() : timer_(SetTimer(nullptr, 0, 10, tick)) { current = this; }
    ~FormatterUser() {
        KillTimer(nullptr, timer_);
        current = nullptr;
    }
    FormatterUser(const FormatterUser&) = delete;
    FormatterUser& operator=(const FormatterUser&) = delete;

    /// Serves messages until no window is left.
    static void serve() {
        constexpr DWORD longEnough = 20000;
        const DWORD start = GetTickCount();
        MSG message;
        while (topWindow() != nullptr && GetMessageA(&message, nullptr, 0, 0) > 0) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
            if (GetTickCount() - start < longEnough) continue;
            ADD_FAILURE() << "a window stays";
            return;
        }
    }

  private:
    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) {
        if (current != nullptr) current->act();
    }

    void act() {
        const HWND top = topWindow();
        if (top == nullptr) return;
        char name[32] = "";
        GetClassNameA(top, name, sizeof name);
        if (std::strcmp(name, "#32770") == 0)
            PostMessageA(top, WM_COMMAND, GetDlgItem(top, IDYES) != nullptr ? IDYES : IDOK, 0);
        else if (Steps::button(top, "&Format Code") != nullptr)
            press(top, {"&Format Code", "&Add to Module", "<< Go &Back", "<< Go &Back"}, inDialog_,
                  dialogStep_);
        else if (Steps::button(top, "&Refresh") != nullptr)
            press(top, {"&Refresh", "&Next   >>", "&Cancel", "&Cancel"}, onPage_, pageStep_);
    }

    // The next button that is in reach. Its command runs in here.
    static void press(HWND window, const std::vector<const char*>& buttons, bool& inside, std::size_t& step) {
        if (inside) return;
        inside = true;
        while (step < buttons.size()) {
            const HWND button = Steps::button(window, buttons[step++]);
            if (button == nullptr || !IsWindowEnabled(button)) continue;
            SendMessageA(button, BM_CLICK, 0, 0);
            break;
        }
        inside = false;
    }

    static inline FormatterUser* current = nullptr;

    UINT_PTR timer_;
    bool inDialog_ = false, onPage_ = false;
    std::size_t dialogStep_ = 0, pageStep_ = 0;
};

const std::string untidy = "Sub Main()\r\nIf a Then\r\nb\r\nEnd If\r\nEnd Sub";
const std::string tidy = "Sub Main()\r\n  If a Then\r\n    b\r\n  End If\r\nEnd Sub";

class EveryCall : public corvelle::test::ServedIde {
  protected:
    EveryCall() { program->ide->setActiveCodePane(&component(2)); } // modMain
    ~EveryCall() override { EXPECT_EQ(dll.canUnloadNow(), S_OK); }

    void walk() {
        module().DeleteLines(1, module().CountOfLines());
        module().InsertLines(1, untidy);
        const auto made = dll.make(formatterClass);
        const auto extensibility = made.query<IDTExtensibility>();
        const auto ide = com::make<FailingObject>(served, calls);
        {
            FormatterUser user;
            extensibility->OnConnection(ide.get(), vbext_cm_Startup, nullptr, nullptr);
            const auto& commands = program->menuModel.addIns().commands();
            if (!commands.empty()) commands.back()->Execute();
            FormatterUser::serve();
        }
        extensibility->OnDisconnection(vbext_dm_UserClosed, nullptr);
    }

    // The menu may keep a command that could not be deleted.
    void expectUnharmed(bool failed) {
        const auto text = module().Lines(1, module().CountOfLines());
        EXPECT_TRUE(text == untidy || text == tidy) << text;
        if (!failed) {
            EXPECT_EQ(text, tidy);
        }
        EXPECT_EQ(topWindow(), nullptr);
        EXPECT_EQ(dll.canUnloadNow(), S_OK);
        EXPECT_TRUE(calls->originals.empty()) << "an object of the IDE is held";
        const auto& commands = program->menuModel.addIns().commands();
        while (!commands.empty()) commands.back()->Delete();
    }

    ide::CodeModule& module() { return *(code_ = component(2).CodeModule()); }

    Apartment apartment;
    Dll dll;
    std::shared_ptr<IdeCalls> calls = std::make_shared<IdeCalls>();

  private:
    std::shared_ptr<ide::CodeModule> code_;
};

TEST_F(EveryCall, OnTheIdeMayFail) {
    int n = 0;
    do {
        SCOPED_TRACE(++n);
        calls->untilFailure = n;
        calls->failed = false;
        walk();
        calls->untilFailure = 0;
        expectUnharmed(calls->failed);
    } while (calls->failed && !HasFailure());
    EXPECT_GT(n, 30);
}

TEST_F(EveryCall, OnTheRegistryMayFail) {
    int n = 0;
    for (bool failed = true; failed && !HasFailure();) {
        SCOPED_TRACE(++n);
        {
            const FailingRegistry registry(dll.module(), n);
            walk();
            failed = registry.failed();
        }
        expectUnharmed(false); // what is stored is of no weight for the module
    }
    EXPECT_GT(n, 3);
}

} // namespace
} // namespace corvelle::host::test
