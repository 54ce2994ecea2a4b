#include "cli/run_corvelle.h"
#include "indexer/entry_edits.h"
#include "indexer/help_text_file.h"
#include "places.h"
#include "workbench/indexer_road.h"
#include "workbench/resource.h"

#include <filesystem>
#include <utility>

namespace corvelle::workbench::tests {

namespace {

namespace fs = std::filesystem;

const std::string clean = "Stockroom - Corvelle Workbench";

/// Beside the program, the command line does the same in a copy.
struct WholeIndexerRoad : IndexerRoad {
    WholeIndexerRoad() { fs::copy(fs::path(EXAMPLES_DIR) / "Stockroom", copy.path()); }

    std::string copyPath(std::string_view name) const { return (copy.path() / name).string(); }
    static void runCorvelle(const std::vector<std::string>& arguments) {
        const auto run = corvelle::test::runCorvelle(arguments);
        ASSERT_EQ(0, run.status) << run.err;
    }
    /// The command line's file as it would read beside the program's.
    std::string expected(const std::string& name) const {
        auto text = copy.read(name);
        const auto there = copy.path().string(), here = folder.path().string();
        for (auto at = text.find(there); at != std::string::npos; at = text.find(there, at + here.size()))
            text.replace(at, there.size(), here);
        return text;
    }
    void expectAsTheCommandLine(const std::string& name) const {
        EXPECT_FALSE(folder.read(name).empty()) << name;
        EXPECT_EQ(expected(name), folder.read(name)) << name;
    }
    /// For a file of which a line tells the time.
    void expectAsTheCommandLineBut(int line, const std::string& name) const {
        EXPECT_EQ(withoutLine(expected(name), line), withoutLine(folder.read(name), line)) << name;
    }
    static std::string withoutLine(std::string text, int line) {
        std::size_t begin = 0;
        while (line-- > 0) begin = text.find("\r\n", begin) + 2;
        return text.erase(begin, text.find("\r\n", begin) + 2 - begin);
    }

    void chooseOptions(HWND wizard) const {
        EXPECT_EQ("Help Context ID Indexer :Stage 1 of 4", User::text(wizard));
        EXPECT_FALSE(User::isEnabled(wizard, "&Next"));
        const HWND tabs = User::controls(wizard, "SysTabControl32").at(0);
        User::press(tabs, VK_RIGHT);
        for (const char* preset : {"&Forms", "&MDI Form"}) EXPECT_TRUE(User::isChecked(wizard, preset));
        for (const char* option :
             {"ActiveX Controls", "&Menus", "Add a &Module to project listing all the ID Mappings",
              "Create Procedures in each Designer to load  each"}) {
            EXPECT_FALSE(User::isChecked(wizard, option)) << option;
            tick(wizard, option);
        }
        takePictureOf(wizard, "wizard_options");
        User::press(tabs, VK_LEFT);
        User::waitForText(wizard, "Static", "Project Name: ");
    }
    void createIndex(HWND wizard) const {
        EXPECT_FALSE(User::isEnabled(wizard, "&Create"));
        const auto boxes = User::controls(wizard, "Edit");
        ASSERT_EQ(4U, boxes.size());
        chooseFile(wizard, "....", "Save As", path("a.h"));
        User::waitForText(wizard, "Edit", path("a.h"));
        type(boxes[1], path("a.hcnf"));
        type(boxes[2], "modHelp");
        type(boxes[3], path("modHelp.bas"));
        User::waitForText(wizard, "Edit", path("modHelp.bas"));
        click(wizard, "&Create");
        User::waitUntil("the index", [wizard] { return User::isEnabled(wizard, "&Next"); });
        User::waitForText(wizard, "Static", "Processing completed..");
        takePictureOf(wizard, "wizard_create");
        EXPECT_EQ("You have to create new Text file for Text entries..",
                  clickAndAnswer(wizard, "&Next", "Corvelle", IDOK));
    }
    void writeTexts(HWND wizard) const {
        User::control(wizard, "Button", "&Save");
        EXPECT_EQ("Help Context ID Indexer :Stage 3 of 4", User::text(wizard));
        const auto boxes = User::controls(wizard, "Edit");
        const auto lists = User::controls(wizard, "ComboBox");
        ASSERT_EQ(2U, boxes.size());
        ASSERT_EQ(2U, lists.size());
        User::waitForText(wizard, "Static", "IDH_AAAB");
        type(boxes[0], path("a.txt"));
        type(boxes[1], "Shows the time");
        User::waitForText(wizard, "Edit", "Shows the time");
        takePictureOf(wizard, "wizard_texts");
        chooseNext(wizard, lists[1], "IDH_AAAC"); // keeps what was typed
        const std::string asks =
            filesAsked({path("a.h"), path("a.hcnf"), path("modHelp.bas"), path("a.txt")});
        EXPECT_EQ(asks, clickAndAnswer(wizard, "Delete", "Update files..?", IDNO));
        EXPECT_TRUE(User::isEnabled(wizard, "Delete"));
        EXPECT_EQ(asks, clickAndAnswer(wizard, "Delete", "Update files..?", IDYES));
        User::waitForText(wizard, "Edit", "This control is deleted from Index..");
        chooseNext(wizard, lists[1], "IDH_AAAD");
        click(wizard, "Set &Default");
        User::waitUntil("the default", // nobody is asked again
                        [wizard] { return !User::isEnabled(wizard, "Set &Default"); });
        User::waitForText(wizard, "Static", "IDH_AAAA");
        EXPECT_EQ("File was saved successfully.", clickAndAnswer(wizard, "&Save", "Corvelle", IDOK));
    }
    void saveResults(HWND wizard) const {
        click(wizard, "&Next");
        User::control(wizard, "Button", "Save &Report");
        EXPECT_EQ("Help Context ID Indexer :Stage 1 of 4", User::text(wizard));
        takePictureOf(wizard, "wizard_report");
        chooseFile(wizard, "Save &Report", "Save As", path("a.log"));
        EXPECT_EQ("File: " + path("a.log") + " was saved..", user().answer("Corvelle", IDOK));
        chooseFile(wizard, "&Save", "Save As", path("a.icp"));
        EXPECT_EQ("File was saved successfully.", user().answer("Corvelle", IDOK));
    }
    static std::string filesAsked(const std::vector<std::string>& files) {
        std::string text = "This action requires following files to be updated :";
        for (const auto& file : files) text += "\n" + file;
        return text + "\nDo you wish to continue ?";
    }
    /// What the third stage has done to the texts. It writes the text file alone: the others keep the control
    /// that was deleted and the one that was set to the default.
    static std::string withStageThree(std::string texts) {
        const std::string typed = ".topic  IDH_AAAB\r\n";
        const std::string gone = ".topic  IDH_AAAC\r\n\r\n.topic  IDH_AAAD\r\n\r\n";
        texts.insert(texts.find(typed) + typed.size(), "Shows the time");
        return texts.erase(texts.find(gone), gone.size());
    }

