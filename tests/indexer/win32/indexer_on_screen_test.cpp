#include "base/temporary_folder.h"
#include "cli/run_corvelle.h"
#include "formatter/win32/watched_desktop.h"
#include "ide/workspace/workspace.h"
#include "indexer/forms/frm_indexer.h"
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

/// The connect object: owns the wizard and lets go of it.
class Manager : public ui::WindowOwner {
  public:
    std::shared_ptr<FrmIndexer> wizard;

    void Hide() override {
        if (const auto shown = std::exchange(wizard, nullptr)) shown->unload();
    }
};

/// The wizard's real window over a copy of the example project; another copy is for the command line.
class IndexerOnScreen : public testing::Test {
  protected:
    IndexerOnScreen() : before_(setting()) {
        for (const char* copy : {"wizard", "command"})
            fs::copy(fs::path(EXAMPLES_DIR) / "Stockroom", folder.path() / copy);
        setSetting("");
        SetCursorPos(0, 0);
    }
    ~IndexerOnScreen() override {
        manager->Hide();
        setSetting(before_);
    }

    std::string path(const std::string& copy, const std::string& name) const {
        return (folder.path() / copy / name).string();
    }

    /// Shows the wizard and serves messages while a user works, on another thread. Once.
    void letUserWork(const std::function<void(const User&)>& user) {
        const auto ide = workspace::Workspace::open(path("wizard", "Stockroom.vbp"));
        manager->wizard = std::make_shared<FrmIndexer>(desktop);
        manager->wizard->ThisMgr = manager;
        desktop.letUserWork([&] { manager->wizard->ShowIndexer(ide); }, user);
    }

