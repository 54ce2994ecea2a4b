#include "base/file.h"
#include "base/temporary_folder.h"
#include "fakes/fake_ide.h"
#include "fakes/open_files.h"
#include "indexer/create_index.h"

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

namespace corvelle::indexer {
namespace {

using base::ErrorNumber;
using base::RunTimeError;
using ide::ComponentType;
using test::TemporaryFolder;
using testing::ElementsAre;
using testing::IsEmpty;

class Observer : public IndexerObserver {
  public:
    /// Hears of every step, where it is set.
    std::function<void(const std::string& step)> onStep;

    void doEvents() override {
        ++yields;
        step("yield");
    }
    bool isStopped() override { return yields >= stopAtYield; }
    void reportChanged(const Report& report) override {
        reported = report.text();
        step("report: " + report.lines().back());
    }
    void setLblProc(std::string_view text) override {
        proc.emplace_back(text);
        step("LblProc: " + proc.back());
    }
    void setLblProcModule(std::string_view text) override {
        procModule.emplace_back(text);
        step("LblProcModule: " + procModule.back());
    }
    void StartNow() override {
        indicator += "start ";
        step("start");
    }
    void stopNow() override {
        indicator += "stop ";
        step("stop");
    }
    void msgBox(const Message& message) override {
        indicator += message.flags == 0 ? "box " : "";
        messages.push_back(message.text);
        flags = message.flags;
    }

    int yields = 0, flags = -1, stopAtYield = 1000000;
    std::string indicator, reported;
    std::vector<std::string> proc, procModule, messages;

  private:
    void step(const std::string& name) const {
        if (onStep) onStep(name);
    }
};

class CreateIndex : public testing::Test {
  protected:
    CreateIndex() {
        job.project = ide->project;
        job.headerPath = (folder.path() / "a.h").string();
        job.configurationPath = (folder.path() / "a.hcnf").string();
        job.modulePath = (folder.path() / "m.bas").string();
        job.txtModule = " modHelp ";
    }

    using Controls = std::vector<std::pair<std::string, std::string>>; // name and class
    std::shared_ptr<test::FakeComponent> addDesigner(const std::string& name, const Controls& controls) {
        const auto component = ide->project->add(name, ComponentType::VBForm);
        component->hasDesigner = true;
        for (const auto& [control, className] : controls) component->add(className).with("Name", control);
        job.SelectedDesigners.push_back(component);
        return component;
    }
    void addExample() { addDesigner("frmMain", {{"cmdOK", "CommandButton"}, {"txtName", "TextBox"}}); }
    IndexOutcome create() { return createIndex(job, report, observer); }
    std::string header() { return folder.read("a.h"); }
    std::string configuration() { return folder.read("a.hcnf"); }
    std::shared_ptr<test::FakeComponent> module() { return ide->project->components.back(); }
    std::vector<std::string> reportTail(std::size_t skipped = 19) {
        const auto lines = report.lines();
        return {lines.begin() + static_cast<std::ptrdiff_t>(std::min(skipped, lines.size())), lines.end()};
    }

