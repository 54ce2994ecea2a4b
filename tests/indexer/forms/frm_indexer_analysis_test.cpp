#include "indexer/forms/indexer_wizard.h"

#include <functional>
#include <gmock/gmock.h>

namespace corvelle::indexer::test {
namespace {

using ide::ComponentType;
using testing::ElementsAre;

std::vector<std::string> captions(FrmIndexer& form) {
    return {form.lblProj.caption(),    form.lblPrjStat.caption(), form.lblMDI.caption(),
            form.LblForms.caption(),   form.lblActive.caption(),  form.LblProp.caption(),
            form.LblDOB.caption(),     form.lblMsFrm.caption(),   form.LblDsr.caption(),
            form.lblControls.caption()};
}

class IndexerAnalysis : public testing::Test, protected IndexerWizard {};

TEST_F(IndexerAnalysis, ShowsItsFigures) {
    addExample();
    add("mdi", ComponentType::VBMDIForm);
    add("ctl", ComponentType::UserControl, {{"a", "Label"}});
    add("pag", ComponentType::PropPage);
    add("doc", ComponentType::DocObject);
    add("dsr", ComponentType::ActiveXDesigner);
    add("ms", ComponentType::MSForm);
    ide->project->dirty = true;
    FrmIndexer& form = show();
    click(form.CmdProc);
    EXPECT_THAT(captions(form),
                ElementsAre("Project Name: Stockroom", "Project has been saved: False", "MDI form: 1",
                            "VB Forms: 2", "ActiveX Controls: 1", "Property pages: 1", "ActiveX Documents: 1",
                            "Ms Forms: 1", "Designers: 1", "Total Controls: 5"));
    EXPECT_TRUE(form.CmdNext.enabled());
    const auto lines = reportLines(form);
    ASSERT_EQ(lines.size(), 12U);
    EXPECT_EQ(lines[0], "Indexing initiated by ContextHElpID Indexer");
    EXPECT_EQ(std::vector<std::string>(lines.begin() + 2, lines.end()), captions(form));
}

TEST_F(IndexerAnalysis, GoesOnToTheIndexWithoutAnyForm) {
    add("modMain", ComponentType::StdModule);
    add("CPart", ComponentType::ClassModule);
    FrmIndexer& form = show();
    std::string total;
    calls.onCall = [&](const std::string& member) {
        if (member == "VBComponent.Type" && total.empty()) total = form.LblForms.caption();
    };
    click(form.CmdProc);
    EXPECT_EQ(total, "Total Forms: 2");
    EXPECT_EQ(form.LblForms.caption(), "VB Forms: 0");
    EXPECT_EQ(form.lblControls.caption(), "Total Controls: 0");
    EXPECT_TRUE(form.CmdNext.enabled());
}

TEST_F(IndexerAnalysis, SelectsByTheOptionsAndCountsAnew) {
    addExample();
    FrmIndexer& form = show();
    form.ChkFrm.setValue(0);
    click(form.CmdProc);
    EXPECT_EQ(form.LblForms.caption(), "VB Forms: 2");
    EXPECT_EQ(form.lblControls.caption(), "Total Controls: 0");
    form.ChkFrm.setValue(1);
    click(form.CmdProc);
    EXPECT_EQ(form.LblForms.caption(), "VB Forms: 2");
    EXPECT_EQ(form.lblControls.caption(), "Total Controls: 5");
    EXPECT_EQ(reportLines(form).size(), 12U); // begun afresh
}

TEST_F(IndexerAnalysis, KeepsTheCaptionsThatTheIdeDoesNotTell) {
    addExample();
    FrmIndexer& form = show();
    calls.failForGood("VBProject.Name", 1, disaster);
    calls.failForGood("VBProject.IsDirty", 1, disaster);
    click(form.CmdProc);
    EXPECT_EQ(form.lblProj.caption(), "Project Name: ");
    EXPECT_EQ(form.lblPrjStat.caption(), "Project has been saved: ");
    EXPECT_EQ(form.lblControls.caption(), "Total Controls: 5");
}

TEST_F(IndexerAnalysis, SurvivesAFailureOfAnyCall) {
    addExample();
    bool failed = true;
    for (int n = 1; failed; ++n) {
        FrmIndexer& form = show();
        calls.forget();
        calls.fail("", n, disaster);
        click(form.CmdProc);
        failed = calls.anyFailed();
        calls.failNoMore();
        EXPECT_TRUE(form.CmdNext.enabled()) << n;
        EXPECT_EQ(reportLines(form).size(), 12U) << n;
        manager->disconnect();
    }
    EXPECT_TRUE(desktop.boxes().empty());
}

TEST_F(IndexerAnalysis, AnalysesNothingWithoutAProject) {
    ide->project = nullptr;
    FrmIndexer& form = show();
    click(form.CmdProc);
    EXPECT_EQ(form.lblControls.caption(), "Total Controls: 0");
    EXPECT_TRUE(form.CmdNext.enabled());
}

// Whatever the user does while it yields

constexpr int yieldsOfExample = 6; // three a designer

TEST_F(IndexerAnalysis, GivesWayToASecondOne) {
    addExample();
    for (int n = 0; n < yieldsOfExample; ++n) {
        FrmIndexer& form = show();
        desktop.atYield(
            [&] {
                form.ChkMDI.setValue(0);
                add("late" + std::to_string(n), ComponentType::VBForm, {{"a", "TextBox"}});
                EXPECT_TRUE(click(form.CmdProc));
            },
            n);
        click(form.CmdProc);
        EXPECT_EQ(form.LblForms.caption(), "VB Forms: " + std::to_string(3 + n)) << n;
        EXPECT_EQ(form.lblControls.caption(), "Total Controls: " + std::to_string(6 + n)) << n;
        EXPECT_EQ(reportLines(form).size(), 12U) << n;
        EXPECT_TRUE(form.CmdNext.enabled());
        manager->disconnect();
    }
}

TEST_F(IndexerAnalysis, EndsWithItsWindow) {
    addExample();
    const std::vector<std::function<void(FrmIndexer&)>> ends{
        [this](FrmIndexer& form) { EXPECT_TRUE(click(form.CmdClose)); },
        [this](FrmIndexer& form) { EXPECT_TRUE(desktop.close(form)); },
        [this](FrmIndexer&) { manager->disconnect(); },
    };
    for (std::size_t end = 0; end < ends.size(); ++end) {
        for (int n = 0; n < yieldsOfExample; ++n) {
            FrmIndexer& form = show();
            const auto alive = form.shared_from_this();
            desktop.atYield(
                [&] {
                    calls.forget();
                    ends[end](form);
                },
                n);
            click(form.CmdProc);
            EXPECT_FALSE(form.isLoaded()) << end << " at " << n;
            // At most the designer's window is closed after that.
            for (const auto& call : calls.all())
                EXPECT_THAT(call, testing::AnyOf("VBComponent.DesignerWindow", "Window.Close"));
            EXPECT_TRUE(desktop.windows().empty());
            manager->disconnect();
        }
    }
}

TEST_F(IndexerAnalysis, GoesOnInAWindowThatIsShownAgainAtOnce) {
    addExample();
    FrmIndexer& form = show();
    const auto alive = manager->wizard;
    desktop.atYield([&] {
        desktop.close(form);
        manager->wizard = alive;
        form.ShowIndexer(ide);
    });
    click(form.CmdProc);
    EXPECT_TRUE(form.visible());
    EXPECT_FALSE(form.CmdNext.enabled()); // that was another window's analysis
    EXPECT_EQ(form.TxtRV.text(), "");
    click(form.CmdProc);
    EXPECT_EQ(form.lblControls.caption(), "Total Controls: 5");
}

TEST_F(IndexerAnalysis, EndsWhenTheProgramQuits) {
    addExample();
    FrmIndexer& form = show();
    desktop.atYield([&] { desktop.quit(); }, 1);
    click(form.CmdProc);
    EXPECT_EQ(calls.count("VBComponent.Activate"), 1);
    EXPECT_FALSE(form.CmdNext.enabled());
}

TEST_F(IndexerAnalysis, EnablesNextByTheStageThatIsShownThen) {
    addExample();
    FrmIndexer& form = show();
    click(form.CmdProc);
    desktop.atYield([&] { EXPECT_TRUE(click(form.CmdNext)); });
    click(form.CmdProc);
    EXPECT_FALSE(form.CmdNext.enabled()); // in stage 2 there is no index yet
    click(form.CmdClose);
    EXPECT_TRUE(form.CmdNext.enabled());
}

} // namespace
} // namespace corvelle::indexer::test
