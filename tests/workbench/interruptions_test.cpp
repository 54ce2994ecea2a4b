#include "workbench/resource.h"
#include "workbench/workbench_test.h"

namespace corvelle::workbench::tests {

namespace {

struct Interruptions : WithAddIns {
    HWND openPage() {
        openCode("modText");
        return openFromAddIns(formatter, "&Next   >>");
    }
    HWND openStartMenu() const { return openFromAddIns(indexer, "&Create a New Index"); }
    HWND openWizard() const {
        clickUntil(openStartMenu(), "&Create a New Index", "the question",
                   [this] { return seesBox("File not found.."); });
        user().answer("File not found..", IDNO); // the list of what is not indexed
        return user().windowWith("&Analyse");
    }
    void endByMenu() const {
        command(IDM_EXIT);
        EXPECT_EQ(0U, waitForEnd());
    }
    /// The formatter's dialog over a large module, at the start of a pass: what is asked of it next, it is
    /// asked while the pass runs.
    HWND openDialogInAPass() {
        folder.write("Large.bas", manyLines());
        startBoth("Large.bas");
        waitForTitle("Project1 - Corvelle Workbench");
        command(IDM_CODE);
        User::waitUntil("the code", [this] { return child("Large (Code)") != nullptr; });
        const HWND page = openFromAddIns(formatter, "&Next   >>");
        clickUntil(page, "&Next   >>", "the dialog", [this] { return user().sees("&Format Code"); });
        const HWND dialog = user().windowWith("&Format Code");
        clickUntil(dialog, "&Format Code", "a whole pass",
                   [dialog] { return User::isEnabled(dialog, "&Add to Module"); });
        ask(dialog, WM_NULL); // the command has ended once it is answered
        PostMessageA(User::control(dialog, "Button", "&Format Code"), BM_CLICK, 0, 0);
        return dialog;
    }
    static std::string manyLines() {
        constexpr int procedures = 8000;
        std::string text = "Attribute VB_Name = \"Large\"\r\n";
        for (int i = 0; i < procedures; ++i)
            text += "Sub Main()\r\nIf n > 0 Then\r\nn = n + 1\r\nEnd If\r\nEnd Sub\r\n";
        return text;
    }
};

TEST_F(Interruptions, EndsWithThePageOpen) {
    startBoth();
    openPage();
    endByMenu();
}

TEST_F(Interruptions, EndsWithTheDialogOpen) {
    startBoth();
    clickUntil(openPage(), "&Next   >>", "the dialog", [this] { return user().sees("&Format Code"); });
    endByMenu();
}

TEST_F(Interruptions, EndsWhileTheStartMenuWaits) {
    startBoth();
    openStartMenu();
    endByMenu();
}

TEST_F(Interruptions, EndsWithTheWizardOpen) {
    startBoth();
    openWizard();
    endByMenu();
}

TEST_F(Interruptions, EndsWhileAPassRuns) {
    openDialogInAPass();
    endByMenu();
    EXPECT_EQ(manyLines(), folder.read("Large.bas"));
}

TEST_F(Interruptions, UnloadsTheFormatterWhileAPassRuns) {
    const HWND dialog = openDialogInAPass();
    command(IDM_ADD_INS);
    const HWND manager = user().box("Add-In Manager");
    toggle(manager, "Corvelle.CodeFormatter", IDC_LOADED);
    accept(manager);
    User::waitUntil("the dialog to go", [dialog] { return !IsWindow(dialog); });
    User::waitUntil("the program to take input", [this] { return IsWindowEnabled(window()); });
    EXPECT_FALSE(user().sees("&Next   >>"));
    EXPECT_EQ("Project1 - Corvelle Workbench", User::text(window())); // nothing was changed
    endByMenu();
}

TEST_F(Interruptions, ClosesTheDialogWhileAPassRuns) {
    const HWND dialog = openDialogInAPass();
    User::close(dialog);
    User::waitUntil("the dialog to go", [&] {
        if (seesBox("Add code ..?")) { // the pass was over already: once more
            user().answer("Add code ..?", IDNO);
            PostMessageA(User::control(dialog, "Button", "&Format Code"), BM_CLICK, 0, 0);
            User::close(dialog);
        }
        return !IsWindow(dialog);
    });
    user().windowWith("&Next   >>");
    EXPECT_EQ("Project1 - Corvelle Workbench", User::text(window()));
    endByMenu();
}

TEST_F(Interruptions, UnloadsTheFormatterWithItsPageOpen) {
    startBoth();
    const HWND page = openPage();
    toggleLoaded("Corvelle.CodeFormatter");
    User::waitUntil("the page to go", [page] { return !IsWindow(page); });
    EXPECT_EQ("1", autoShow());
    chooseFromAddIns(1); // the other one is still there
    user().windowWith("&Create a New Index");
    endByMenu();
}

TEST_F(Interruptions, UnloadsTheIndexerWhileItsStartMenuWaits) {
    startBoth();
    const HWND menu = openStartMenu();
    toggleLoaded("Corvelle.ContextHelpIndexer");
    User::waitUntil("the start menu to go", [menu] { return !IsWindow(menu); });
    openPage();
    endByMenu();
}

TEST_F(Interruptions, ComesBackAfterEachWayOfClosing) {
    startBoth();
    HWND page = openPage();
    User::close(page);
    User::waitUntil("the page to go", [page] { return !IsWindow(page); });
    page = openFromAddIns(formatter, "&Next   >>");
    chooseFromAddIns(formatter); // once more: the same page
    User::waitUntil("the page in front", [page] { return GetForegroundWindow() == page; });
    EXPECT_EQ(page, user().windowWith("&Next   >>"));
    clickUntil(page, "&Cancel", "the page to go", [page] { return !IsWindow(page); });

    for (int round = 0; round < 2; ++round) {
        const HWND menu = openStartMenu();
        clickUntil(menu, "&Nothing .. Just Exit", "the menu to go", [menu] { return !IsWindow(menu); });
    }
    const HWND wizard = openWizard();
    clickUntil(wizard, "&Close", "the wizard to go", [wizard] { return !IsWindow(wizard); });
    openWizard();
    endByMenu();
}

} // namespace

} // namespace corvelle::workbench::tests
