#include "faults/road.h"
#include "host/context_help_indexer.h"
#include "indexer/forms/frm_index_main.h"
#include "indexer/forms/frm_indexer.h"
#include "indexer/forms/frm_txt.h"

#include <algorithm>
#include <utility>

namespace corvelle::host::test {
namespace {

using indexer::FrmIndex_Main;
using indexer::FrmIndexer;
using indexer::FrmTxt;

// The index's files are chosen by what the dialogs ask for.
class IndexerRoad : public Road {
  public:
    explicit IndexerRoad(forms::CommandButton FrmIndex_Main::*choice) {
        addIn = std::make_shared<ContextHelpIndexer>(desktop);
        names = {"none.lst", "a.h", "a.hcnf", "a.txt", "a.log", "a.icp"};
        folder.write("none.lst", "Timer\r\n");
        desktop.chosenFile = [this](const std::string& filter) {
            for (const auto& [words, name] :
                 {std::pair("*.txt", "a.txt"), {"*.log", "a.log"}, {"*.icp", "a.icp"}}) {
                if (filter.find(words) != std::string::npos) return pathOf(name);
            }
            return pathOf("none.lst");
        };
        desktop.inWait = [this, choice] {
            on<FrmIndex_Main>([&](FrmIndex_Main& menu) { press(menu.*choice); });
        };
    }

  protected:
    std::string read(const std::string& name) const { return corvelle::test::filesIn(folder.path())[name]; }
    static bool holds(const std::string& text, const std::string& part) {
        return text.find(part) != std::string::npos;
    }
};

const char* const oldTexts =
    ".topic  IDH_AAAA\r\nNothing is known.\r\n.topic  IDH_AAAB\r\nCloses the window.\r\n";
const char* const oldProject = "an older project\r\n";

// Start menu, the four stages with all that they can write, close.
class CreateRoad : public IndexerRoad {
  public:
    CreateRoad() : IndexerRoad(&FrmIndex_Main::Command1) {
        ide->project->name = "Proj";
        ide->project->fileName = "C:\\Proj\\Proj.vbp";
        ide->project->add("modMain", ide::ComponentType::StdModule, code_);
        const auto form = ide->project->add("frmMain", ide::ComponentType::VBForm, code_);
        form->add("CommandButton").with("Name", "cmdOK");
        form->add("TextBox").with("Name", "txtName");
        folder.write("a.txt", oldTexts);
        folder.write("a.log", report_ = "an older report\r\n");
        folder.write("a.icp", oldProject);
    }

    void expectUnharmed(bool failed) override {
        for (int i = 0; i < 2; ++i) EXPECT_EQ(ide->project->components.at(i)->code->lines, code_);
        const auto texts = read("a.txt");
        EXPECT_TRUE(texts == oldTexts || !holds(read("a.hcnf"), "IDH_AAAB") ||
                    holds(texts, "Closes the window."))
            << texts;
        EXPECT_TRUE(read("a.log") == "an older report\r\n" ||
                    read("a.log") == corvelle::test::withoutTime(report_))
            << read("a.log");
        const auto project = read("a.icp");
        EXPECT_TRUE(project == oldProject ||
                    (std::count(project.begin(), project.end(), '\n') == 8 && project.back() == '\n'))
            << project;
        if (failed) return;
        EXPECT_EQ(texts, ".topic  IDH_AAAA\r\nNo help information is available for this control.\r\n\r\n"
                         ".topic  IDH_AAAB\r\n Closes the window.\r\n.topic  IDH_AAAC\r\n The name.\r\n");
        EXPECT_TRUE(holds(read("a.log"), "Created Text file: "));
        EXPECT_NE(project, oldProject);
        EXPECT_EQ(ide->project->components.size(), 3U);
        EXPECT_EQ(ide->project->components.back()->savedAs, pathOf("modHelp.bas"));
    }

  protected:
    void useWindows() override {
        on<FrmIndexer>([this](FrmIndexer& form) {
            form.ChkIDMap.setValue(1);
            form.ChkAutoLoad.setValue(1);
        });
        const auto step = [this](const std::function<void(FrmIndexer&)>& action) { on<FrmIndexer>(action); };
        step([this](FrmIndexer& form) { press(form.CmdProc); });
        step([this](FrmIndexer& form) { press(form.CmdNext); });
        step([this](FrmIndexer& form) {
            desktop.type(form.Text1(0), pathOf("a.h"));
            desktop.type(form.Text1(1), pathOf("a.hcnf"));
            desktop.type(form.txtModule, "modHelp");
            desktop.type(form.Text1(3), pathOf("modHelp.bas"));
        });
        step([this](FrmIndexer& form) { press(form.CmdProc); });
        step([this](FrmIndexer& form) { press(form.CmdNext); });
        step([this](FrmIndexer& form) { press(form.Command2(2)); });
        step([this](FrmIndexer& form) {
            if (desktop.choose(form.CboCtl, 1)) desktop.type(form.txtHelp, "The name.");
            desktop.choose(form.CboCtl, 0); // which takes the text over
        });
        step([this](FrmIndexer& form) { press(form.CmdProc); });
        step([this](FrmIndexer& form) { press(form.CmdClose); }); // back, and again with the texts' file
        step([this](FrmIndexer& form) { press(form.CmdNext); });
        step([this](FrmIndexer& form) { press(form.CmdProc); });
        step([this](FrmIndexer& form) { press(form.CmdNext); });
        step([this](FrmIndexer& form) {
            report_ = form.TxtRV.text() + "\r\n";
            press(form.cmdRpt);
        });
        step([this](FrmIndexer& form) { press(form.CmdProc); });
        step([this](FrmIndexer& form) { press(form.CmdClose); });
    }

