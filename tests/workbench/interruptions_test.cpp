#include "workbench/resource.h"
#include "workbench/workbench_test.h"

namespace corvelle::workbench::tests {

namespace {

struct Interruptions : WithAddIns {
    HWND openPage() {
        openCode("modText");
        chooseFromAddIns(formatter);
        return user().windowWith("&Next   >>");
    }
    HWND openStartMenu() const {
        chooseFromAddIns(indexer);
        return user().windowWith("&Create a New Index");
    }
    HWND openWizard() const {
        clickUntil(openStartMenu(), "&Create a New Index", "the question",
                   [this] { return user().seesBox("File not found.."); });
        user().answer("File not found..", IDNO); // the list of what is not indexed
        return user().windowWith("&Analyse");
    }
    void endByMenu() const {
        command(IDM_EXIT);
        EXPECT_EQ(0U, waitForEnd());
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
    const std::string text = manyLines();
    folder.write("Large.bas", text);
    startBoth("Large.bas");
    waitForTitle("Project1 - Corvelle Workbench");
    command(IDM_CODE);
    User::waitUntil("the code", [this] { return child("Large (Code)") != nullptr; });
    chooseFromAddIns(formatter);
    const HWND page = user().windowWith("&Next   >>");
    clickUntil(page, "&Next   >>", "the dialog", [this] { return user().sees("&Format Code"); });
    const HWND dialog = user().windowWith("&Format Code");
    clickUntil(dialog, "&Format Code", "a pass", [dialog] {
        for (const HWND label : User::controls(dialog, "Static")) {
            const std::string shown = User::text(label);
            if (shown.rfind(" LN: ", 0) == 0 || shown.rfind(" In Line: ", 0) == 0) return true;
        }
        return false;
    });
    endByMenu();
    EXPECT_EQ(text, folder.read("Large.bas"));
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
    chooseFromAddIns(formatter);
    page = user().windowWith("&Next   >>");
    chooseFromAddIns(formatter); // once more: the same page
    Sleep(300);
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