    /// Chooses a file in the dialog that the button shows.
    static void chooseFile(const User& user, HWND window, const std::string& button,
                           const std::string& file) {
        user.click(window, button);
        user.chooseFile("Save As", file);
    }
    /// Types into a box that is empty.
    static void type(HWND box, const std::string& text) {
        SendMessageA(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    }

    /// A file of the wizard's, and the command line's as it would read beside it.
    std::pair<std::string, std::string> files(const std::string& name) const {
        auto command = folder.read("command/" + name);
        const auto there = (folder.path() / "command").string(), here = (folder.path() / "wizard").string();
        for (auto at = command.find(there); at != std::string::npos; at = command.find(there, at + 1))
            command.replace(at, there.size(), here);
        return {folder.read("wizard/" + name), command};
    }
    static std::string withoutLine(std::string text, int line) {
        std::size_t begin = 0;
        while (line-- > 0) begin = text.find("\r\n", begin) + 2;
        return text.erase(begin, text.find("\r\n", begin) + 2 - begin);
    }

    corvelle::test::TemporaryFolder folder;
    WatchedDesktop desktop{GetModuleHandleA(nullptr)};
    std::shared_ptr<Manager> manager = std::make_shared<Manager>();

  private:
    std::string setting() { return desktop.settings().get("Trellis", "Indexer", "ExcludeList_Path", ""); }
    void setSetting(const std::string& value) {
        desktop.settings().save("Trellis", "Indexer", "ExcludeList_Path", value);
    }

    std::string before_;
};

TEST_F(IndexerOnScreen, LeavesTheFilesThatTheCommandLineLeaves) {
    letUserWork([&](const User& user) {
        user.answer("File not found..", IDNO);
        const HWND window = user.windowWith("&Analyse");
        EXPECT_EQ("Help Context ID Indexer :Stage 1 of 4", User::text(window));
        EXPECT_FALSE(User::isEnabled(window, "&Next"));
        User::press(User::controls(window, "SysTabControl32").at(0), VK_RIGHT);
        for (const char* option : {"Add a &Module to project listing all the ID Mappings",
                                   "Create Procedures in each Designer to load  each"}) {
            user.click(window, option);
            User::waitUntil("a tick", [&] { return User::isChecked(window, option); });
        }
        User::press(User::controls(window, "SysTabControl32").at(0), VK_LEFT);
        User::waitForText(window, "Static", "Total Controls: ");
        user.click(window, "&Analyse");
        User::waitUntil("the analysis", [&] { return User::isEnabled(window, "&Next"); });
        for (const char* count : {"VB Forms: 3", "Total Controls: 76", "Project has been saved: True"})
            EXPECT_TRUE(User::shows(window, "Static", count)) << count;

        user.click(window, "&Next");
        User::control(window, "Button", "&Create");
        EXPECT_EQ("Help Context ID Indexer :Stage 2 of 4", User::text(window));
        EXPECT_FALSE(User::isEnabled(window, "&Create"));
        const auto boxes = User::controls(window, "Edit");
        ASSERT_EQ(4U, boxes.size());
        chooseFile(user, window, "....", path("wizard", "a.h"));
        User::waitForText(window, "Edit", path("wizard", "a.h"));
        type(boxes[2], "modHelp");
        type(boxes[1], path("wizard", "a.hcnf"));
        type(boxes[3], path("wizard", "modHelp.bas"));
        user.click(window, "&Create");
        User::waitForText(window, "Static", "Processing completed..");

        user.click(window, "&Next");
        EXPECT_EQ("You have to create new Text file for Text entries..", user.answer("Corvelle", IDOK));
        User::control(window, "Button", "&Save");
        EXPECT_EQ("Help Context ID Indexer :Stage 3 of 4", User::text(window));
        const auto entries = User::controls(window, "Edit");
        ASSERT_EQ(2U, entries.size());
        User::waitForText(window, "Static", "IDH_AAAB");
        type(entries[0], path("wizard", "a.txt"));
        type(entries[1], "Shows the time");
        const auto lists = User::controls(window, "ComboBox");
        ASSERT_EQ(2U, lists.size());
        User::press(lists[1], VK_DOWN); // keeps what was typed
        User::waitForText(window, "Static", "IDH_AAAC");
        user.click(window, "&Save");
        EXPECT_EQ("File was saved successfully.", user.answer("Corvelle", IDOK));

        user.click(window, "&Next");
        User::control(window, "Button", "Save &Report");
        EXPECT_EQ("Help Context ID Indexer :Stage 1 of 4", User::text(window));
        chooseFile(user, window, "Save &Report", path("wizard", "a.log"));
        EXPECT_EQ("File: " + path("wizard", "a.log") + " was saved..", user.answer("Corvelle", IDOK));
        chooseFile(user, window, "&Save", path("wizard", "a.icp"));
        EXPECT_EQ("File was saved successfully.", user.answer("Corvelle", IDOK));
        user.click(window, "&Close");
        User::waitUntil("the window to go", [&] { return !IsWindow(window); });
    });
    EXPECT_FALSE(manager->wizard);

    const auto in = [this](const char* name) { return path("command", name); };
    const auto run = corvelle::test::runCorvelle(
        {"index", "--numbering", "classic", "--header", in("a.h"), "--config", in("a.hcnf"), "--module",
         "modHelp", "--module-file", in("modHelp.bas"), "--autoload", "--text", in("a.txt"), "--report",
         in("a.log"), "--project-file", in("a.icp"), in("Stockroom.vbp")});
    ASSERT_EQ(run.status, 0) << run.err;
    for (const char* name : {"a.h", "a.hcnf", "modHelp.bas", "Stockroom.vbp"}) {
        const auto [wizard, command] = files(name);
        EXPECT_FALSE(wizard.empty());
        EXPECT_EQ(wizard, command) << name;
    }
    auto [entries, expected] = files("a.txt");
    const std::string topic = ".topic  IDH_AAAB\r\n";
    expected.insert(expected.find(topic) + topic.size(), "Shows the time");
    EXPECT_EQ(entries, expected);
    for (const auto& [name, line] : {std::pair("a.log", 1), std::pair("a.icp", 0)}) { // these tell the time
        const auto [wizard, command] = files(name);
        EXPECT_EQ(withoutLine(wizard, line), withoutLine(command, line)) << name;
    }
}

TEST_F(IndexerOnScreen, ClosesWhileItCreatesTheIndex) {
    letUserWork([&](const User& user) {
        user.answer("File not found..", IDNO);
        const HWND window = user.windowWith("&Analyse");
        user.click(window, "&Analyse");
        User::waitUntil("the analysis", [&] { return User::isEnabled(window, "&Next"); });
        user.click(window, "&Next");
        User::control(window, "Button", "&Create");
        const auto boxes = User::controls(window, "Edit");
        type(boxes.at(0), path("wizard", "a.h"));
        type(boxes.at(1), path("wizard", "a.hcnf"));
        user.click(window, "&Create");
        User::close(window); // served at the next yield
        User::waitUntil("the window to go", [&] { return !IsWindow(window); });
    });
    EXPECT_EQ(manager->wizard, nullptr);
    EXPECT_TRUE(fs::remove(path("wizard", "a.h"))); // nobody has it open
    EXPECT_TRUE(fs::remove(path("wizard", "a.hcnf")));
}

} // namespace
} // namespace corvelle::indexer::tests
