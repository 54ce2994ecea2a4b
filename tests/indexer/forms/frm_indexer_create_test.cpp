#include "forms/message_box.h"
#include "indexer/forms/indexer_wizard.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <gmock/gmock.h>

namespace corvelle::indexer::test {
namespace {

using forms::answer::ok;
using ide::ComponentType;
using testing::ElementsAre;

class IndexerCreate : public testing::Test, protected IndexerWizard {
  protected:
    IndexerCreate() { addExample(); }

    void expectComplete(FrmIndexer& form) {
        EXPECT_EQ(header(), exampleHeader);
        EXPECT_EQ(configuration(), exampleConfiguration);
        EXPECT_EQ(form.LblProc.caption(), "Processing completed..");
        EXPECT_EQ(form.LblProcModule.caption(), "No module under process..");
        EXPECT_FALSE(indicatorRuns(form));
    }
    // What the creation added to the report.
    static std::vector<std::string> steps(FrmIndexer& form) {
        const auto lines = reportLines(form);
        return {std::find(lines.begin(), lines.end(), "***** Indexing Started *******"), lines.end()};
    }
    corvelle::test::FakeComponent& lastComponent() const { return *ide->project->components.back(); }
};

// The files

TEST_F(IndexerCreate, ShowsAFileDialogForEachPath) {
    FrmIndexer& form = showStageTwo();
    const std::vector<std::pair<std::size_t, const char*>> rows{
        {0, "Header file(*.h)|*.h"}, {1, "Config file(*.hcnf)|*.hcnf"}, {3, "VB Module(*.bas)|*.bas"}};
    for (const auto& [index, filter] : rows) {
        desktop.chooseNextFile("C:\\chosen");
        EXPECT_TRUE(click(form.Command2(index)));
        const auto& dialog = desktop.fileDialogs().back();
        EXPECT_EQ(dialog.filter, filter);
        EXPECT_EQ(dialog.initDir, "C:\\Projects\\Stock\\");
        EXPECT_EQ(dialog.flags, 8194);
        EXPECT_TRUE(dialog.save);
        EXPECT_EQ(form.Text1(index).text(), "C:\\chosen");

        desktop.cancelNextFile();
        EXPECT_TRUE(click(form.Command2(index)));
        EXPECT_EQ(form.Text1(index).text(), "C:\\chosen");
    }
    EXPECT_TRUE(desktop.boxes().empty());
}

TEST_F(IndexerCreate, WritesOverNoFileOfTheProjectItself) {
    const auto project = folder.write("Stock.vbp", "Type=Exe\r\n"),
               module = folder.write("frmMain.frm", "form"), binary = folder.write("frmMain.frx", "binary");
    ide->project->fileName = project.string();
    ide->project->components.front()->fileName = module.string();
    FrmIndexer& form = showStageTwo();
    form.ChkIDMap.setValue(1);
    form.txtModule.setText("modHelp");
    for (const std::size_t index : {0, 1, 3}) {
        for (const auto& own : {project, module, binary}) {
            for (const std::size_t other : {0, 1, 3})
                form.Text1(other).setText((folder.path() / std::to_string(other)).string());
            form.Text1(index).setText(own.string());
            desktop.answerNextBox(ok);
            EXPECT_TRUE(click(form.CmdProc));
            EXPECT_EQ(desktop.boxes().back().text,
                      "'" + own.string() +
                          "' is a file of the project itself. \rPlease choose another file.");
            EXPECT_EQ(desktop.boxes().back().flags, forms::box::exclamation);
            EXPECT_FALSE(form.CmdNext.enabled());
        }
    }
    EXPECT_EQ(folder.read("frmMain.frm"), "form");
    EXPECT_EQ(folder.read("frmMain.frx"), "binary");
    EXPECT_EQ(folder.read("Stock.vbp"), "Type=Exe\r\n");
}

TEST_F(IndexerCreate, ChoosesAFileWhateverTheIdeTellsOfTheProject) {
    FrmIndexer& form = showStageTwo();
    ide->project->fileName = ""; // never saved
    desktop.chooseNextFile("a");
    click(form.Command2(0));
    EXPECT_EQ(desktop.fileDialogs().back().initDir, "");
    calls.failForGood("", 1, disaster);
    desktop.chooseNextFile("b");
    click(form.Command2(0));
    EXPECT_EQ(form.Text1(0).text(), "b");
}

TEST_F(IndexerCreate, ForgetsAChoiceWhoseWindowHasGone) {
    class Desktop : public forms::HeadlessDesktop {
      public:
        std::function<void()> meanwhile;
        std::optional<std::string> chooseFile(const forms::CommonDialog&, bool) override {
            meanwhile();
            return "chosen";
        }
    } other;
    other.settings().save("Trellis", "Indexer", "ExcludeList_Path", pathOf("exclude.lst"));
    const auto form = std::make_shared<FrmIndexer>(other);
    form->ShowIndexer(ide);
    other.meanwhile = [&] { form->unload(); };
    for (auto* command : {&form->CmdProc, &form->CmdNext, &form->Command2(0)})
        EXPECT_TRUE(other.click(*command));
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(IndexerCreate, IsEnabledByThePathsThatItNeeds) {
    constexpr int grey = 2; // counts as unchecked
    struct Row {
        bool header, configuration;
        int map;
        bool module, name, enabled;
    };
    const std::vector<Row> rows{
        {false, false, 0, false, false, false}, {true, false, 0, false, false, false},
        {false, true, 0, false, false, false},  {true, true, 0, false, false, true},
        {true, true, 1, false, false, false},   {true, true, 1, true, false, false},
        {true, true, 1, false, true, false},    {true, true, 1, true, true, true},
        {false, true, 1, true, true, false},    {true, true, grey, false, false, true},
        {true, false, grey, true, true, false},
    };
    FrmIndexer& form = show();
    click(form.CmdProc);
    click(form.CmdNext);
    for (const Row& row : rows) {
        form.ChkIDMap.setValue(row.map);
        form.txtModule.setText(row.name ? "m" : "");
        form.Text1(0).setText(row.header ? "h" : "");
        form.Text1(1).setText(row.configuration ? "c" : "");
        form.Text1(3).setText(row.module ? "m" : "");
        form.Text1(2).setText(form.Text1(2).text() + "."); // whichever path changes
        EXPECT_EQ(form.CmdProc.enabled(), row.enabled) << &row - rows.data();
    }
}

TEST_F(IndexerCreate, LooksAtTheModuleOnlyWhenAPathChanges) {
    FrmIndexer& form = showStageTwo();
    form.ChkIDMap.setValue(1);
    EXPECT_TRUE(form.CmdProc.enabled());
    desktop.type(form.Text1(3), "m.bas");
    EXPECT_FALSE(form.CmdProc.enabled());
    desktop.type(form.txtModule, "m");
    EXPECT_FALSE(form.CmdProc.enabled());
    desktop.type(form.Text1(3), "mm.bas");
    EXPECT_TRUE(form.CmdProc.enabled());
    // Coming to the stage looks at the two index files alone.
    desktop.type(form.txtModule, "");
    click(form.CmdClose);
    click(form.CmdNext);
    EXPECT_TRUE(form.CmdProc.enabled());
}

TEST_F(IndexerCreate, LeavesTheCommandAloneInOtherStages) {
    FrmIndexer& form = show();
    form.Text1(0).setText("");
    form.Text1(0).setText("h");
    EXPECT_TRUE(form.CmdProc.enabled());
    form.CmdProc.setEnabled(false);
    form.Text1(1).setText("c");
    EXPECT_FALSE(form.CmdProc.enabled());
}

TEST_F(IndexerCreate, ChecksTheModulesNameAsItsBoxIsLeft) {
    FrmIndexer& form = showStageTwo();
    const auto leave = [&](const char* name) {
        desktop.tabTo(form.txtModule);
        desktop.type(form.txtModule, name);
        desktop.tabTo(form.Text1(3));
        return form.txtModule.text();
    };
    EXPECT_EQ(leave("  modHelp "), "modHelp");
    EXPECT_EQ(leave(""), "");
    EXPECT_EQ(leave(" 1abc"), "1abc");
    EXPECT_TRUE(desktop.boxes().empty());
    desktop.answerNextBox(ok);
    EXPECT_EQ(leave("  a b "), "a b"); // refused, but trimmed
    EXPECT_THAT(lastBox(), testing::HasSubstr("The module name 'a b' is invalid. "));
    for (const char* name : {"1abc ", "a b", "a&b", "a-b", "a+b", "a*b", "a/b", "a%b", "a\\b", "MODMAIN"}) {
        desktop.answerNextBox(ok);
        EXPECT_EQ(leave(name), name);
        EXPECT_EQ(lastBox(), std::string("Corvelle|48|The module name '") + name +
                                 "' is invalid. /Either it is a invalid VB Name or a module with same name "
                                 "/already exists in the current project.");
    }
}

TEST_F(IndexerCreate, KeepsAModulesNameThatItCannotCheck) {
    FrmIndexer& form = showStageTwo();
    const auto leave = [&](const std::string& words) {
        desktop.tabTo(form.txtModule);
        desktop.type(form.txtModule, " modHelp");
        desktop.answerNextBox(ok);
        desktop.tabTo(form.Text1(3));
        EXPECT_EQ(lastBox(), "Corvelle|0|" + words);
        EXPECT_EQ(form.txtModule.text(), " modHelp");
    };
    calls.fail("", 1, disaster);
    leave("Method '~' of object '~' failed");
    ide->project = nullptr;
    leave("Object variable or With block variable not set");
}

TEST_F(IndexerCreate, WritesNothingWithoutTheProjectThatAModuleNeeds) {
    FrmIndexer& form = showStageTwo();
    wantModule(form);
    ide->project = nullptr;
    desktop.answerNextBox(ok);
    click(form.CmdProc);
    EXPECT_EQ(lastBox(), "Corvelle|0|Object variable or With block variable not set");
    EXPECT_FALSE(std::filesystem::exists(pathOf("a.h")));
    EXPECT_FALSE(std::filesystem::exists(pathOf("a.hcnf")));
    EXPECT_FALSE(form.CmdNext.enabled());
    EXPECT_FALSE(indicatorRuns(form));
}

TEST_F(IndexerCreate, ForgetsTheNameWhoseWindowGoesWithItsMessage) {
    FrmIndexer& form = showStageTwo();
    const auto alive = form.shared_from_this();
    desktop.tabTo(form.txtModule);
    desktop.type(form.txtModule, "a b");
    desktop.answerNextBox(ok, [this] { manager->disconnect(); });
    desktop.tabTo(form.Text1(3));
    EXPECT_FALSE(form.isLoaded());
}

// The creation

TEST_F(IndexerCreate, CreatesTheIndex) {
    FrmIndexer& form = showStageTwo();
    std::vector<std::string> progress;
    bool runs = true;
    for (int yield = 0; yield < 7; ++yield) { // one a designer and one a control
        desktop.atYield([&] {
            progress.push_back(form.LblProc.caption() + "|" + form.LblProcModule.caption());
            runs = runs && indicatorRuns(form);
        });
    }
    EXPECT_TRUE(click(form.CmdProc));
    expectComplete(form);
    EXPECT_TRUE(form.CmdNext.enabled());
    EXPECT_TRUE(runs);
    EXPECT_EQ(progress.at(0), "creating files Please wait..|No module under process..");
    EXPECT_EQ(progress.at(1), "creating files Please wait..|Processing module: frmMain");
    EXPECT_EQ(progress.at(3), "creating files Please wait..|Processing module: frmMain");
    EXPECT_EQ(progress.at(4), "creating files Please wait..|Processing module: frmOrder");
    EXPECT_EQ(progress.at(6), "creating files Please wait..|Processing module: frmOrder");
    EXPECT_THAT(steps(form),
                ElementsAre("***** Indexing Started *******", "Created header file: " + pathOf("a.h"),
                            "Created Configuration file: " + pathOf("a.hcnf"), "*** Indexing done ***"));
    EXPECT_EQ(ide->project->components.size(), 3U);
}

TEST_F(IndexerCreate, AddsTheMappingModule) {
    FrmIndexer& form = showStageTwo();
    wantModule(form);
    form.txtModule.setText(" modHelp ");
    click(form.CmdProc);
    EXPECT_EQ(lastComponent().name, "modHelp");
    EXPECT_EQ(lastComponent().savedAs, pathOf("modHelp.bas"));
    EXPECT_THAT(lastComponent().code->lines,
                ElementsAre("Public Const IDH_AAAB = 1001", "Public Const IDH_AAAC = 1002",
                            "Public Const IDH_AAAD = 1003", "Public Const IDH_AAAE = 1004",
                            "Public Const IDH_AAAF = 1005", "Public Sub Load_HelpID_frmMain ()",
                            "\tWith frmMain", "\t\t.cmdOK.HelpContextID = IDH_AAAB",
                            "\t\t.txtName.HelpContextID = IDH_AAAC", "\tEnd With", "End Sub",
                            "Public Sub Load_HelpID_frmOrder ()", "\tWith frmOrder",
                            "\t\t.txtDate.HelpContextID = IDH_AAAD", "\t\t.lblDate.HelpContextID = IDH_AAAE",
                            "\t\t.cmdOK.HelpContextID = IDH_AAAF", "\tEnd With", "End Sub"));
    EXPECT_THAT(steps(form), ElementsAre("***** Indexing Started *******", "Added module :modHelp",
                                         "Created header file: " + pathOf("a.h"),
                                         "Created Configuration file: " + pathOf("a.hcnf"),
                                         "Module Path= " + pathOf("modHelp.bas"), "Module saved",
                                         "*** Indexing done ***"));
}

TEST_F(IndexerCreate, IndexesByTheOptionsAndTheExclusionList) {
    folder.write("exclude.lst", "commandbutton");
    FrmIndexer& form = showStageTwo();
    form.ChkExclLbl.setValue(1);
    click(form.CmdProc);
    EXPECT_EQ(configuration(), "<P>frmMain</P>\r\n<C>txtName TextBox IDH_AAAB</C>\r\n"
                               "<P>frmOrder</P>\r\n<C>txtDate TextBox IDH_AAAC</C>\r\n");
}

TEST_F(IndexerCreate, TakesEachOptionFromItsOwnBox) {
    FrmIndexer& form = showStageTwo();
    const std::vector<std::pair<forms::CheckBox*, std::string>> rows{
        {&form.ChkFrm, "Form"},
        {&form.ChkMDI, "MDI Form"},
        {&form.ChkDsr, "Designer"},
        {&form.ChkDOB, "ActiveX Document"},
        {&form.ChkPG, "Property page"},
        {&form.ChkActiveXCtl, "ActiveX Control"},
        {&form.ChkExclLbl, "Label"},
        {&form.ChKExcFrame, "Frame"},
        {&form.ChkExcShape, "Shape"},
        {&form.ChkExcMenu, "Menu"},
        {&form.ChkExcLine, "Line"},
        {&form.ChkExcToolbar, "Toolbar"},
        {&form.ChkIDMap, "Add Mapping Module"},
        {&form.ChkAutoLoad, "Create Autoload Procedures"},
    };
    form.Text1(3).setText(pathOf("m.bas"));
    for (const auto& [box, words] : rows) {
        for (const auto& [other, otherWords] : rows) other->setValue(other == box ? 1 : 0);
        form.txtModule.setText("modHelp" + std::to_string(ide->project->components.size()));
        click(form.CmdProc);
        std::vector<std::string> options;
        for (const auto& line : reportLines(form)) {
            if (line == "** Indexing Options **") options.clear(); // of the creation before
            if (testing::Value(line, testing::EndsWith(" = True"))) options.push_back(line);
        }
        EXPECT_THAT(options, ElementsAre(words + " = True")) << box->name();
    }
    // One module with each of the last two: the one that is to hold the constants holds them and is saved.
    ASSERT_EQ(ide->project->components.size(), 5U);
    const auto& mapping = *ide->project->components[3];
    EXPECT_EQ(mapping.code->lines.front(), "Public Const IDH_AAAB = 1001");
    EXPECT_EQ(mapping.savedAs, pathOf("m.bas"));
    EXPECT_EQ(lastComponent().code->lines.front(), "Public Sub Load_HelpID_frmMain ()");
    EXPECT_EQ(lastComponent().savedAs, "");
}

TEST_F(IndexerCreate, IndexesWhatWasSelectedByTheAnalysis) {
    FrmIndexer& form = showStageTwo();
    form.ChkFrm.setValue(0);
    click(form.CmdProc);
    EXPECT_EQ(header(), exampleHeader);
    EXPECT_THAT(reportLines(form), testing::Contains("Form = False"));
}

TEST_F(IndexerCreate, StopsAtAnInvalidModuleName) {
    FrmIndexer& form = showStageTwo();
    wantModule(form);
    form.txtModule.setText("modMain");
    desktop.answerNextBox(ok);
    click(form.CmdProc);
    EXPECT_THAT(lastBox(), testing::StartsWith("Corvelle|48|The module name 'modMain' is invalid. "));
    EXPECT_EQ(form.LblProc.caption(), "creating files Please wait..");
    EXPECT_EQ(reportLines(form).back(), "***** Indexing Started *******");
    EXPECT_FALSE(std::filesystem::exists(pathOf("a.h")));
    EXPECT_FALSE(form.CmdNext.enabled());
    EXPECT_FALSE(indicatorRuns(form));
}

TEST_F(IndexerCreate, HandsTheEmptyNameToTheIde) {
    FrmIndexer& form = showStageTwo();
    form.ChkAutoLoad.setValue(1);
    calls.fail("VBComponent.setName", 1, base::RunTimeError(50132, "Not a legal object name: ''"));
    desktop.answerNextBox(ok);
    click(form.CmdProc);
    EXPECT_EQ(lastBox(), "Corvelle|0|Not a legal object name: ''");
    EXPECT_EQ(ide->project->components.size(), 4U);
}

TEST_F(IndexerCreate, TellsWhichFileCannotBeWritten) {
    FrmIndexer& form = showStageTwo();
    const auto files = openFiles();
    form.Text1(1).setText((folder.path() / "none" / "a.hcnf").string());
    desktop.answerNextBox(ok);
    click(form.CmdProc);
    EXPECT_EQ(lastBox(), "Corvelle|0|Path not found");
    EXPECT_EQ(header(), "#define IDH_AAAA  1000\r\n");
    EXPECT_FALSE(form.CmdNext.enabled());
    EXPECT_FALSE(indicatorRuns(form));
    EXPECT_EQ(openFiles(), files);
    form.Text1(1).setText(pathOf("a.hcnf"));
    click(form.CmdProc); // it can be repaired and repeated
    expectComplete(form);
}

TEST_F(IndexerCreate, LeavesTheWayOnOpenWhenALaterCreationFails) {
    FrmIndexer& form = showStageTwo();
    click(form.CmdProc);
    form.Text1(1).setText((folder.path() / "none" / "a.hcnf").string());
    desktop.answerNextBox(ok);
    click(form.CmdProc);
    EXPECT_TRUE(form.CmdNext.enabled());
    click(form.CmdClose);
    click(form.CmdNext);
    EXPECT_TRUE(form.CmdNext.enabled());
}

TEST_F(IndexerCreate, SurvivesAFailureOfAnyCall) {
    FrmIndexer& form = showStageTwo();
    const auto files = openFiles();
    wantModule(form);
    calls.forget();
    click(form.CmdProc);
    const auto made = calls.all();
    const auto last = static_cast<int>(made.size());
    // What the IDE does not tell of the project's own files is passed over.
    const auto told =
        static_cast<int>(made.rend() - std::find(made.rbegin(), made.rend(), "VBComponent.FileNames"));
    ASSERT_GT(told, 0);
    manager->disconnect();
    for (int n = 1; n <= last; ++n) {
        SCOPED_TRACE(n);
        ide->project->components.resize(3);
        FrmIndexer& failing = showStageTwo();
        wantModule(failing);
        calls.fail("", n, disaster);
        const bool isPassedOver = n > 1 && n <= told;
        if (!isPassedOver) desktop.answerNextBox(ok);
        click(failing.CmdProc);
        calls.failNoMore();
        if (isPassedOver) {
            expectComplete(failing);
            manager->disconnect();
            continue;
        }
        EXPECT_THAT(lastBox(), testing::StartsWith("Corvelle|0|"));
        EXPECT_EQ(failing.LblProc.caption(), "creating files Please wait..");
        EXPECT_FALSE(indicatorRuns(failing));
        EXPECT_FALSE(failing.CmdNext.enabled());
        EXPECT_EQ(openFiles(), files);
        manager->disconnect();
    }
}

TEST_F(IndexerCreate, StartsAgainFromTheFirstNumberWithASecondModule) {
    FrmIndexer& form = showStageTwo();
    wantModule(form);
    click(form.CmdProc);
    form.txtModule.setText("modHelp2");
    click(form.CmdProc);
    expectComplete(form);
    EXPECT_EQ(ide->project->components.size(), 5U);
    EXPECT_EQ(lastComponent().code->lines.front(), "Public Const IDH_AAAB = 1001");
}

// Whatever the user does while it yields

constexpr int yieldsOfExample = 7; // two designers, five controls

TEST_F(IndexerCreate, IsNotDisturbedByAnyCommand) {
    const std::vector<std::function<void(FrmIndexer&)>> commands{
        [&](FrmIndexer& form) { EXPECT_TRUE(click(form.CmdProc)); }, // a second creation
        [&](FrmIndexer& form) { EXPECT_TRUE(click(form.CmdClose)); },
        [&](FrmIndexer& form) { // a second analysis
            click(form.CmdClose);
            EXPECT_TRUE(click(form.CmdProc));
        },
        [&](FrmIndexer& form) { // which selects something else
            form.ChkFrm.setValue(0);
            click(form.CmdClose);
            EXPECT_TRUE(click(form.CmdProc));
        },
        [&](FrmIndexer& form) { // to and fro
            click(form.CmdClose);
            click(form.CmdNext);
            EXPECT_TRUE(click(form.CmdProc));
        },
        [&](FrmIndexer& form) {
            desktop.cancelNextFile();
            EXPECT_TRUE(click(form.Command2(0)));
        },
        [&](FrmIndexer& form) { desktop.type(form.Text1(0), pathOf("other.h")); },
        [&](FrmIndexer& form) {
            form.ChkIDMap.setValue(1);
            form.txtModule.setText("late");
        },
        [&](FrmIndexer& form) { form.ShowIndexer(ide); },
    };
    for (std::size_t command = 0; command < commands.size(); ++command) {
        for (int n = 0; n < yieldsOfExample; ++n) {
            FrmIndexer& form = showStageTwo();
            bool interrupted = false;
            desktop.atYield(
                [&] {
                    interrupted = true;
                    commands[command](form);
                },
                n);
            click(form.CmdProc);
            EXPECT_TRUE(interrupted);
            SCOPED_TRACE(std::to_string(command) + " at " + std::to_string(n));
            expectComplete(form);
            EXPECT_TRUE(form.CmdNext.enabled());
            EXPECT_EQ(reportLines(form).back(), "*** Indexing done ***");
            EXPECT_EQ(ide->project->components.size(), 3U);
            manager->disconnect();
        }
    }
    EXPECT_FALSE(std::filesystem::exists(pathOf("other.h")));
    EXPECT_TRUE(desktop.boxes().empty());
}

TEST_F(IndexerCreate, EndsAfterItsDesignerWhenItsWindowGoes) {
    const auto files = openFiles();
    const std::vector<std::function<void(FrmIndexer&)>> ends{
        [this](FrmIndexer& form) {
            click(form.CmdClose);
            EXPECT_TRUE(click(form.CmdClose));
        },
        [this](FrmIndexer& form) { EXPECT_TRUE(desktop.close(form)); },
        [this](FrmIndexer&) { manager->disconnect(); },
    };
    const std::string firstDesigner =
        std::string(exampleConfiguration).substr(0, std::string(exampleConfiguration).find("<P>frmOrder"));
    for (std::size_t end = 0; end < ends.size(); ++end) {
        for (int n = 0; n < yieldsOfExample; ++n) {
            SCOPED_TRACE(std::to_string(end) + " at " + std::to_string(n));
            ide->project->components.resize(3);
            FrmIndexer& form = showStageTwo();
            wantModule(form);
            const auto alive = form.shared_from_this();
            desktop.atYield([&] { ends[end](form); }, n);
            click(form.CmdProc);
            EXPECT_EQ(openFiles(), files);
            const auto& code = lastComponent().code->lines;
            EXPECT_EQ(std::count(code.begin(), code.end(), "\tEnd With"), n == 0 ? 0 : n <= 3 ? 1 : 2);
            EXPECT_EQ(configuration(), n == 0 ? "" : n <= 3 ? firstDesigner : exampleConfiguration);
            EXPECT_FALSE(form.isLoaded());
            EXPECT_TRUE(desktop.windows().empty());
            manager->disconnect();
        }
    }
}

TEST_F(IndexerCreate, EndsAfterItsDesignerWhenTheProgramQuits) {
    FrmIndexer& form = showStageTwo();
    desktop.atYield([this] { desktop.quit(); }, 1);
    click(form.CmdProc);
    EXPECT_FALSE(form.CmdNext.enabled());
    EXPECT_FALSE(indicatorRuns(form));
    const auto written = configuration();
    EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), 3);
}

TEST_F(IndexerCreate, TellsNobodyOfAFailureAfterItsWindowHasGone) {
    FrmIndexer& form = showStageTwo();
    desktop.atYield(
        [this] {
            calls.failForGood("", 1, disaster);
            manager->disconnect();
        },
        1);
    click(form.CmdProc);
    EXPECT_TRUE(desktop.boxes().empty());
}

TEST_F(IndexerCreate, EndsWhenItsWindowGoesWithTheMessageOfAFailure) {
    FrmIndexer& form = showStageTwo();
    const auto alive = form.shared_from_this();
    calls.fail("VBControls.Item", 2, disaster);
    desktop.answerNextBox(ok, [this] { manager->disconnect(); });
    click(form.CmdProc);
    EXPECT_FALSE(form.isLoaded());
}

TEST_F(IndexerCreate, EndsWhenItsWindowGoesAsTheIndicatorStops) {
    FrmIndexer& form = showStageTwo();
    const auto alive = form.shared_from_this();
    desktop.atYield([this] { manager->disconnect(); }, yieldsOfExample); // the indicator's own
    click(form.CmdProc);
    EXPECT_FALSE(form.isLoaded());
    EXPECT_EQ(header(), exampleHeader);
}

} // namespace
} // namespace corvelle::indexer::test
