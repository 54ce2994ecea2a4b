#include "cli/run_corvelle.h"
#include "workbench/indexer_road.h"
#include "workbench/resource.h"

#include <filesystem>

namespace corvelle::workbench::tests {

namespace {

/// The program with a project that takes the indexer some seconds.
struct IndexerInterruptions : IndexerRoad {
    static constexpr int designers = 30;
    static constexpr int controls = 50;

    void writeLargeProject() const {
        std::string project = "Type=Exe\r\n";
        for (int i = 1; i <= designers; ++i) {
            const auto name = "frm" + std::to_string(i);
            project += "Form=" + name + ".frm\r\n";
            std::string form = "VERSION 5.00\r\nBegin VB.Form " + name + " \r\n";
            for (int j = 1; j <= controls; ++j)
                form += "   Begin VB.CommandButton cmd" + std::to_string(j) + " \r\n   End\r\n";
            folder.write(name + ".frm", form + "End\r\nAttribute VB_Name = \"" + name + "\"\r\n");
        }
        folder.write("Large.vbp", project + "Name=\"Large\"\r\n");
    }
    HWND startWizard() {
        writeLargeProject();
        startIndexer("Large.vbp");
        return openWizard(openStartMenu());
    }
    /// The wizard in the midst of a creation: what it is asked next, it is asked while that runs.
    HWND createLargeIndex() {
        const HWND wizard = startWizard();
        User::press(User::controls(wizard, "SysTabControl32").at(0), VK_RIGHT);
        tick(wizard, "Add a &Module to project listing all the ID Mappings");
        tick(wizard, "Create Procedures in each Designer to load  each");
        analyse(wizard);
        goToSecondStage(wizard);
        const auto boxes = User::controls(wizard, "Edit");
        type(boxes.at(0), path("a.h"));
        type(boxes.at(1), path("a.hcnf"));
        type(boxes.at(2), "modHelp");
        type(boxes.at(3), path("modHelp.bas"));
        click(wizard, "&Create");
        User::waitUntil("the first designer", [wizard] {
            for (const HWND label : User::controls(wizard, "Static")) {
                if (User::text(label).find("Processing module: ") == 0) return true;
            }
            return false;
        });
        return wizard;
    }
    /// The files that a creation leaves that was ended between two designers.
    void expectInterruptedFiles() const {
        namespace fs = std::filesystem;
        const auto count = [](const std::string& text, const std::string& what) {
            int found = 0;
            for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++found;
            return found;
        };
        User::waitUntil("the file to be closed", [this] { // by the creation, when its designer is complete
            std::error_code error;
            fs::rename(path("a.hcnf"), path("b.hcnf"), error);
            return !error;
        });
        const auto mappings = folder.read("b.hcnf");
        const int begun = count(mappings, "<P>");
        EXPECT_LT(0, begun);
        EXPECT_GT(designers, begun);
        EXPECT_EQ(begun * controls, count(mappings, "<C>"));
        EXPECT_EQ(begun * controls + 1, count(folder.read("a.h"), "#define "));
        EXPECT_TRUE(fs::remove(path("a.h")));
        EXPECT_TRUE(fs::remove(path("b.hcnf")));
        EXPECT_FALSE(fs::exists(path("modHelp.bas"))); // saved last of all
    }
    /// The mapping module is there, and nobody has saved it.
    void endWithoutSaving() const {
        command(IDM_EXIT);
        EXPECT_NE(std::string::npos, answer(IDNO).find("modHelp"));
        EXPECT_EQ(0U, waitForEnd());
    }
    void end() const {
        command(IDM_EXIT);
        EXPECT_EQ(0U, waitForEnd());
    }
    static void waitUntilGone(HWND form) {
        User::waitUntil("the window to go", [form] { return !IsWindow(form); });
    }
};

TEST_F(IndexerInterruptions, EndsWhileAnIndexIsCreated) {
    createLargeIndex();
    endWithoutSaving();
    expectInterruptedFiles();
    EXPECT_EQ("1", autoShow());
}

TEST_F(IndexerInterruptions, UnloadsTheAddInWhileAnIndexIsCreated) {
    const HWND wizard = createLargeIndex();
    command(IDM_ADD_INS);
    const HWND manager = user().box("Add-In Manager");
    toggle(manager, "Corvelle.ContextHelpIndexer", IDC_LOADED);
    accept(manager);
    waitUntilGone(wizard);
    expectInterruptedFiles();
    EXPECT_TRUE(IsWindowEnabled(window()));
    toggleLoaded("Corvelle.ContextHelpIndexer");
    const HWND menu = openStartMenu();
    clickUntil(menu, "&Nothing .. Just Exit", "the start menu to go", [menu] { return !IsWindow(menu); });
    endWithoutSaving();
}

TEST_F(IndexerInterruptions, ClosesTheWizardWhileAnIndexIsCreated) {
    const HWND wizard = createLargeIndex();
    User::close(wizard);
    waitUntilGone(wizard);
    expectInterruptedFiles();
    close(openWizard(openStartMenu()));
    endWithoutSaving();
}

TEST_F(IndexerInterruptions, EndsWhileAProjectIsAnalysed) {
    const HWND wizard = startWizard();
    PostMessageA(User::control(wizard, "Button", "&Analyse"), BM_CLICK, 0, 0);
    end();
}

struct EditorInterruptions : IndexerInterruptions {
    HWND openIndexInEditor() {
        const auto run = corvelle::test::runCorvelle(
            {"index", "--header", path("a.h"), "--config", path("a.hcnf"), "--text", path("a.txt"),
             "--project-file", path("a.icp"), path("Stockroom.vbp")});
        EXPECT_EQ(0, run.status) << run.err;
        startIndexer();
        const HWND editor = openEditor(openStartMenu());
        chooseFile(editor, "....", "Open Indexer Project", path("a.icp"));
        User::waitForText(editor, "Static", " Status: Ready to accept Text entries...");
        return editor;
    }
};

TEST_F(EditorInterruptions, EndsWithTheEditorOpen) {
    openIndexInEditor();
    end();
}

TEST_F(EditorInterruptions, LeavesTheEditorToItsUserWhenTheAddInIsUnloaded) {
    const HWND editor = openIndexInEditor();
    toggleLoaded("Corvelle.ContextHelpIndexer");
    const HWND box = User::controls(editor, "Edit").at(2);
    SendMessageA(box, EM_SETSEL, 0, -1);
    type(box, "Tells the time");
    User::waitUntil("the text", [box] { return User::text(box) == "Tells the time"; });
    chooseNext(editor, User::controls(editor, "ComboBox").at(1), "IDH_AAAC");
    EXPECT_EQ("File was saved successfully.", clickAndAnswer(editor, "&Save", "Corvelle", IDOK));
    EXPECT_NE(std::string::npos, folder.read("a.txt").find(".topic  IDH_AAAB\r\nTells the time\r\n"));
    close(editor);
    end();
}

} // namespace

} // namespace corvelle::workbench::tests
