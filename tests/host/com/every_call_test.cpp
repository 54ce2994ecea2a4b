#include "host/com/dll.h"
#include "host/com/failing_ide.h"
#include "host/com/failing_imports.h"
#include "host/com/steps.h"
#include "ide/automation/served_ide.h"

#include <algorithm>
#include <corvelle.h>
#include <cstring>
#include <gtest/gtest.h>
#include <initializer_list>
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

BOOL CALLBACK takePathBox(HWND window, LPARAM boxes) {
    char name[32] = "";
    GetClassNameA(window, name, sizeof name);
    const bool isPath = std::strcmp(name, "Edit") == 0 && IsWindowVisible(window) &&
                        (GetWindowLongPtrA(window, GWL_STYLE) & ES_MULTILINE) == 0;
    if (isPath) reinterpret_cast<std::vector<HWND>*>(boxes)->push_back(window);
    return TRUE;
}

/// Writes paths into a window's first two boxes for one, where they are empty.
void fillPaths(HWND window, const std::string& folder) {
    std::vector<HWND> boxes;
    EnumChildWindows(window, takePathBox, reinterpret_cast<LPARAM>(&boxes));
    boxes.resize(std::min<std::size_t>(boxes.size(), 2));
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (GetWindowTextLengthA(boxes[i]) != 0) continue;
        const auto path = folder + "\\" + (boxes.size() == 1 ? "texts" : i == 0 ? "header" : "mappings");
        SendMessageA(boxes[i], WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
    }
}

/// What a user presses in the windows that have one button, one after the other.
struct Way {
    const char* mark;
    std::vector<const char*> buttons;
    std::string folder{}; ///< where paths that are asked for lead; none are given if it is empty
    bool inside = false;  ///< a button's command runs
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
        while (topWindow() && GetMessageA(&message, nullptr, 0, 0) > 0) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
            if (GetTickCount() - start < longEnough) continue;
            ADD_FAILURE() << "a window stays";
            return;
        }
    }

  private:
    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) {
        if (current) current->act();
    }

    void act() {
        const HWND top = topWindow();
        if (!top) return;
        char name[32] = "";
        GetClassNameA(top, name, sizeof name);
        if (std::strcmp(name, "#32770") == 0) {
            answer(top);
            return;
        }
        for (Way& way : ways_) {
            if (Steps::button(top, way.mark)) return press(top, way);
        }
    }

    // A file dialog takes its time, and a second answer would be one to its next question.
    void answer(HWND box) {
        constexpr DWORD unheard = 1000;
        constexpr int fileTypes = 0x470; // cmb1 of the common dialogs
        const bool isSlow = GetDlgItem(box, fileTypes) != nullptr;
        if (isSlow && box == answered_ && GetTickCount() - answeredAt_ < unheard) return;
        answered_ = box;
        answeredAt_ = GetTickCount();
        PostMessageA(box, WM_COMMAND, GetDlgItem(box, answer_) ? answer_ : IDOK, 0);
    }

    // The next button that is in reach. Its command runs in here.
    static void press(HWND window, Way& way) {
        if (way.inside) return;
        way.inside = true;
        if (!way.folder.empty()) fillPaths(window, way.folder);
        while (way.step < way.buttons.size()) {
            const HWND button = Steps::button(window, way.buttons[way.step++]);
            if (!button || !IsWindowEnabled(button)) continue;
            SendMessageA(button, BM_CLICK, 0, 0);
            break;
        }
        way.inside = false;
    }

    static inline WindowUser* current = nullptr;

    std::vector<Way> ways_;
    int answer_;
    UINT_PTR timer_;
    HWND answered_ = nullptr;
    DWORD answeredAt_ = 0;
};

const Way throughThePage{"&Refresh", {"&Refresh", "&Next   >>", "&Cancel", "&Cancel"}};
const std::vector<Way> throughTheFormatter{
    {"&Format Code", {"&Format Code", "&Add to Module", "<< Go &Back", "<< Go &Back"}}, throughThePage};
