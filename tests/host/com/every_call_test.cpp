#include "host/com/dll.h"
#include "host/com/failing_ide.h"
#include "host/com/failing_registry.h"
#include "host/com/steps.h"
#include "ide/automation/served_ide.h"

#include <corvelle.h>
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vbide.h>
#include <vector>

// The DLL's add-ins through COM, from the connection to the disconnection, while each call fails.
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

/// What a user presses in the windows that have one button, one after the other.
struct Way {
    const char* mark;
    std::vector<const char*> buttons;
    bool inside = false; ///< a button's command runs
    std::size_t step = 0;
};

/// A user who goes through an add-in's windows and gives every question one answer. What is out of reach is
/// passed over.
class WindowUser {
  public:
    WindowUser(std::vector<Way> ways, int answer)
        : ways_(std::move(ways)), answer_(answer), timer_(SetTimer(nullptr, 0, 10, tick)) {
        current = this;
    }
    ~WindowUser() {
        KillTimer(nullptr, timer_);
        current = nullptr;
    }
    WindowUser(const WindowUser&) = delete;
    WindowUser& operator=(const WindowUser&) = delete;

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
        if (std::strcmp(name, "#32770") == 0) {
            PostMessageA(top, WM_COMMAND, GetDlgItem(top, answer_) != nullptr ? answer_ : IDOK, 0);
            return;
        }
        for (Way& way : ways_) {
            if (Steps::button(top, way.mark) != nullptr) return press(top, way);
        }
    }

    // The next button that is in reach. Its command runs in here.
    static void press(HWND window, Way& way) {
        if (way.inside) return;
        way.inside = true;
        while (way.step < way.buttons.size()) {
            const HWND button = Steps::button(window, way.buttons[way.step++]);
            if (button == nullptr || !IsWindowEnabled(button)) continue;
            SendMessageA(button, BM_CLICK, 0, 0);
            break;
        }
        way.inside = false;
    }

    static inline WindowUser* current = nullptr;

    std::vector<Way> ways_;
    int answer_;
    UINT_PTR timer_;
};

const std::vector<Way> throughTheFormatter{
    {"&Format Code", {"&Format Code", "&Add to Module", "<< Go &Back", "<< Go &Back"}},
    {"&Refresh", {"&Refresh", "&Next   >>", "&Cancel", "&Cancel"}}};
const std::vector<Way> throughTheAnalysis{{"&Create a New Index", {"&Create a New Index"}},
                                          {"&Analyse", {"&Analyse", "&Close", "&Close"}}};

const std::string untidy = "Sub Main()\r\nIf a Then\r\nb\r\nEnd If\r\nEnd Sub";
const std::string tidy = "Sub Main()\r\n  If a Then\r\n    b\r\n  End If\r\nEnd Sub";

class EveryCall : public corvelle::test::ServedIde {
  protected:
    EveryCall() { program->ide->setActiveCodePane(&component(2)); } // modMain
    ~EveryCall() override { EXPECT_EQ(dll.canUnloadNow(), S_OK); }

    void walk(REFCLSID id) {
        module().DeleteLines(1, module().CountOfLines());
        module().InsertLines(1, untidy);
        const auto made = dll.make(id);
        const auto extensibility = made.query<IDTExtensibility>();
        const auto ide = com::make<FailingObject>(served, calls);
        {
            const WindowUser user = IsEqualCLSID(id, formatterClass) ? WindowUser(throughTheFormatter, IDYES)
                                                         : WindowUser(throughTheAnalysis, IDNO);
            extensibility->OnConnection(ide.get(), vbext_cm_Startup, nullptr, nullptr);
            const auto& commands = program->menuModel.addIns().commands();
            if (!commands.empty()) commands.back()->Execute();
            WindowUser::serve();
        }
        extensibility->OnDisconnection(vbext_dm_UserClosed, nullptr);
    }

    // The menu may keep a command that could not be deleted.
    void expectUnharmed(REFCLSID id, bool failed) {
        const auto text = module().Lines(1, module().CountOfLines());
        EXPECT_TRUE(text == untidy || text == tidy) << text;
        if (!failed) {
            EXPECT_EQ(text, IsEqualCLSID(id, formatterClass) ? tidy : untidy);
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
    for (const CLSID& id : {formatterClass, indexerClass}) {
        int n = 0;
        do {
            SCOPED_TRACE(++n);
            calls->untilFailure = n;
            calls->failed = false;
            walk(id);
            calls->untilFailure = 0;
            expectUnharmed(id, calls->failed);
        } while (calls->failed && !HasFailure());
        EXPECT_GT(n, 30);
    }
}

TEST_F(EveryCall, OnTheRegistryMayFail) {
    for (const CLSID& id : {formatterClass, indexerClass}) {
        int n = 0;
        for (bool failed = true; failed && !HasFailure();) {
            SCOPED_TRACE(++n);
            {
                const FailingRegistry registry(dll.module(), n);
                walk(id);
                failed = registry.failed();
            }
            expectUnharmed(id, false); // what is stored is of no weight for the module
        }
        EXPECT_GT(n, 3);
    }
}

} // namespace
} // namespace corvelle::host::test
