#include "workbench/resource.h"
#include "workbench/workbench_test.h"

namespace corvelle::workbench::tests {

namespace {

BOOL CALLBACK findErrorList(HWND window, LPARAM result) {
    if (IsWindowVisible(window) && IsWindowEnabled(window) && User::text(window) == "Formatting Errors")
        *reinterpret_cast<HWND*>(result) = window;
    return TRUE;
}

// The program's message loop knows nothing of the add-ins' windows; their keys work all the same.
struct Keyboard : WithAddIns {
    std::string focused() const {
        GUITHREADINFO state{};
        state.cbSize = sizeof state;
        GetGUIThreadInfo(GetWindowThreadProcessId(window(), nullptr), &state);
        return state.hwndFocus ? User::text(state.hwndFocus) : std::string();
    }
    void waitForFocus(const std::string& text) const {
        try {
            User::waitUntil("the focus", [&] { return focused() == text; });
        } catch (const std::exception&) {
            throw std::runtime_error("the focus is on \"" + focused() + "\", not on \"" + text + "\"");
        }
    }
    bool listIsOpen() const {
        HWND list = nullptr;
        EnumThreadWindows(GetWindowThreadProcessId(window(), nullptr), findErrorList,
                          reinterpret_cast<LPARAM>(&list));
        return list != nullptr;
    }
    static void waitUntilGone(HWND form) {
        User::waitUntil("the window to go", [form] { return !IsWindow(form); });
    }
    static void waitUntilHidden(HWND form) {
        User::waitUntil("the window to hide", [form] { return !IsWindowVisible(form); });
    }
};

TEST_F(Keyboard, WorksInThePage) {
    startBoth();
    openCode("modText");
    HWND page = openFromAddIns(formatter, "&Next   >>");
    bringForward(page);
    const std::string first = focused();
    press(VK_TAB);
    User::waitUntil("another focus", [&] { return focused() != first; });
    press(VK_TAB, {VK_SHIFT});
    waitForFocus(first);
    press(VK_ESCAPE);
    waitUntilGone(page);

    page = openFromAddIns(formatter, "&Next   >>");
    bringForward(page);
    press('C', {VK_MENU}); // not the program's menu
    waitUntilGone(page);

    page = openFromAddIns(formatter, "&Next   >>");
    bringForward(page);
    press(VK_RETURN);
    const HWND dialog = user().windowWith("&Format Code");
    waitUntilHidden(page);
    bringForward(dialog);
    press('B', {VK_MENU});
    EXPECT_EQ(page, user().windowWith("&Next   >>"));
}

TEST_F(Keyboard, KeepsThePagesKeysAndTheProgramsApart) {
    startBoth();
    const HWND code = openCode("modText");
    const HWND page = openFromAddIns(formatter, "&Next   >>");
    bringForward(page);
    press(VK_F4, {VK_CONTROL}); // would close the code window
    const std::string before = focused();
    press(VK_TAB); // once it has moved the focus the key before it has done what it does
    User::waitUntil("another focus", [&] { return focused() != before; });
    EXPECT_TRUE(IsWindow(code));

    bringForward(window());
    press(VK_ESCAPE);
    press(VK_TAB);
    waitForTitle("Stockroom* - Corvelle Workbench"); // it went into the code
    press(VK_F4, {VK_CONTROL});
    User::waitUntil("the code window to go", [code] { return !IsWindow(code); });
    EXPECT_TRUE(IsWindowVisible(page));
    EXPECT_FALSE(user().sees("&Format Code"));
}

TEST_F(Keyboard, WorksInTheStartMenuAndTheWizard) {
    startBoth();
    HWND menu = openFromAddIns(indexer, "&Create a New Index");
    bringForward(menu);
    waitForFocus("&Create a New Index");
    press(VK_TAB);
    waitForFocus("&Add Entry to previously created Index");
    press(VK_TAB);
    waitForFocus("&Nothing .. Just Exit");
    press(VK_ESCAPE); // does nothing
    press(VK_RETURN);
    waitUntilGone(menu);

    menu = openFromAddIns(indexer, "&Create a New Index");
    bringForward(menu);
    waitForFocus("&Create a New Index");
    press('C', {VK_MENU});
    user().answer("File not found..", IDNO);
    const HWND wizard = user().windowWith("&Analyse");
    bringForward(wizard);
    const std::string first = focused();
    press(VK_TAB);
    User::waitUntil("another focus", [&] { return focused() != first; });
    press('C', {VK_MENU});
    waitUntilGone(wizard);
}

TEST_F(Keyboard, WorksInTheErrorList) {
    folder.write("Odd.bas",
                 "Attribute VB_Name = \"Odd\"\r\nSub A()\r\nEnd If\r\nEnd If\r\nEnd Sub\r\nEnd Sub\r\n");
    startBoth("Odd.bas");
    waitForTitle("Project1 - Corvelle Workbench");
    command(IDM_CODE);
    User::waitUntil("the code", [this] { return child("Odd (Code)") != nullptr; });
    const HWND page = openFromAddIns(formatter, "&Next   >>");
    clickUntil(page, "&Next   >>", "the dialog", [this] { return user().sees("&Format Code"); });
    const HWND dialog = user().windowWith("&Format Code");
    clickUntil(dialog, "&Format Code", "the list", [this] { return listIsOpen(); });
    const HWND errors = user().windowTitled("Formatting Errors");
    bringForward(errors);
    takePicture("errors");
    press('C', {VK_MENU});
    User::waitUntil("the list to go", [errors] { return !IsWindow(errors) || !IsWindowVisible(errors); });
    EXPECT_TRUE(IsWindow(dialog));
}

} // namespace

} // namespace corvelle::workbench::tests