const std::vector<Way> throughTheBackup{
    {"&Format Code", {"&Select ...", "&Format Code", "&Add to Module", "<< Go &Back", "<< Go &Back"}},
    throughThePage};

std::vector<Way> throughTheIndexer(const std::string& folder) {
    return {
        {"&Create a New Index", {"&Create a New Index"}},
        {"&Next",
         {"&Analyse", "&Next", "&Create", "&Next", "&Save", "&Next", "&Close", "&Back", "&Back", "&Close"},
         folder}};
}

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
            const WindowUser user = IsEqualCLSID(id, formatterClass)
                                        ? WindowUser(toTheFormatter, IDYES)
                                        : WindowUser(throughTheIndexer(folder.path().string()), IDNO);
            extensibility->OnConnection(ide.get(), vbext_cm_Startup, nullptr, nullptr);
            const auto& commands = program->menuModel.addIns().commands();
            if (!commands.empty()) commands.back()->Execute();
            WindowUser::serve();
        }
        extensibility->OnDisconnection(vbext_dm_UserClosed, nullptr);
    }

    std::vector<Way> toTheFormatter = throughTheFormatter;

    void failImports(Imports kind, int least, std::initializer_list<CLSID> classes);

    // The menu may keep a command that could not be deleted.
    void expectUnharmed(REFCLSID id, bool failed) {
        const auto text = module().Lines(1, module().CountOfLines());
        EXPECT_TRUE(text == untidy || text == tidy) << text;
        if (const auto backup = backupOrNothing(); !backup.empty()) {
            EXPECT_EQ(backup, untidy + "\r\n");
        }
        if (!failed) {
            EXPECT_EQ(text, IsEqualCLSID(id, formatterClass) ? tidy : untidy);
        }
        for (const auto& name : folder.names()) EXPECT_EQ(name.find(".tmp"), std::string::npos) << name;
        if (!failed && IsEqualCLSID(id, indexerClass)) {
            EXPECT_EQ(folder.read("header"),
                      "#define IDH_AAAA  1000\r\n#define IDH_AAAB  1001\r\n#define IDH_AAAC  1002\r\n");
            EXPECT_NE(folder.read("texts").find(".topic  IDH_AAAC"), std::string::npos);
        }
        EXPECT_EQ(topWindow(), nullptr);
        EXPECT_EQ(dll.canUnloadNow(), S_OK);
        EXPECT_TRUE(calls->originals.empty()) << "an object of the IDE is held";
        const auto& commands = program->menuModel.addIns().commands();
        while (!commands.empty()) commands.back()->Delete();
    }

    std::string backupOrNothing() const {
        const auto names = folder.names();
        const bool isThere = std::find(names.begin(), names.end(), "modMain_bak.bas") != names.end();
        return isThere ? folder.read("modMain_bak.bas") : std::string();
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

void EveryCall::failImports(Imports kind, int least, std::initializer_list<CLSID> classes) {
    for (const CLSID& id : classes) {
        int n = 0;
        for (bool failed = true; failed && !HasFailure();) {
            SCOPED_TRACE(++n);
            {
                const FailingImports imports(dll.module(), kind, n);
                walk(id);
                failed = imports.failed();
            }
            // What is stored in the registry is of no weight for module and index.
            expectUnharmed(id, failed && kind == Imports::Files);
        }
        EXPECT_GT(n, least);
    }
}

TEST_F(EveryCall, OnTheRegistryMayFail) {
    failImports(Imports::Registry, 3, {formatterClass, indexerClass});
}

TEST_F(EveryCall, OnFilesMayFail) {
    failImports(Imports::Files, 10, {indexerClass});
}

TEST_F(EveryCall, OnTheBackupMayFail) {
    toTheFormatter = throughTheBackup;
    failImports(Imports::Files, 3, {formatterClass});
    EXPECT_EQ(folder.read("modMain_bak.bas"), untidy + "\r\n");
}

} // namespace
} // namespace corvelle::host::test
