#include "base/temporary_folder.h"
#include "cli/run_corvelle.h"
#include "formatter/win32/watched_desktop.h"
#include "indexer/forms/frm_txt.h"
#include "indexer/help_text_file.h"
#include "places.h"

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>
#include <windows.h>

namespace corvelle::indexer::tests {
namespace {

using formatter::tests::User;
using formatter::tests::WatchedDesktop;
namespace fs = std::filesystem;

/// The connect object: owns the editor and lets go of it.
class EditorOwner : public ui::WindowOwner {
  public:
    std::shared_ptr<FrmTxt> editor;

    void Hide() override {
        if (const auto shown = std::exchange(editor, nullptr)) shown->unload();
    }
};

/// The editor's real window over an index of the example project; a second one is for the command line.
class TextEditorOnScreen : public testing::Test {
  protected:
    TextEditorOnScreen() {
        for (const char* copy : {"window", "command"}) {
            fs::copy(fs::path(EXAMPLES_DIR) / "Stockroom", folder.path() / copy);
            const auto in = [&](const char* name) { return path(copy, name); };
            const auto run = corvelle::test::runCorvelle(
                {"index", "--header", in("a.h"), "--config", in("a.hcnf"), "--text", in("a.txt"),
                 "--default-text", "No help.", "--project-file", in("a.icp"), in("Stockroom.vbp")});
            EXPECT_EQ(run.status, 0) << run.err;
        }
        SetCursorPos(0, 0);
    }
    ~TextEditorOnScreen() override { owner->Hide(); }

    std::string path(const std::string& copy, const std::string& name) const {
        return (folder.path() / copy / name).string();
    }

    /// Shows the editor and serves messages while a user works, on another thread. Once.
    void letUserWork(const std::function<void(const User&)>& user) {
        owner->editor = std::make_shared<FrmTxt>(desktop);
        desktop.letUserWork([this] { owner->editor->ShowTextEdit(nullptr, owner); }, user);
    }

    static void openProject(const User& user, HWND window, const std::string& file) {
        user.click(window, "....");
        user.chooseFile("Open Indexer Project", file);
    }
    static void type(HWND box, const std::string& text) {
        for (const char key : text) PostMessageA(box, WM_CHAR, static_cast<unsigned char>(key), 0);
    }

    corvelle::test::TemporaryFolder folder;
    WatchedDesktop desktop{GetModuleHandleA(nullptr)};
    std::shared_ptr<EditorOwner> owner = std::make_shared<EditorOwner>();
};

TEST_F(TextEditorOnScreen, LeavesTheFilesThatTheCommandLineLeaves) {
    letUserWork([&](const User& user) {
        const HWND window = user.windowWith("Set &Default");
        EXPECT_EQ("Help ID Indexer: Create /Modify Text Entries", User::text(window));
        EXPECT_FALSE(User::isEnabled(window, "&Save"));
        openProject(user, window, path("window", "a.icp"));
        User::waitForText(window, "Static", " Status: Ready to accept Text entries...");
        User::waitForText(window, "Edit", path("window", "a.icp"));
        User::waitForText(window, "Static", "IDH_AAAB");
        const auto boxes = User::controls(window, "Edit");
        const auto lists = User::controls(window, "ComboBox");
        ASSERT_EQ(3U, boxes.size());
        ASSERT_EQ(2U, lists.size());
        SendMessageA(boxes[2], EM_SETSEL, 0, -1);
        type(boxes[2], "Tells the time");
        User::press(lists[1], VK_DOWN); // keeps what was typed
        User::waitForText(window, "Static", "IDH_AAAC");
        user.click(window, "Set &Default");
        const auto asked = user.answer("Update files..?", IDYES);
        EXPECT_EQ(0U, asked.find("This action requires following files to be updated :")) << asked;
        User::waitForText(window, "Static", "IDH_AAAA");
        User::press(lists[1], VK_DOWN);
        User::waitForText(window, "Static", "IDH_AAAD");
        user.click(window, "Delete");
        User::waitForText(window, "Edit", "This control is deleted from Index..");
        user.click(window, "&Save");
        EXPECT_EQ("File was saved successfully.", user.answer("Corvelle", IDOK));
        User::waitForText(window, "Static", "Status: Text file saved..");

        User::press(lists[1], VK_DOWN);
        User::waitForText(window, "Static", "IDH_AAAE");
        type(boxes[2], "x");
        user.click(window, "&Close");
        const auto closing = user.answer("Save ?", IDNO);
        EXPECT_EQ(0U, closing.find("You have not saved the changes.")) << closing;
        User::waitUntil("the window to go", [&] { return !IsWindow(window); });
    });
    EXPECT_FALSE(owner->editor);

    // A text that is read again has a space in front: last what the window has typed.
    for (const std::vector<std::string>& command : {std::vector<std::string>{"default", "frmMain", "dlgFile"},
                                                    {"delete", "frmMain", "tbrMain"},
                                                    {"set", "frmMain", "tmrClock", "Tells the time"}}) {
        std::vector<std::string> arguments{"text", path("command", "a.icp")};
        arguments.insert(arguments.end(), command.begin(), command.end());
        const auto run = corvelle::test::runCorvelle(arguments);
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.out, "File was saved successfully.\n");
    }
    for (const std::string name : {"a.h", "a.hcnf"}) {
        EXPECT_FALSE(folder.read("window/" + name).empty());
        EXPECT_EQ(folder.read("window/" + name), folder.read("command/" + name)) << name;
    }
    // The window writes each text anew, the command line only the one that changes.
    EXPECT_EQ(corvelle::test::shownHelpTexts(folder.read("window/a.txt")),
              corvelle::test::shownHelpTexts(folder.read("command/a.txt")));
    EXPECT_NE(folder.read("window/a.txt").find(".topic  IDH_AAAB\r\nTells the time\r\n"), std::string::npos);
}

// What the windows do about the keys of their lists keeps none of them from the list.
TEST_F(TextEditorOnScreen, LeavesTheKeysOfTheListsToThem) {
    letUserWork([&](const User& user) {
        const HWND window = user.windowWith("Set &Default");
        openProject(user, window, path("window", "a.icp"));
        User::waitForText(window, "Static", " Status: Ready to accept Text entries...");
        for (const HWND list : User::controls(window, "ComboBox")) {
            const auto last = SendMessageA(list, CB_GETCOUNT, 0, 0) - 1;
            ASSERT_GT(last, 0);
            const auto expectRow = [&](const char* key, LRESULT row) {
                User::waitUntil(std::string("the row after ") + key,
                                [&] { return SendMessageA(list, CB_GETCURSEL, 0, 0) == row; });
            };
            User::press(list, VK_END);
            expectRow("End", last);
            User::press(list, VK_HOME);
            expectRow("Home", 0);
            User::press(list, VK_DOWN);
            expectRow("Down", 1);
            User::press(list, VK_UP);
            expectRow("Up", 0);
            char name[256] = "";
            SendMessageA(list, CB_GETLBTEXT, 1, reinterpret_cast<LPARAM>(name));
            const auto found =
                SendMessageA(list, CB_FINDSTRING, 0, reinterpret_cast<LPARAM>(std::string(name, 1).c_str()));
            ASSERT_NE(found, 0);
            PostMessageA(list, WM_CHAR, static_cast<unsigned char>(name[0]), 0);
            expectRow("a letter", found);
        }
        user.click(window, "&Close");
        User::waitUntil("the window to go", [&] { return !IsWindow(window); });
    });
}

} // namespace
} // namespace corvelle::indexer::tests