    /// Opens the indexer project in the editor, and chooses a control of the first designer.
    HWND openProject(int row, const std::string& idhName) const {
        const HWND editor = openEditor(openStartMenu());
        EXPECT_EQ("Help ID Indexer: Create /Modify Text Entries", User::text(editor));
        EXPECT_FALSE(User::isEnabled(editor, "&Save"));
        EXPECT_TRUE(User::shows(editor, "Static", indexer::textEntriesInfo)); // there as it opens
        chooseFile(editor, "....", "Open Indexer Project", path("a.icp"));
        User::waitForText(editor, "Static", " Status: Ready to accept Text entries...");
        User::waitForText(editor, "Edit", " Shows the time");
        for (int i = 0; i < row; ++i) User::press(User::controls(editor, "ComboBox").at(1), VK_DOWN);
        User::waitForText(editor, "Static", idhName);
        return editor;
    }
    void saveTexts(HWND editor) const {
        EXPECT_EQ("File was saved successfully.", clickAndAnswer(editor, "&Save", "Corvelle", IDOK));
        User::waitForText(editor, "Static", "Status: Text file saved..");
        close(editor);
    }
    void expectIndexAsTheCommandLine() const {
        for (const char* name : {"a.h", "a.hcnf", "modHelp.bas", "Stockroom.vbp"})
            expectAsTheCommandLine(name);
        // The window writes each text anew, the command line only the one that changes.
        EXPECT_EQ(corvelle::test::shownHelpTexts(copy.read("a.txt")),
                  corvelle::test::shownHelpTexts(folder.read("a.txt")));
        expectAsTheCommandLineBut(0, "a.icp");
    }
    /// Name of the control with that help name, of the first designer.
    std::string controlOf(const std::string& idhName) const {
        const auto mappings = copy.read("a.hcnf");
        const auto end = mappings.find(" ", mappings.rfind("<C>", mappings.find(idhName)));
        const auto begin = mappings.rfind("<C>", end) + 3;
        return mappings.substr(begin, end - begin);
    }