    TemporaryFolder folder;
    std::shared_ptr<test::FakeIde> ide = test::FakeIde::make();
    IndexJob job;
    Report report;
    Observer observer;
};

const std::string exampleHeader =
    "#define IDH_AAAA  1000\r\n#define IDH_AAAB  1001\r\n#define IDH_AAAC  1002\r\n";
const std::string exampleConfiguration = "<P>frmMain</P>\r\n<C>cmdOK CommandButton IDH_AAAB</C>\r\n"
                                         "<C>txtName TextBox IDH_AAAC</C>\r\n";

TEST_F(CreateIndex, ClosesEachDesignerItHasActivated) {
    addExample();
    addDesigner("frmOther", {});
    create();
    EXPECT_EQ(ide->calls->count("VBComponent.Activate"), 2);
    EXPECT_EQ(ide->calls->count("Window.Close"), 2);
}

TEST_F(CreateIndex, WorksOnADesignerInItsWindow) {
    addExample();
    job.options.ChkExclLbl = 1;
    ide->project->components[0]->add("Label").with("Name", "lbl");
    create();
    EXPECT_THAT(ide->calls->all(),
                ElementsAre("VBComponent.Activate", "VBComponent.Name", "VBComponent.Designer",
                            "VBForm.VBControls", "VBControls.Count",     //
                            "VBControls.Item(1)", "VBControl.ClassName", //
                            "VBControls.Item(1)", "VBControl.Properties", "Properties.Item(\"Name\")",
                            "Property.Value", "VBControl.ClassName",     //
                            "VBControls.Item(2)", "VBControl.ClassName", //
                            "VBControls.Item(2)", "VBControl.Properties", "Properties.Item(\"Name\")",
                            "Property.Value", "VBControl.ClassName",     //
                            "VBControls.Item(3)", "VBControl.ClassName", //
                            "VBComponent.DesignerWindow", "Window.Close"));
}

TEST_F(CreateIndex, TakesItsStepsInTheirOrder) {
    addDesigner("f", {{"c", "TextBox"}, {"lbl", "Label"}});
    job.options.ChkIDMap = job.options.ChkAutoLoad = job.options.ChkExclLbl = 1;
    std::vector<std::string> steps;
    observer.onStep = [&](const std::string& step) { steps.push_back(step); };
    const std::vector<std::string> noted{"VBComponents.Add",  "VBComponent.setName", "VBComponent.Activate",
                                         "VBForm.VBControls", "VBControls.Item",     "CodeModule.InsertLines",
                                         "Window.Close",      "VBComponent.SaveAs"};
    ide->calls->onCall = [&](const std::string& member) {
        if (std::find(noted.begin(), noted.end(), member) != noted.end()) steps.push_back(member);
        // The IDE's own word for the name, not the one that it was given.
        if (member == "VBComponent.Name" && module()->name == "modHelp") module()->name = "ModHelp";
    };
    EXPECT_EQ(create(), IndexOutcome::Created);
    EXPECT_THAT(steps, ElementsAre("report: ***** Indexing Started *******",
                                   "LblProc: creating files Please wait..",          //
                                   "VBComponents.Add", "VBComponent.setName",        //
                                   "report: Added module :ModHelp", "start",         //
                                   "report: Created header file: " + job.headerPath, //
                                   "report: Created Configuration file: " + job.configurationPath, "yield",
                                   "VBComponent.Activate",                             //
                                   "LblProcModule: Processing module: f",              //
                                   "VBForm.VBControls",                                //
                                   "CodeModule.InsertLines", "CodeModule.InsertLines", // Sub, With
                                   "VBControls.Item", "VBControls.Item",               //
                                   "CodeModule.InsertLines", "CodeModule.InsertLines", // constant, number
                                   "yield",                                            //
                                   "VBControls.Item",                                  // excluded
                                   "CodeModule.InsertLines", "CodeModule.InsertLines", // End With, End Sub
                                   "Window.Close",                                     //
                                   "LblProcModule: Saving Mapping Module: ModHelp",    //
                                   "VBComponent.SaveAs",                               //
                                   "report: Module Path= " + job.modulePath, "report: Module saved", //
                                   "stop", "LblProc: Processing completed..",                        //
                                   "LblProcModule: No module under process..",                       //
                                   "report: *** Indexing done ***"));
}

TEST_F(CreateIndex, HasItsFilesOpenOnlyWhileItWalksTheDesigners) {
    addExample();
    job.options.ChkIDMap = 1;
    const auto before = test::openFiles(folder.path());
    std::map<std::string, std::ptrdiff_t> open;
    ide->calls->onCall = [&](const std::string& member) {
        open[member] = test::openFiles(folder.path()) - before;
    };
    EXPECT_EQ(create(), IndexOutcome::Created);
    EXPECT_EQ(open.at("VBComponents.Add"), 0);
    EXPECT_EQ(open.at("VBComponent.Activate"), 2);
    EXPECT_EQ(open.at("Window.Close"), 2);
    EXPECT_EQ(open.at("VBComponent.SaveAs"), 0);
    EXPECT_EQ(test::openFiles(folder.path()), before);
}

TEST_F(CreateIndex, WritesWhatAControlIsWhenItIsWritten) {
    addExample();
    int looks = 0;
    ide->calls->onCall = [&](const std::string& member) {
        if (member == "VBControls.Item" && ++looks == 2)
            ide->project->components[0]->controls[0]->className = "PictureBox";
    };
    create();
    EXPECT_THAT(configuration(), testing::HasSubstr("<C>cmdOK PictureBox IDH_AAAB</C>\r\n"));
}

TEST_F(CreateIndex, DoesNotSeeAControlThatIsAddedMeanwhile) {
    addExample();
    int controls = 0;
    ide->calls->onCall = [&](const std::string& member) {
        if (member == "VBControl.ClassName" && ++controls == 1)
            ide->project->components[0]->add("TextBox").with("Name", "late");
    };
    EXPECT_EQ(create(), IndexOutcome::Created);
    EXPECT_EQ(configuration(), exampleConfiguration);
    EXPECT_EQ(ide->calls->count("VBControls.Count"), 1);
}

TEST_F(CreateIndex, WritesTheHeaderAndTheConfiguration) {
    addExample();
    EXPECT_EQ(create(), IndexOutcome::Created);
    EXPECT_EQ(header(), exampleHeader);
    EXPECT_EQ(configuration(), exampleConfiguration);
    EXPECT_EQ(ide->project->components.size(), 1U);
    EXPECT_THAT(observer.messages, IsEmpty());
    EXPECT_EQ(observer.indicator, "start stop ");
    EXPECT_EQ(observer.yields, 3);
    EXPECT_THAT(observer.proc, ElementsAre("creating files Please wait..", "Processing completed.."));
    EXPECT_THAT(observer.procModule, ElementsAre("Processing module: frmMain", "No module under process.."));
    EXPECT_THAT(reportTail(),
                ElementsAre("***** Indexing Started *******", "Created header file: " + job.headerPath,
                            "Created Configuration file: " + job.configurationPath, "*** Indexing done ***"));
    EXPECT_EQ(report.lines()[1], "** Indexing Options **");
}

TEST_F(CreateIndex, AddsTheMappingModule) {
    addExample();
    job.options.ChkIDMap = job.options.ChkAutoLoad = 1;
    EXPECT_EQ(create(), IndexOutcome::Created);
    EXPECT_EQ(module()->name, "modHelp");
    EXPECT_EQ(module()->type, ComponentType::StdModule);
    EXPECT_EQ(module()->savedAs, job.modulePath);
    EXPECT_THAT(module()->code->lines,
                ElementsAre("Public Const IDH_AAAB = 1001", "Public Const IDH_AAAC = 1002",
                            "Public Sub Load_HelpID_frmMain ()", "\tWith frmMain",
                            "\t\t.cmdOK.HelpContextID = IDH_AAAB", "\t\t.txtName.HelpContextID = IDH_AAAC",
                            "\tEnd With", "End Sub"));
    EXPECT_EQ(header(), exampleHeader);
    EXPECT_THAT(reportTail(),
                ElementsAre("***** Indexing Started *******", "Added module :modHelp",
                            "Created header file: " + job.headerPath,
                            "Created Configuration file: " + job.configurationPath,
                            "Module Path= " + job.modulePath, "Module saved", "*** Indexing done ***"));
    EXPECT_THAT(observer.procModule,
                ElementsAre("Processing module: frmMain", "Saving Mapping Module: modHelp",
                            "No module under process.."));
}

TEST_F(CreateIndex, DoesNotSaveAModuleOfProceduresAlone) {
    addExample();
    job.options.ChkAutoLoad = 1;
    EXPECT_EQ(create(), IndexOutcome::Created);
    EXPECT_EQ(module()->savedAs, "");
    EXPECT_EQ(module()->code->lines.size(), 6U);
    EXPECT_EQ(module()->code->lines[2], "\t\t.cmdOK.HelpContextID = IDH_AAAB");
    EXPECT_THAT(reportTail(), testing::Not(testing::Contains("Module saved")));
}

TEST_F(CreateIndex, WritesConstantsAlone) {
    addExample();
    job.options.ChkIDMap = 1;
    create();
    EXPECT_THAT(module()->code->lines,
                ElementsAre("Public Const IDH_AAAB = 1001", "Public Const IDH_AAAC = 1002"));
}

TEST_F(CreateIndex, TakesAGreyBoxForUnchecked) {
    job.options.ChkIDMap = job.options.ChkAutoLoad = 2;
    create();
    EXPECT_THAT(ide->project->components, IsEmpty());
}

TEST_F(CreateIndex, WritesTheDefaultTopicWhenNoDesignerIsSelected) {
    job.options.ChkIDMap = job.options.ChkAutoLoad = 1;
    EXPECT_EQ(create(), IndexOutcome::Created);
    EXPECT_EQ(header(), "#define IDH_AAAA  1000\r\n");
    EXPECT_EQ(configuration(), "");
    EXPECT_THAT(module()->code->lines, IsEmpty());
}

TEST_F(CreateIndex, LeavesNoGapForExcludedControls) {
    addDesigner("f", {{"a", "TextBox"}, {"lbl", "Label"}, {"tmr", "Timer"}, {"b", "TextBox"}});
    addDesigner("empty", {{"lbl", "Label"}});
    addDesigner("g", {{"c", "TextBox"}});
    job.options.ChkExclLbl = 1;
    job.excludeList = {"", "TIMER"};
    create();
    EXPECT_EQ(header(), exampleHeader + "#define IDH_AAAD  1003\r\n");
    EXPECT_EQ(configuration(), "<P>f</P>\r\n<C>a TextBox IDH_AAAB</C>\r\n<C>b TextBox IDH_AAAC</C>\r\n"
                               "<P>empty</P>\r\n<P>g</P>\r\n<C>c TextBox IDH_AAAD</C>\r\n");
    EXPECT_EQ(observer.yields, 6); // one a designer and one an indexed control
}

TEST_F(CreateIndex, IndexesALabelUnlessItsBoxOrTheListExcludesIt) {
    addDesigner("f", {{"lbl", "Label"}});
    create();
    EXPECT_EQ(configuration(), "<P>f</P>\r\n<C>lbl Label IDH_AAAB</C>\r\n");
    job.excludeList = {"", "LABEL"};
    create();
    EXPECT_EQ(configuration(), "<P>f</P>\r\n");
}

TEST_F(CreateIndex, IndexesTheElementsOfAControlArrayOneByOne) {
    addDesigner("f", {{"opt", "OptionButton"}, {"opt", "OptionButton"}});
    create();
    EXPECT_EQ(configuration(),
              "<P>f</P>\r\n<C>opt OptionButton IDH_AAAB</C>\r\n<C>opt OptionButton IDH_AAAC</C>\r\n");
}

TEST_F(CreateIndex, BeginsAnewAndAddsASecondModule) {
    addExample();
    job.options.ChkIDMap = 1;
    create();
    job.txtModule = "modHelp2";
    create();
    EXPECT_EQ(header(), exampleHeader);
    EXPECT_EQ(ide->project->components.size(), 3U);
    EXPECT_EQ(ide->project->components[1]->code->lines, module()->code->lines);
}

TEST_F(CreateIndex, StopsAtAnInvalidModuleName) {
    addExample();
    for (const char* name : {"FRMMAIN", "a b", "1a"}) {
        observer = Observer();
        report = Report();
        job.txtModule = name;
        job.options.ChkIDMap = 1;
        EXPECT_EQ(create(), IndexOutcome::ModuleRefused);
        EXPECT_THAT(observer.messages, ElementsAre(testing::StartsWith("The module name '" + job.txtModule +
                                                                       "' is invalid. \r")));
        EXPECT_EQ(observer.flags, 48);
        EXPECT_THAT(observer.proc, ElementsAre("creating files Please wait.."));
        EXPECT_THAT(observer.procModule, IsEmpty());
        EXPECT_EQ(observer.indicator, "");
        EXPECT_EQ(report.lines().back(), "***** Indexing Started *******");
        EXPECT_EQ(ide->project->components.size(), 1U);
        EXPECT_THAT(folder.names(), IsEmpty());
    }
}

TEST_F(CreateIndex, NamesTheModuleWithADigitThatStoodBehindASpace) {
    job.options.ChkAutoLoad = 1;
    job.txtModule = " 1abc";
    EXPECT_EQ(create(), IndexOutcome::Created);
    EXPECT_EQ(module()->name, "1abc");
}

TEST_F(CreateIndex, DoesNotLookAtTheNameWhenNoModuleIsWanted) {
    job.txtModule = "a b";
    EXPECT_EQ(create(), IndexOutcome::Created);
}

TEST_F(CreateIndex, EndsWithTheIDEsWordsWhenItRefusesTheName) {
    addExample();
    job.options.ChkAutoLoad = 1;
    job.txtModule = "";
    ide->calls->fail("VBComponent.setName", 1, RunTimeError(380, "Not a legal object name: ''"));
    EXPECT_EQ(create(), IndexOutcome::ModuleRefused);
    EXPECT_THAT(observer.messages, ElementsAre("Not a legal object name: ''"));
    EXPECT_EQ(observer.flags, 0);
    EXPECT_EQ(observer.indicator, "box stop ");
    EXPECT_EQ(ide->project->components.size(), 2U); // the added module stays
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST_F(CreateIndex, LeavesTheLinesThatAreWrittenWhenTheIDEFails) {
    addExample();
    ide->calls->fail("Property.Value", 2, RunTimeError(ErrorNumber::MemberNotSupported));
    EXPECT_EQ(create(), IndexOutcome::Failed);
    EXPECT_THAT(observer.messages, ElementsAre("Object doesn't support this property or method"));
    EXPECT_EQ(observer.indicator, "start box stop ");
    EXPECT_EQ(header(), "#define IDH_AAAA  1000\r\n#define IDH_AAAB  1001\r\n");
    EXPECT_EQ(configuration(), "<P>frmMain</P>\r\n<C>cmdOK CommandButton IDH_AAAB</C>\r\n");
    EXPECT_THAT(observer.proc, ElementsAre("creating files Please wait.."));
}

TEST_F(CreateIndex, EndsAtADesignerThatIsNotThere) {
    addExample();
    addDesigner("frmBad", {})->hasDesigner = false;
    EXPECT_EQ(create(), IndexOutcome::Failed);
    EXPECT_THAT(observer.messages, ElementsAre("Object variable or With block variable not set"));
    EXPECT_EQ(configuration(), exampleConfiguration + "<P>frmBad</P>\r\n");
}

TEST_F(CreateIndex, LeavesNoHalfProcedureForADesignerThatIsNotThere) {
    addDesigner("frmBad", {})->hasDesigner = false;
    job.options.ChkAutoLoad = 1;
    EXPECT_EQ(create(), IndexOutcome::Failed);
    EXPECT_EQ(configuration(), "<P>frmBad</P>\r\n");
    EXPECT_THAT(module()->code->lines, IsEmpty());
}

TEST_F(CreateIndex, OpenFilesAreSeen) { // by the tests that look for them
    const auto before = test::openFiles(folder.path());
    base::OutputFile file(folder.path() / "a.h");
    EXPECT_EQ(test::openFiles(folder.path()), before + 1);
}

// Whatever call fails, the command ends with its words, an indicator that stands still and closed files.
TEST_F(CreateIndex, SurvivesAFailureOfAnyCall) {
    addExample();
    addDesigner("g", {{"c", "TextBox"}});
    job.options.ChkIDMap = job.options.ChkAutoLoad = 1;
    const auto before = ide->project->components;
    create();
    const auto openBefore = test::openFiles(folder.path());
    const auto calls = static_cast<int>(ide->calls->all().size());
    for (int n = 1; n <= calls; ++n) {
        ide->project->components = before;
        observer = Observer();
        ide->calls->forget();
        ide->calls->failNoMore();
        ide->calls->fail("", n, RunTimeError(ErrorNumber::InvalidProcedureCall));
        EXPECT_NE(create(), IndexOutcome::Created) << n;
        EXPECT_THAT(observer.messages, ElementsAre("Invalid procedure call or argument")) << n;
        EXPECT_THAT(observer.indicator, testing::EndsWith("stop ")) << n;
        EXPECT_EQ(test::openFiles(folder.path()), openBefore) << n;
    }
}

TEST_F(CreateIndex, EndsAtAFileThatCannotBeWritten) {
    addExample();
    const auto readOnly = folder.write("ro", "x").string();
    std::filesystem::permissions(readOnly, std::filesystem::perms(0444));
    const auto good = job.headerPath;
    const std::pair<std::string, std::string> bad[] = {
        {folder.path().string(), "Path/File access error"},
        {(folder.path() / "none" / "a.h").string(), "Path not found"},
        {readOnly, "Path/File access error"},
#ifdef __linux__
        {"/dev/full", "Disk full"},
#endif
    };
    for (const auto& [path, words] : bad) {
        observer = Observer();
        job.headerPath = path;
        EXPECT_EQ(create(), IndexOutcome::Failed) << path;
        EXPECT_THAT(observer.messages, ElementsAre(words)) << path;
        EXPECT_EQ(observer.indicator, "start box stop ");
        job.headerPath = good;
        job.configurationPath = path;
        observer = Observer();
        EXPECT_EQ(create(), IndexOutcome::Failed) << path;
        EXPECT_THAT(observer.messages, ElementsAre(words)) << path;
        job.configurationPath = (folder.path() / "a.hcnf").string();
    }
    EXPECT_EQ(folder.read("ro"), "x");
}

TEST_F(CreateIndex, KeepsTheFirstHeaderLineWhenTheConfigurationCannotBeOpened) {
    job.configurationPath = folder.path().string();
    EXPECT_EQ(create(), IndexOutcome::Failed);
    EXPECT_EQ(header(), "#define IDH_AAAA  1000\r\n");
    EXPECT_EQ(report.lines().back(), "Created header file: " + job.headerPath);
}

TEST_F(CreateIndex, DoesNotWriteBothFilesIntoOne) {
    job.configurationPath = job.headerPath;
    EXPECT_EQ(create(), IndexOutcome::Failed);
    EXPECT_THAT(observer.messages, ElementsAre("File already open"));
}

TEST_F(CreateIndex, EndsBetweenTwoDesignersWhenItIsStopped) {
    addExample();
    addDesigner("g", {{"a", "TextBox"}});
    job.options.ChkIDMap = job.options.ChkAutoLoad = 1;
    observer.stopAtYield = 2; // the first designer's first control
    const auto files = test::openFiles(folder.path());
    EXPECT_EQ(create(), IndexOutcome::Stopped);
    EXPECT_EQ(test::openFiles(folder.path()), files);
    EXPECT_EQ(header(), exampleHeader);
    EXPECT_EQ(configuration(), exampleConfiguration);
    EXPECT_THAT(module()->code->lines, testing::Contains("End Sub"));
    EXPECT_EQ(module()->savedAs, "");
    EXPECT_EQ(observer.indicator, "start stop ");
    EXPECT_EQ(observer.proc.back(), "creating files Please wait..");
    EXPECT_THAT(observer.messages, IsEmpty());
}

TEST_F(CreateIndex, CompletesTheLastDesignerAlthoughItIsStopped) {
    addExample();
    job.options.ChkIDMap = 1;
    observer.stopAtYield = 2;
    EXPECT_EQ(create(), IndexOutcome::Created);
    EXPECT_EQ(module()->savedAs, job.modulePath);
}

TEST_F(CreateIndex, TellsEveryLineOfTheReport) {
    addExample();
    job.options.ChkIDMap = 1;
    create();
    EXPECT_EQ(observer.reported, report.text());
}

TEST_F(CreateIndex, GoesOnWithEmptyNamesWhenTheGeneratorIsExhausted) {
    constexpr std::size_t names = 26 * 26 * 26 * 26;
    const auto designer = addDesigner("f", {{"c", "TextBox"}});
    designer->controls.resize(names + 1, designer->controls.front());
    ide->calls->onCall = [this](const std::string&) { ide->calls->forget(); };
    EXPECT_EQ(create(), IndexOutcome::Created);
    EXPECT_THAT(observer.messages, ElementsAre("You need to reset the IDGen", "You need to reset the IDGen"));
    EXPECT_EQ(observer.flags, 48);
    EXPECT_THAT(header(),
                testing::EndsWith("#define IDH_ZZZZ  457975\r\n#define   457976\r\n#define   457977\r\n"));
    EXPECT_THAT(configuration(), testing::EndsWith("<C>c TextBox </C>\r\n<C>c TextBox </C>\r\n"));
}

TEST_F(CreateIndex, CountsTheLinesOfTheModuleBeforehand) {
    addExample();
    addDesigner("g", {{"lbl", "Label"}});
    job.options.ChkExclLbl = 1;
    EXPECT_EQ(mappingModuleLines(job), 0);
    job.options.ChkIDMap = 1;
    EXPECT_EQ(mappingModuleLines(job), 2);
    job.options.ChkAutoLoad = 1;
    EXPECT_EQ(mappingModuleLines(job), 12);
    create();
    EXPECT_EQ(module()->code->lines.size(), 12U);
}

} // namespace
} // namespace corvelle::indexer
