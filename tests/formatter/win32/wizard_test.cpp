#include "formatter/win32/wizard_on_screen.h"

namespace corvelle::formatter::tests {

namespace {

using Lines = std::vector<std::string>;

constexpr const char* noEmpty = "Remove all empty lines [Lines which have only space]";
constexpr const char* noComments = "Remove all Lines which have Only &Comments";
constexpr const char* noTrailing = "Remove all trailing Comments from code lines";
constexpr const char* succeeded = "Formatting completed successfully...";
constexpr const char* question = "You have not added the formatted code to the code module..!\n"
                                 "Sure you wish to exit ?";

std::string resultsOf(std::size_t before, std::size_t after) {
    return "      Module contains " + std::to_string(before) +
           " Lines | Formatted code contains:  " + std::to_string(after) + " Lines";
}

std::string asFile(const Lines& lines) {
    std::string bytes;
    for (const std::string& line : lines) bytes += line + "\r\n";
    return bytes;
}

// What a run with the dialog's own options lists.
Lines errorsIn(const Lines& lines) {
    FormatOptions options;
    options.bNoEmpty = 1;
    Lines errors;
    for (const auto& fault : formatCode({.lines = {lines.begin(), lines.end()}}, options).faults) {
        errors.push_back(fault.text);
    }
    return errors;
}

// Saves a backup through the system's dialog.
void saveBackup(const User& user, HWND dialog, const std::string& path) {
    user.click(dialog, "&Select ...");
    EXPECT_NE(std::string::npos, user.chooseFile("Save As", path).find("modText_bak"));
}

TEST_F(WizardOnScreen, FormatsAModuleFromThePageToTheCodeAndBack) {
    activate("modText");
    const Lines before = code();
    FormatOptions options;
    options.bNoCmntLn = 1;
    options.mTab = 4;
    const Lines expected = formatted(before, options);
    const std::string backup = (folder.path() / "saved.bas").string();

    letUserWork([&](const User& user) {
        const HWND page = user.windowWith("&Next   >>");
        EXPECT_EQ("Trellis [Stockroom]", User::text(page));
        EXPECT_EQ(" modText", User::text(User::controls(page, "Edit").at(0)));

        const HWND dialog = openDialog(user);
        EXPECT_FALSE(IsWindowVisible(page));
        EXPECT_EQ("Trellis [Stockroom]", User::text(dialog));
        for (const char* caption : {"&Select ...", "&Format Code", "&Add to Module", "<< Go &Back", "&Close",
                                    "&Help", "Formatting Options", "Processing Results", noTrailing}) {
            User::waitForText(dialog, "Button", caption);
        }
        for (const char* caption : {"modText", "Tab Width:", " No Process", "       No Results.."}) {
            User::waitForText(dialog, "Static", caption);
        }
        EXPECT_FALSE(User::isEnabled(dialog, "&Add to Module"));

        EXPECT_TRUE(User::isChecked(dialog, noEmpty));
        user.click(dialog, noEmpty);
        User::waitUntil("no tick", [&] { return !User::isChecked(dialog, noEmpty); });
        user.click(dialog, noComments);
        User::waitUntil("a tick", [&] { return User::isChecked(dialog, noComments); });
        const HWND lblTab = User::control(dialog, "Static", "2");
        const HWND slider = User::controls(dialog, "msctls_trackbar32").at(0);
        User::press(slider, VK_RIGHT);
        User::press(slider, VK_RIGHT);
        User::waitUntil("the tab width", [&] { return User::text(lblTab) == "4"; });

        user.click(dialog, "&Format Code");
        User::waitForText(dialog, "Edit", status(succeeded));
        User::waitForText(dialog, "Static", resultsOf(before.size(), expected.size()));
        EXPECT_TRUE(User::isEnabled(dialog, "&Add to Module"));

        saveBackup(user, dialog, backup);
        User::waitForText(dialog, "Edit", status("File--> " + backup + " was saved successfully.."));
        User::waitForText(dialog, "Edit", backup);
        EXPECT_FALSE(User::isEnabled(dialog, "&Add to Module"));

        user.click(dialog, "&Format Code");
        User::waitForText(dialog, "Edit", status(succeeded));
        user.click(dialog, "&Add to Module");
        User::waitForText(dialog, "Edit", status("Formatted code written to the code module.."));
        EXPECT_FALSE(User::isEnabled(dialog, "&Add to Module"));

        user.click(dialog, "<< Go &Back");
        EXPECT_EQ(page, user.windowWith("&Next   >>"));
        EXPECT_FALSE(IsWindow(dialog));
        EXPECT_FALSE(user.seesBox("Add code ..?"));
    });
    EXPECT_EQ(asFile(before), folder.read("saved.bas"));
    EXPECT_EQ(expected, code());
    ASSERT_TRUE(manager->page);
    EXPECT_EQ(folder.path().string() + "\\", manager->page->backupDir());
    EXPECT_EQ(0, manager->hides);
}

TEST_F(WizardOnScreen, AsksBeforeFormattedCodeIsLost) {
    activate("modText");
    const Lines before = code();
    letUserWork([&](const User& user) {
        const HWND page = user.windowWith("&Next   >>");
        HWND dialog = openDialog(user);
        user.click(dialog, "<< Go &Back"); // nothing is lost: no question
        EXPECT_EQ(page, user.windowWith("&Next   >>"));

        user.click(page, "&Next   >>"); // nothing was formatted: no question here either
        dialog = user.windowWith("&Format Code");
        user.click(dialog, "&Format Code");
        User::waitForText(dialog, "Edit", status(succeeded));
        User::close(dialog);
        EXPECT_EQ(question, user.answer("Add code ..?", IDNO));
        EXPECT_EQ(dialog, user.windowWith("&Format Code"));
        User::close(dialog);
        EXPECT_EQ(question, user.answer("Add code ..?", IDYES));
        EXPECT_EQ(page, user.windowWith("&Next   >>"));
        EXPECT_FALSE(IsWindow(dialog));

        user.click(page, "&Next   >>");
        EXPECT_EQ("Please confirm that you wish to format \nModule: modText which was just formatted",
                  user.answer("Repeate formatting ..?", IDNO));
    });
    EXPECT_EQ(before, code());
}

TEST_F(WizardOnScreen, CloseClosesTheWholeWizard) {
    activate("modText");
    letUserWork([&](const User& user) {
        const HWND page = user.windowWith("&Next   >>");
        const HWND dialog = openDialog(user);
        user.click(dialog, "&Close");
        User::waitUntil("both windows to go", [&] { return !IsWindow(dialog) && !IsWindow(page); });
    });
    EXPECT_GE(manager->hides, 1);
    EXPECT_FALSE(manager->page);
}

TEST_F(WizardOnScreen, ListsTheStructuralErrors) {
    activate("COrder");
    const Lines before = code();
    const Lines expected = errorsIn(before);
    ASSERT_FALSE(expected.empty());
    letUserWork([&](const User& user) {
        const HWND dialog = openDialog(user);
        user.click(dialog, "&Format Code");
        const HWND list = user.windowTitled("Formatting Errors");
        EXPECT_FALSE(IsWindowEnabled(dialog));
        const Lines errors = User::entries(User::controls(list, "ListBox").at(0));
        const std::string count = std::to_string(errors.size());
        EXPECT_EQ(expected, errors);
        User::waitForText(list, "Static", "Total " + count + " errors detected..");
        User::waitForText(dialog, "Edit",
                          status("Formatting was not successful." + count + " errors detected.."));
        user.click(list, "&Close");
        EXPECT_EQ(dialog, user.windowWith("&Format Code"));
        EXPECT_FALSE(User::isEnabled(dialog, "&Add to Module"));
        user.click(dialog, "<< Go &Back");
        user.answer("Add code ..?", IDYES);
        user.windowWith("&Next   >>");
    });
    EXPECT_EQ(before, code());
}

} // namespace

} // namespace corvelle::formatter::tests
