#include "fakes/fake_ide.h"
#include "indexer/analysis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::indexer {
namespace {

using base::ErrorNumber;
using base::RunTimeError;
using ide::ComponentType;
using testing::ElementsAre;
using testing::IsEmpty;

class Observer : public IndexerObserver {
  public:
    void doEvents() override { ++yields; }
    bool isStopped() override { return yields >= stopAtYield; }
    void captionsChanged(const AnalysisCaptions& captions) override {
        if (forms.empty() || forms.back() != captions.LblForms) forms.push_back(captions.LblForms);
        shown = captions;
    }

    int yields = 0, stopAtYield = 1000000;
    std::vector<std::string> forms; // what LblForms showed, one after the other
    AnalysisCaptions shown;
};

class AnalysisTest : public testing::Test {
  protected:
    void add(const std::string& name, ComponentType type, int controls = 0) {
        const auto component = ide->project->add(name, type);
        component->hasDesigner = type != ComponentType::StdModule && type != ComponentType::ClassModule;
        for (int i = 0; i < controls; ++i) component->add("Label").with("Name", "lbl");
    }
    void analyse() { analysis.analyseProject(ide->project, options, observer); }
    std::vector<std::string> selected() {
        std::vector<std::string> names;
        for (const auto& component : analysis.SelectedDesigners()) names.push_back(component->Name());
        return names;
    }
    static IndexOptions all() {
        IndexOptions options;
        options.ChkFrm = options.ChkMDI = options.ChkDsr = options.ChkDOB = options.ChkPG =
            options.ChkActiveXCtl = 1;
        return options;
    }
    std::vector<std::string> captions() {
        std::vector<std::string> result;
        for (const auto* caption : analysis.captions().inReportOrder()) result.push_back(*caption);
        return result;
    }

