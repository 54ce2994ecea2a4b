#include "workbench/resource.h"
#include "workbench/workbench_test.h"

#include <tlhelp32.h>

namespace corvelle::workbench::tests {

namespace {

struct AddInManagerTest : WithAddIns {
    ~AddInManagerTest() override {
        RegDeleteKeyA(HKEY_CURRENT_USER,
                      "Software\\Microsoft\\Visual Basic\\6.0\\Addins\\Corvelle.CodeFormatter");
    }
    bool hasDll() const {
        const HANDLE modules = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, GetProcessIdOf(window()));
        MODULEENTRY32 module{};
        module.dwSize = sizeof module;
        bool found = false;
        for (BOOL more = Module32First(modules, &module); more; more = Module32Next(modules, &module))
            found |= lstrcmpiA(module.szModule, "Corvelle.dll") == 0;
        CloseHandle(modules);
        return found;
    }
    static DWORD GetProcessIdOf(HWND window) {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        return process;
    }
    /// Whether the manager has exactly that row.
    bool lists(const std::string& row) const {
        const HWND manager = openManager();
        const LRESULT found = ask(GetDlgItem(manager, IDC_ADD_INS), LB_FINDSTRINGEXACT,
                                  static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(row.c_str()));
        PostMessageA(manager, WM_COMMAND, IDCANCEL, 0);
        User::waitUntil("the manager to go", [manager] { return !IsWindow(manager); });
        return found != LB_ERR;
    }
};

TEST_F(AddInManagerTest, LoadsAndUnloads) {
    start();
    EXPECT_TRUE(lists("Corvelle.CodeFormatter\t"));
    EXPECT_TRUE(lists("Corvelle.ContextHelpIndexer\t"));
    EXPECT_FALSE(hasDll());
    for (int round = 0; round < 2; ++round) {
        toggleLoaded("Corvelle.CodeFormatter");
        EXPECT_TRUE(lists("Corvelle.CodeFormatter\tLoaded"));
        EXPECT_TRUE(hasDll());
        openCode("modText");
        const HWND page = openFromAddIns(formatter, "&Next   >>");
        User::close(page);
        User::waitUntil("the page to go", [page] { return !IsWindow(page); });
        toggleLoaded("Corvelle.CodeFormatter");
        EXPECT_TRUE(lists("Corvelle.CodeFormatter\t"));
        EXPECT_EQ("0", autoShow());
        User::waitUntil("the DLL to be let go", [this] { return !hasDll(); });
    }
    command(IDM_EXIT);
    EXPECT_EQ(0U, waitForEnd());
}

TEST_F(AddInManagerTest, ChangesNothingWhenCancelled) {
    start();
    const HWND manager = openManager();
    toggle(manager, "Corvelle.CodeFormatter", IDC_LOADED);
    toggle(manager, "Corvelle.CodeFormatter", IDC_STARTUP);
    PostMessageA(manager, WM_COMMAND, IDCANCEL, 0);
    User::waitUntil("the manager to go", [manager] { return !IsWindow(manager); });
    EXPECT_TRUE(lists("Corvelle.CodeFormatter\t"));
    EXPECT_FALSE(hasDll());
}

TEST_F(AddInManagerTest, KeepsTheProgramOpen) {
    start();
    const HWND manager = openManager();
    PostMessageA(window(), WM_CLOSE, 0, 0);
    toggle(manager, "Corvelle.CodeFormatter", IDC_LOADED);
    accept(manager);
    EXPECT_TRUE(lists("Corvelle.CodeFormatter\tLoaded"));
    command(IDM_EXIT);
    EXPECT_EQ(0U, waitForEnd());
}

TEST_F(AddInManagerTest, RemembersWhatIsLoadedAtTheStart) {
    start();
    const HWND manager = openManager();
    toggle(manager, "Corvelle.CodeFormatter", IDC_STARTUP);
    accept(manager);
    EXPECT_TRUE(lists("Corvelle.CodeFormatter\tStartup"));
    command(IDM_EXIT);
    EXPECT_EQ(0U, waitForEnd());
    start();
    EXPECT_TRUE(lists("Corvelle.CodeFormatter\tStartup / Loaded"));
}

TEST_F(AddInManagerTest, TellsOfAnAddInThatCannotBeLoaded) {
    start({"/addin:Corvelle.Missing"});
    EXPECT_EQ("Corvelle.Missing\n\ncould not be loaded: It is not registered.", answer(IDOK));
    EXPECT_TRUE(lists("Corvelle.Missing\t"));
    EXPECT_TRUE(isRunning());
}

TEST_F(AddInManagerTest, TellsOfAClassThatIsNoAddIn) {
    start({"/addin:Scripting.Dictionary"});
    EXPECT_EQ("Scripting.Dictionary\n\ncould not be loaded: It has no IDTExtensibility interface.",
              answer(IDOK));
}

} // namespace

} // namespace corvelle::workbench::tests
