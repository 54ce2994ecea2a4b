#include "workbench/resource.h"
#include "workbench/workbench_test.h"

#include <commctrl.h>

namespace corvelle::workbench::tests {

namespace {

const std::string clean = "Stockroom - Corvelle Workbench";
const std::string changed = "Stockroom* - Corvelle Workbench";

TEST_F(WorkbenchTest, ShowsTheProjectAndEndsWhenClosed) {
    start();
    waitForTitle(clean);
    constexpr LRESULT rows = 1 + 4 + 12; // the project, its kinds, its components
    EXPECT_EQ(rows, ask(tree(), TVM_GETCOUNT));
    const HWND code = openCode("modText");
    EXPECT_NE(std::string::npos, allText(contentOf(code)).find("Option Explicit"));
    const HWND designer = openDesigner("frmPart", "frmPart (Form)");
    EXPECT_GT(ask(contentOf(designer), LVM_GETITEMCOUNT), 5);
    takePicture("project");
    ask(designer, WM_CLOSE);
    EXPECT_FALSE(IsWindow(designer));
    command(IDM_EXIT);
    EXPECT_EQ(0U, waitForEnd());
}

TEST_F(WorkbenchTest, SavesWhatWasTypedAndNothingElse) {
    const std::string before = folder.read("modText.bas");
    start();
    const HWND edit = contentOf(openCode("modText"));
    type(edit, "'\tx\r");
    waitForTitle(changed);
    EXPECT_EQ(before, folder.read("modText.bas"));
    command(IDM_SAVE);
    waitForTitle(clean);
    const std::string name = "Attribute VB_Name = \"modText\"\r\n";
    std::string expected = before;
    expected.insert(before.find(name) + name.size(), "'   x\r\n");
    EXPECT_EQ(expected, folder.read("modText.bas"));
    command(IDM_EXIT);
    EXPECT_EQ(0U, waitForEnd());
}

TEST_F(WorkbenchTest, AsksBeforeUnsavedCodeIsLost) {
    const std::string before = folder.read("modText.bas");
    start();
    type(contentOf(openCode("modText")), "'");
    waitForTitle(changed);
    command(IDM_EXIT);
    EXPECT_EQ("Save changes to the following files?\n\nmodText (modText.bas)", answer(IDCANCEL));
    EXPECT_TRUE(isRunning());
    command(IDM_EXIT);
    answer(IDNO);
    EXPECT_EQ(0U, waitForEnd());
    EXPECT_EQ(before, folder.read("modText.bas"));
}

TEST_F(WorkbenchTest, SavesAtTheEndWhenAsked) {
    start();
    type(contentOf(openCode("modText")), "'");
    waitForTitle(changed);
    command(IDM_EXIT);
    answer(IDYES);
    EXPECT_EQ(0U, waitForEnd());
    EXPECT_NE(std::string::npos, folder.read("modText.bas").find("\r\n'Option Explicit"));
}

TEST_F(WorkbenchTest, KeepsTheCodeThatCannotBeSaved) {
    start();
    type(contentOf(openCode("modText")), "'");
    waitForTitle(changed);
    folder.write("modText.bas", "' somebody else's\r\n");
    command(IDM_EXIT);
    answer(IDYES);
    EXPECT_EQ(0U, answer(IDOK).find("These files could not be saved:\n\nmodText (modText.bas): "));
    EXPECT_TRUE(isRunning());
    EXPECT_EQ(changed, User::text(window()));
    EXPECT_EQ("' somebody else's\r\n", folder.read("modText.bas"));
}

TEST_F(WorkbenchTest, TellsWhatItCannotOpen) {
    start({}, "Missing.vbp");
    EXPECT_NE(std::string::npos, answer(IDOK).find("Missing.vbp\n\ncould not be opened: File not found"));
    waitForTitle("Corvelle Workbench");
    EXPECT_TRUE(isRunning());
}

TEST_F(WorkbenchTest, TellsWhichFilesAreLeftOut) {
    std::filesystem::remove(folder.path() / "modApi.bas");
    start();
    EXPECT_EQ("These files could not be read and are left out:\n\nmodApi.bas: File not found", answer(IDOK));
    waitForTitle(clean);
}

TEST_F(WorkbenchTest, ShowsCodeThatItCannotHoldReadOnly) {
    const std::string bytes = std::string("Attribute VB_Name = \"Odd\"\r\n' a\0b\r\n", 34);
    folder.write("Odd.bas", bytes);
    start({}, "Odd.bas");
    waitForTitle("Project1 - Corvelle Workbench");
    command(IDM_CODE);
    HWND code = nullptr;
    User::waitUntil("the code", [&] { return (code = child("Odd (Code, read only)")) != nullptr; });
    type(contentOf(code), "x");
    command(IDM_EXIT); // behind the key; of a change it would ask
    EXPECT_EQ(0U, waitForEnd());
    EXPECT_EQ(bytes, folder.read("Odd.bas"));
}

TEST_F(WorkbenchTest, ServesItsKeys) {
    start();
    waitForTitle(clean);
    bringForward(window());
    press('R', {VK_CONTROL});
    press(VK_F7);
    User::waitUntil("the code window", [this] { return child("frmMain (Code)") != nullptr; });
    press(VK_F7, {VK_SHIFT});
    User::waitUntil("the designer", [this] { return child("frmMain (MDIForm)") != nullptr; });
    press(VK_F4, {VK_CONTROL});
    User::waitUntil("the designer to go", [this] { return !child("frmMain (MDIForm)"); });
    press('Q', {VK_MENU});
    EXPECT_EQ(0U, waitForEnd());
}

} // namespace

} // namespace corvelle::workbench::tests