  private:
    const std::vector<std::string> code_{"Sub Main()", "End Sub"};
    std::string report_;
};

// Start menu, an index opened, a control deleted, a text changed, saved, closed.
class EditRoad : public IndexerRoad {
  public:
    EditRoad() : IndexerRoad(&FrmIndex_Main::Command2) {
        folder.write("a.h", "header");
        folder.write("a.hcnf", oldMappings);
        folder.write("a.txt", oldEntries);
        folder.write("a.icp", "Indexer project file :#\r\nVB Project Name= Proj\r\nProject File= p.vbp\r\n"
                              "Header file= " +
                                  pathOf("a.h") + "\r\nConfiguration File= " + pathOf("a.hcnf") +
                                  "\r\nText File= " + pathOf("a.txt") +
                                  "\r\nModule Name= \r\nModule File= \r\n");
    }

    void expectUnharmed(bool failed) override {
        EXPECT_EQ(read("a.h"), "header");
        const auto mappings = read("a.hcnf");
        EXPECT_TRUE(mappings == oldMappings || mappings == newMappings) << mappings;
        const auto texts = read("a.txt");
        EXPECT_TRUE(holds(texts, "Saves.\r\n") && holds(texts, "Nothing is known.\r\n")) << texts;
        EXPECT_TRUE(holds(texts, "the window.\r\n")) << texts;
        if (failed) return;
        EXPECT_EQ(mappings, newMappings);
        EXPECT_EQ(texts, ".topic  IDH_AAAA\r\n Nothing is known.\r\n.topic  IDH_AAAB\r\nShuts the window.\r\n"
                         ".topic  IDH_AAAD\r\n Saves.\r\n");
    }

  protected:
    void useWindows() override {
        const auto step = [this](const std::function<void(FrmTxt&)>& action) { on<FrmTxt>(action); };
        step([](FrmTxt& form) { form.NewText(); }); // which is there already
        step([this](FrmTxt& form) { press(form.Command2); });
        step([this](FrmTxt& form) {
            if (desktop.choose(form.CboCtl, 1)) press(form.CmdDel);
        });
        step([this](FrmTxt& form) {
            if (desktop.choose(form.CboCtl, 0)) desktop.type(form.txtHelp, "Shuts the window.");
            desktop.choose(form.CboCtl, 1);
        });
        step([this](FrmTxt& form) { press(form.CmdProc); });
        // The add-in's own disconnection lets the editor be.
        for (int i = 0; i < 3; ++i) step([this](FrmTxt& form) { press(form.CmdClose); });
    }

  private:
    static inline const std::string oldMappings =
        "<P>frmMain</P>\r\n<C>cmdOK CommandButton IDH_AAAB</C>\r\n<C>txtName TextBox IDH_AAAC</C>\r\n"
        "<P>frmPart</P>\r\n<C>cmdOK CommandButton IDH_AAAD</C>\r\n";
    static inline const std::string newMappings = "<P>frmMain</P>\r\n<C>cmdOK CommandButton IDH_AAAB</C>\r\n"
                                                  "<P>frmPart</P>\r\n<C>cmdOK CommandButton IDH_AAAD</C>\r\n";
    static inline const std::string oldEntries =
        ".topic  IDH_AAAA\r\nNothing is known.\r\n.topic  IDH_AAAB\r\nCloses the window.\r\n"
        ".topic  IDH_AAAC\r\nThe name.\r\n.topic  IDH_AAAD\r\nSaves.\r\n";
};

TEST(IndexerRoad, ACreationIsUnharmedWhateverCallFails) {
    failEachStep([] { return std::make_shared<CreateRoad>(); }, 50, 3, 30);
}

TEST(IndexerRoad, AnEditedIndexIsUnharmedWhateverCallFails) {
    failEachStep([] { return std::make_shared<EditRoad>(); }, 4, 1, 30);
}

} // namespace
} // namespace corvelle::host::test