    corvelle::test::TemporaryFolder copy;
};

TEST_F(WholeIndexerRoad, LeavesTheFilesThatTheCommandLineLeaves) {
    startIndexer();
    command(IDM_TILE_VERTICALLY);
    const HWND menu = openStartMenu();
    takePictureOf(menu, "start_menu");
    const HWND wizard = openWizard(menu);
    chooseOptions(wizard);
    analyse(wizard);
    EXPECT_TRUE(User::shows(wizard, "Static", "Total Controls: 79")); // Next and the counts go together
    takePictureOf(wizard, "wizard_analysis");
    goToSecondStage(wizard);
    createIndex(wizard);
    if (HasFatalFailure()) return;
    writeTexts(wizard);
    if (HasFatalFailure()) return;
    saveResults(wizard);
    close(wizard);
    const auto module = allText(contentOf(openCode("modHelp")));
    EXPECT_NE(std::string::npos, module.find("Public Sub Load_HelpID_StockGauge")) << module;
    command(IDM_SAVE);
    waitForTitle(clean);

    runCorvelle({"index",
                 "--numbering",
                 "classic",
                 "--components",
                 "forms,mdi,controls",
                 "--exclude",
                 "menus",
                 "--header",
                 copyPath("a.h"),
                 "--config",
                 copyPath("a.hcnf"),
                 "--module",
                 "modHelp",
                 "--module-file",
                 copyPath("modHelp.bas"),
                 "--autoload",
                 "--text",
                 copyPath("a.txt"),
                 "--report",
                 copyPath("a.log"),
                 "--project-file",
                 copyPath("a.icp"),
                 copyPath("Stockroom.vbp")});
    for (const auto& entry : fs::directory_iterator(copy.path())) {
        const auto name = entry.path().filename().string();
        if (name == "a.log") {
            expectAsTheCommandLineBut(1, name);
        } else if (name == "a.icp") {
            expectAsTheCommandLineBut(0, name);
        } else if (name == "a.txt") {
            EXPECT_EQ(withStageThree(copy.read(name)), folder.read(name));
        } else {
            expectAsTheCommandLine(name); // the project's other files, too, which nobody has touched
        }
    }

    // The editor goes on from there, and the command line beside it.
    copy.write("a.txt", folder.read("a.txt"));
    HWND editor = openProject(1, "IDH_AAAC"); // in the configuration file as ever
    const HWND box = User::controls(editor, "Edit").at(2);
    type(box, "Chooses a file");
    User::waitUntil("the text", [box] { return User::text(box) == "Chooses a file"; });
    takePictureOf(editor, "editor");
    chooseNext(editor, User::controls(editor, "ComboBox").at(1), "IDH_AAAD"); // keeps what was typed
    saveTexts(editor);
    runCorvelle({"text", copyPath("a.icp"), "set", "frmMain", controlOf("IDH_AAAC"), "Chooses a file"});
    expectIndexAsTheCommandLine();

    editor = openProject(2, "IDH_AAAD");
    EXPECT_EQ(filesAsked({path("a.hcnf"), path("a.txt"), " modHelp", " " + path("modHelp.bas")}),
              clickAndAnswer(editor, "Delete", "Update files..?", IDYES));
    User::waitForText(editor, "Edit", "This control is deleted from Index..");
    saveTexts(editor);
    runCorvelle({"text", copyPath("a.icp"), "delete", "frmMain", controlOf("IDH_AAAD")});
    EXPECT_EQ(std::string::npos, folder.read("a.hcnf").find("IDH_AAAD"));
    expectIndexAsTheCommandLine();

    EXPECT_EQ(clean, User::text(window()));
    command(IDM_EXIT);
    EXPECT_EQ(0U, waitForEnd());
    EXPECT_EQ("0", autoShow()); // both windows were closed
}

TEST_F(WholeIndexerRoad, KeepsTheListOfWhatIsNotIndexed) {
    folder.write("exclude.lst", "CommandButton  textbox Label\r\nComboBox\r\n");
    startIndexer();
    const auto asks = askForExcludeList(openStartMenu(), IDYES);
    EXPECT_EQ(0U, asks.find("The filepath containing list of controls")) << asks;
    user().chooseFile("Open", path("exclude.lst"));
    close(user().windowWith("&Analyse"));

    clickUntil(openStartMenu(), "&Create a New Index", "the wizard", // nobody is asked again
               [this] { return user().sees("&Analyse"); });
    const HWND wizard = user().windowWith("&Analyse");
    analyse(wizard);
    goToSecondStage(wizard);
    const auto boxes = User::controls(wizard, "Edit");
    type(boxes.at(0), path("a.h"));
    type(boxes.at(1), path("a.hcnf"));
    click(wizard, "&Create");
    User::waitUntil("the index", [wizard] { return User::isEnabled(wizard, "&Next"); });
    runCorvelle({"index", "--numbering", "classic", "--exclude-list", path("exclude.lst"), "--header",
                 copyPath("a.h"), "--config", copyPath("a.hcnf"), copyPath("Stockroom.vbp")});
    for (const char* name : {"a.h", "a.hcnf", "Stockroom.vbp"}) expectAsTheCommandLine(name);
    EXPECT_EQ(std::string::npos, folder.read("a.hcnf").find(" TextBox "));
    EXPECT_NE(std::string::npos, folder.read("a.hcnf").find(" ComboBox "));
    command(IDM_EXIT);
    EXPECT_EQ(0U, waitForEnd());
    EXPECT_EQ("1", autoShow()); // the wizard was open
}

} // namespace

} // namespace corvelle::workbench::tests