    std::shared_ptr<test::FakeIde> ide = test::FakeIde::make();
    IndexOptions options = all();
    Observer observer;
    Analysis analysis;
};

TEST_F(AnalysisTest, CountsAndSelectsInTheProjectsOrder) {
    add("ctl", ComponentType::UserControl, 1);
    add("mod", ComponentType::StdModule);
    add("frm", ComponentType::VBForm, 2);
    add("mdi", ComponentType::VBMDIForm, 4);
    add("cls", ComponentType::ClassModule);
    add("pag", ComponentType::PropPage, 8);
    add("dob", ComponentType::DocObject, 16);
    add("dob2", ComponentType::DocObject);
    add("dsr", ComponentType::ActiveXDesigner, 32);
    add("ms", ComponentType::MSForm, 64);
    add("res", ComponentType::ResFile);
    add("rel", ComponentType::RelatedDocument);
    ide->project->name = "Proj";
    analyse();
    EXPECT_THAT(selected(), ElementsAre("ctl", "frm", "mdi", "pag", "dob", "dob2", "dsr"));
    EXPECT_EQ(analysis.TotalControls(), 63);
    EXPECT_THAT(captions(),
                ElementsAre("Project Name: Proj", "Project has been saved: True", "MDI form: 1",
                            "VB Forms: 1", "ActiveX Controls: 1", "Property pages: 1", "ActiveX Documents: 2",
                            "Ms Forms: 2", "Designers: 1", "Total Controls: 63"));
}

TEST_F(AnalysisTest, ShowsTheNumberOfComponentsUntilTheFormsAreCounted) {
    add("a", ComponentType::StdModule);
    add("b", ComponentType::ClassModule);
    add("c", ComponentType::MSForm);
    analyse();
    EXPECT_THAT(observer.forms, ElementsAre("Total Forms: 3", "VB Forms: 0"));
    EXPECT_THAT(selected(), IsEmpty());
    EXPECT_EQ(analysis.captions().lblControls, "Total Controls: 0");
    EXPECT_EQ(analysis.captions().lblMsFrm, "Ms Forms: 0");
}

TEST_F(AnalysisTest, CountsWhatIsNotSelected) {
    options = IndexOptions();
    options.ChkFrm = 2; // grey does not select
    add("frm", ComponentType::VBForm, 3);
    add("pag", ComponentType::PropPage, 3);
    analyse();
    EXPECT_THAT(selected(), IsEmpty());
    EXPECT_EQ(analysis.captions().LblForms, "VB Forms: 1");
    EXPECT_EQ(analysis.captions().LblProp, "Property pages: 1");
    EXPECT_EQ(analysis.TotalControls(), 0);
}

TEST_F(AnalysisTest, SelectsEachKindByItsOwnBox) {
    const std::pair<ComponentType, CheckValue IndexOptions::*> boxes[] = {
        {ComponentType::VBForm, &IndexOptions::ChkFrm},
        {ComponentType::VBMDIForm, &IndexOptions::ChkMDI},
        {ComponentType::PropPage, &IndexOptions::ChkPG},
        {ComponentType::UserControl, &IndexOptions::ChkActiveXCtl},
        {ComponentType::DocObject, &IndexOptions::ChkDOB},
        {ComponentType::ActiveXDesigner, &IndexOptions::ChkDsr}};
    for (const auto& [type, box] : boxes) add(std::to_string(static_cast<int>(type)), type);
    for (const auto& [type, box] : boxes) {
        options = IndexOptions();
        options.*box = 1;
        analyse();
        EXPECT_THAT(selected(), ElementsAre(std::to_string(static_cast<int>(type))));
    }
}

TEST_F(AnalysisTest, CountsAnewWhenRepeated) {
    add("frm", ComponentType::VBForm, 3);
    analyse();
    analyse();
    EXPECT_THAT(selected(), ElementsAre("frm"));
    EXPECT_EQ(analysis.captions().LblForms, "VB Forms: 1");
    EXPECT_EQ(analysis.TotalControls(), 3);
}

TEST_F(AnalysisTest, TellsAProjectThatIsNotSaved) {
    ide->project->dirty = true;
    analyse();
    EXPECT_EQ(analysis.captions().lblPrjStat, "Project has been saved: False");
}

TEST_F(AnalysisTest, ShowsTheCountsBeforeItCountsControlsAndTheRestAtTheEnd) {
    add("frm", ComponentType::VBForm, 2);
    int opened = 0;
    ide->calls->onCall = [&](const std::string& member) {
        if (member != "VBComponent.DesignerWindow") return;
        ++opened;
        EXPECT_EQ(observer.shown.LblForms, "VB Forms: 1");
        EXPECT_EQ(observer.shown.lblMDI, "MDI form: 0");
        EXPECT_EQ(observer.shown.lblControls, "");
    };
    analyse();
    EXPECT_GT(opened, 0);
    EXPECT_EQ(observer.shown.lblControls, "Total Controls: 2");
    EXPECT_EQ(observer.shown.lblPrjStat, analysis.captions().lblPrjStat);
}

TEST_F(AnalysisTest, OpensEachDesignerAndClosesIt) {
    add("frm", ComponentType::VBForm, 1);
    analyse();
    const auto& calls = ide->calls->all();
    const auto first = std::find(calls.begin(), calls.end(), "VBComponent.Activate");
    ASSERT_NE(first, calls.end());
    EXPECT_THAT(std::vector<std::string>(first, calls.end()),
                ElementsAre("VBComponent.Activate", "VBComponent.DesignerWindow", "Window.SetFocus",
                            "VBComponent.Designer", "VBForm.VBControls", "VBControls.Count",
                            "VBComponent.DesignerWindow", "Window.Close", "VBProject.IsDirty"));
    EXPECT_EQ(observer.yields, 3);
}

TEST_F(AnalysisTest, IgnoresErrorsStatementByStatement) {
    for (const char* member : {"VBComponent.Activate", "Window.SetFocus", "VBComponent.DesignerWindow"}) {
        ide = test::FakeIde::make();
        add("frm", ComponentType::VBForm, 3);
        add("frm2", ComponentType::VBForm, 4);
        ide->calls->failForGood(member, 1, RunTimeError(ErrorNumber::InvalidProcedureCall));
        analyse();
        EXPECT_EQ(analysis.TotalControls(), 7) << member;
    }
}

TEST_F(AnalysisTest, CountsNoControlsOfADesignerThatCannotBeOpened) {
    for (const char* member : {"VBComponent.Designer", "VBForm.VBControls", "VBControls.Count"}) {
        ide = test::FakeIde::make();
        add("frm", ComponentType::VBForm, 3);
        add("frm2", ComponentType::VBForm, 4);
        ide->calls->fail(member, 1, RunTimeError(ErrorNumber::InvalidProcedureCall));
        analyse();
        EXPECT_EQ(analysis.TotalControls(), 4) << member;
        EXPECT_EQ(selected().size(), 2U);
    }
    ide->project->components[0]->hasDesigner = false;
    analyse();
    EXPECT_EQ(analysis.TotalControls(), 4);
}

TEST_F(AnalysisTest, PassesOverAComponentThatCannotBeAsked) {
    add("frm", ComponentType::VBForm, 3);
    add("frm2", ComponentType::VBForm, 4);
    ide->calls->fail("VBComponents.Item", 1, RunTimeError(ErrorNumber::SubscriptOutOfRange));
    analyse();
    EXPECT_THAT(selected(), ElementsAre("frm2"));
    ide->calls->fail("VBComponent.Type", 2, RunTimeError(ErrorNumber::SubscriptOutOfRange));
    analyse();
    EXPECT_THAT(selected(), ElementsAre("frm"));
    EXPECT_EQ(analysis.captions().LblForms, "VB Forms: 1");
}

TEST_F(AnalysisTest, GoesOnWhateverCallFails) {
    add("frm", ComponentType::VBForm, 3);
    analyse();
    const auto calls = static_cast<int>(ide->calls->all().size());
    for (int n = 1; n <= calls; ++n) {
        ide->calls->failNoMore();
        ide->calls->fail("", n, RunTimeError(ErrorNumber::InvalidProcedureCall));
        analysis = Analysis();
        ide->calls->forget();
        EXPECT_NO_THROW(analyse()) << n;
        const auto failed = ide->calls->all().at(static_cast<std::size_t>(n) - 1);
        // These find the component or its controls; the others are wanted for nothing else.
        const bool matters = failed.find("VBProject.VBComponents") == 0 ||
                             failed.find("VBComponents.") == 0 || failed == "VBComponent.Type" ||
                             failed == "VBComponent.Designer" || failed == "VBForm.VBControls" ||
                             failed == "VBControls.Count";
        EXPECT_EQ(analysis.captions().lblControls, matters ? "Total Controls: 0" : "Total Controls: 3")
            << failed;
        EXPECT_EQ(analysis.captions().lblProj.empty(), failed == "VBProject.Name");
        EXPECT_EQ(analysis.captions().lblPrjStat.empty(), failed == "VBProject.IsDirty");
        EXPECT_EQ(analysis.captions().LblForms, selected().empty() ? "VB Forms: 0" : "VB Forms: 1");
    }
}

TEST_F(AnalysisTest, EndsWhereItIsStoppedAndLeavesNoWindowOpen) {
    add("f", ComponentType::VBForm, 1);
    add("g", ComponentType::VBForm, 2);
    const std::vector<const char*> members{"VBComponent.Activate", "Window.SetFocus", "VBControls.Count",
                                           "Window.Close"};
    // What has been called when it is stopped at each of its yields.
    const std::vector<std::vector<int>> calls{{0, 0, 0, 0}, {1, 0, 0, 1}, {1, 1, 0, 1},
                                              {1, 1, 1, 1}, {2, 1, 1, 2}, {2, 2, 1, 2}};
    for (std::size_t n = 0; n < calls.size(); ++n) {
        ide->calls->forget();
        observer.yields = 0;
        observer.stopAtYield = static_cast<int>(n) + 1;
        Analysis stopped;
        EXPECT_FALSE(stopped.analyseProject(ide->project, options, observer));
        EXPECT_EQ(stopped.captions().lblControls, "");
        std::vector<int> called;
        for (const char* member : members) called.push_back(ide->calls->count(member));
        EXPECT_EQ(called, calls[n]) << "at yield " << n + 1;
    }
    observer.stopAtYield = 1000000;
    EXPECT_TRUE(analysis.analyseProject(ide->project, options, observer));
}

TEST_F(AnalysisTest, CountsNothingWithoutAProject) {
    ide->project = nullptr;
    analyse();
    EXPECT_EQ(analysis.captions().lblProj, "");
    EXPECT_EQ(analysis.captions().LblForms, "VB Forms: 0");
    EXPECT_EQ(analysis.captions().lblControls, "Total Controls: 0");
}

TEST_F(AnalysisTest, KeepsACounterAtItsLargestNumber) {
    for (int i = 0; i < 257; ++i) add("mdi", ComponentType::VBMDIForm);
    analyse();
    EXPECT_EQ(analysis.captions().lblMDI, "MDI form: 255");
    EXPECT_EQ(selected().size(), 257U);
}

TEST_F(AnalysisTest, LeavesOutADesignerWhoseControlsWouldOverflowTheTotal) {
    struct Crowded : test::FakeComponent {
        using FakeComponent::FakeComponent;
        std::int32_t count = 0;
        std::int32_t Count() override { return count; }
    };
    for (const std::int32_t count : {2147483000, 648, 647, 1}) {
        const auto component = std::make_shared<Crowded>(ide->calls, "frm", ComponentType::VBForm);
        component->hasDesigner = true;
        component->count = count;
        ide->project->components.push_back(component);
    }
    analyse();
    EXPECT_EQ(analysis.captions().lblControls, "Total Controls: 2147483647");
}

TEST_F(AnalysisTest, KeepsEveryWideCounterAtItsLargestNumber) {
    const auto component = ide->project->add("many", ComponentType::VBForm);
    ide->project->components.resize(32769, component);
    ide->calls->onCall = [this](const std::string&) { ide->calls->forget(); };
    options = IndexOptions();
    const std::pair<ComponentType, const char*> rows[] = {
        {ComponentType::VBForm, "VB Forms: 32767"},
        {ComponentType::UserControl, "ActiveX Controls: 32767"},
        {ComponentType::PropPage, "Property pages: 32767"},
        {ComponentType::DocObject, "ActiveX Documents: 32767"},
        {ComponentType::ActiveXDesigner, "Designers: 32767"}};
    for (const auto& [type, caption] : rows) {
        component->type = type;
        analyse();
        EXPECT_THAT(captions(), testing::Contains(caption));
    }
}

} // namespace
} // namespace corvelle::indexer
