#include "cli/run_corvelle.h"
#include "workbench/resource.h"
#include "workbench/workbench_test.h"

namespace corvelle::workbench::tests {

namespace {

const std::string clean = "Stockroom - Corvelle Workbench";
const std::string changed = "Stockroom* - Corvelle Workbench";

struct FormatterRoad : WithAddIns {
    HWND openPage() const { return openFromAddIns(formatter, "&Next   >>"); }
    HWND openDialog(HWND page) const {
        clickUntil(page, "&Next   >>", "the dialog", [this] { return user().sees("&Format Code"); });
        return user().windowWith("&Format Code");
    }
    void format(HWND dialog) const {
        clickUntil(dialog, "&Format Code", "the formatted code", [dialog] {
            return User::isEnabled(dialog, "&Add to Module") &&
                   hasText(dialog, "Formatting completed successfully...");
        });
    }
    static bool hasText(HWND dialog, const std::string& status) {
        for (const HWND edit : User::controls(dialog, "Edit")) {
            if (User::text(edit) == " Status: " + status) return true;
        }
        return false;
    }
    void saveBackup(HWND dialog, const std::string& path) const {
        clickUntil(dialog, "&Select ...", "the save dialog", [this] { return seesBox("Save As"); });
        user().chooseFile("Save As", path);
        User::waitUntil("the backup",
                        [&] { return hasText(dialog, "File--> " + path + " was saved successfully.."); });
    }

    /// Formats a component by hand and compares the files with what the command line makes of a copy, which
    /// gets the folder's .editorconfig along.
    void formatsAsTheCommandLine(const std::string& component, const std::string& ending, bool pictures,
                                 const std::string& settings = "") {
        const std::string file = component + ending;
        const corvelle::test::TemporaryFolder byCommand;
        byCommand.write(file, folder.read(file));
        std::vector<std::string> arguments{"format", "--remove-empty-lines",
                                           (byCommand.path() / file).string()};
        if (settings.empty()) {
            arguments.insert(arguments.end(), {"--layout", "classic"});
        } else {
            folder.write(".editorconfig", settings);
            byCommand.write(".editorconfig", settings);
        }
        const auto outcome = corvelle::test::runCorvelle(arguments);
        ASSERT_EQ(0, outcome.status) << outcome.err;
        ASSERT_NE(folder.read(file), byCommand.read(file));

        startBoth();
        const HWND edit = contentOf(openCode(component));
        const std::string before = allText(edit);
        const HWND page = openPage();
        EXPECT_EQ("Trellis [Stockroom]", User::text(page));
        EXPECT_EQ(" " + component, User::text(User::controls(page, "Edit").at(0)));
        if (pictures) {
            command(IDM_TILE_VERTICALLY);
            SetWindowPos(page, nullptr, 325, 280, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
            Sleep(500); // nothing tells when all is on the screen
            takePicture("page");
        }
        const HWND dialog = openDialog(page);
        EXPECT_FALSE(IsWindowEnabled(window()));
        format(dialog);
        const std::string backup = (folder.path() / (component + "_bak" + ending)).string();
        saveBackup(dialog, backup);
        format(dialog);
        if (pictures) {
            Sleep(500); // the same
            takePicture("dialog");
        }
        clickUntil(dialog, "&Add to Module", "the code to be added",
                   [dialog] { return hasText(dialog, "Formatted code written to the code module.."); });
        clickUntil(dialog, "<< Go &Back", "the page", [this] { return user().sees("&Next   >>"); });
        EXPECT_TRUE(IsWindowEnabled(window()));
        waitForTitle(changed);
        User::waitUntil("the window to show it", [&] { return allText(edit) != before; });
        clickUntil(page, "&Cancel", "the page to go", [page] { return !IsWindow(page); });
        command(IDM_SAVE);
        waitForTitle(clean);
        EXPECT_EQ(byCommand.read(file), folder.read(file));
        // The command line's backups hold the whole file, the window's what the IDE shows.
        const bool ended = before.size() >= 2 && before.compare(before.size() - 2, 2, "\r\n") == 0;
        EXPECT_EQ(before + (ended ? "" : "\r\n"), folder.read(component + "_bak" + ending));
        command(IDM_EXIT);
        EXPECT_EQ(0U, waitForEnd());
    }
};

TEST_F(FormatterRoad, FormatsAModuleAsTheCommandLineDoes) {
    formatsAsTheCommandLine("modText", ".bas", true);
}

TEST_F(FormatterRoad, FormatsAFormAsTheCommandLineDoes) {
    formatsAsTheCommandLine("frmParts", ".frm", false);
}

const std::string structured = "root = true\n[*.{bas,frm}]\ncorvelle_layout = structured\n"
                               "indent_style = space\nindent_size = 3\ncorvelle_procedure = indent\n";

TEST_F(FormatterRoad, FormatsAModuleByItsBlocksWhereAnEditorConfigSaysSo) {
    formatsAsTheCommandLine("modText", ".bas", false, structured);
    EXPECT_NE(std::string::npos, folder.read("modText.bas").find("\r\n   "));
}

TEST_F(FormatterRoad, FormatsAFormByItsBlocksWhereAnEditorConfigSaysSo) {
    formatsAsTheCommandLine("frmParts", ".frm", false, structured);
}

TEST_F(FormatterRoad, FormatsAsAlwaysWhereAnEditorConfigSaysNothingOfTheLayout) {
    folder.write(".editorconfig", "root = true\n[*.{bas,frm}]\nindent_size = 3\ncorvelle_case = flush\n");
    formatsAsTheCommandLine("modText", ".bas", false);
}

TEST_F(FormatterRoad, FollowsTheActiveCodeWindow) {
    startBoth();
    openCode("modMain");
    const HWND last = openCode("modText");
    const HWND page = openPage();
    const auto name = [page] { return User::text(User::controls(page, "Edit").at(0)); };
    EXPECT_EQ(" modText", name());
    ask(last, WM_CLOSE);
    clickUntil(page, "&Refresh", "the window below", [&] { return name() == " modMain"; });
    openDesigner("frmPart", "frmPart (Form)"); // no code window: the one before stays the active one
    clickUntil(page, "&Refresh", "a look", [&] { return name() == " modMain"; });
    ask(child("modMain (Code)"), WM_CLOSE);
    clickUntil(page, "&Refresh", "the box", [this] { return seesBox("Corvelle"); });
    EXPECT_EQ("Activate a code module before activating this form.", user().answer("Corvelle", IDOK));
    EXPECT_FALSE(User::isEnabled(page, "&Next   >>"));
}

} // namespace

} // namespace corvelle::workbench::tests
