#include "forms/message_box.h"
#include "indexer/general_date.h"
#include "indexer/project_info.h"
#include "indexer/windows/indexer_wizard.h"

#include <gmock/gmock.h>

namespace corvelle::indexer::test {
namespace {

using forms::answer::ok;
using testing::ElementsAre;

class IndexerReport : public testing::Test, protected IndexerWizard {
  protected:
    IndexerReport() { addExample(); }

    // The last stage, with an index created.
    FrmIndexer& showReport(bool withModule = false) {
        FrmIndexer& form = showStageTwo();
        if (withModule) wantModule(form);
        click(form.CmdProc);
        desktop.answerNextBox(ok); // no text file yet
        click(form.CmdNext);
        desktop.type(form.Text1(2), pathOf("a.txt"));
        click(form.CmdNext);
        return form;
    }
};

// As the system writes the date.
std::string today() {
    const auto now = systemDateAndTime();
    return now.substr(0, now.find(' '));
}

TEST_F(IndexerReport, TellsTheOptions) {
    FrmIndexer& form = showStageTwo();
    for (auto* box : {&form.ChkExcLine, &form.ChkExcToolbar, &form.ChkMDI, &form.ChkDsr, &form.ChkAutoLoad})
        box->setValue(box->value() == 0 ? 1 : 0);
    form.ChkAutoLoad.setValue(0);
    click(form.CmdProc);
    const auto lines = reportLines(form);
    ASSERT_GE(lines.size(), 30U);
    EXPECT_THAT(lines[1], testing::StartsWith(today()));
    EXPECT_THAT(std::vector<std::string>(lines.begin() + 12, lines.begin() + 31),
                ElementsAre("** Indexing Options **", "** Controls Excluded **", "Label = False",
                            "Line = True", "Shape = False", "Frame = False", "Menu = False", "Toolbar = True",
                            "** Components Included **", "MDI Form = False", "Form = True",
                            "ActiveX Control = False", "ActiveX Document = False", "Designer = True",
                            "Property page = False", "** Other Options **", "Add Mapping Module = False",
                            "Create Autoload Procedures = False", "***** Indexing Started *******"));
}

TEST_F(IndexerReport, IsBegunAnewByTheNextAnalysis) {
    FrmIndexer& form = showStageTwo();
    click(form.CmdProc);
    click(form.CmdClose);
    EXPECT_THAT(reportLines(form), testing::Contains("*** Indexing done ***"));
    click(form.CmdProc);
    const auto lines = reportLines(form);
    ASSERT_EQ(lines.size(), 12U);
    EXPECT_EQ(lines.front(), "Indexing initiated by ContextHElpID Indexer");
    EXPECT_EQ(lines.back(), "Total Controls: 5");
    click(form.CmdNext);
    click(form.CmdProc); // goes on with that text
    EXPECT_EQ(reportLines(form)[12], "** Indexing Options **");
    EXPECT_EQ(reportLines(form).back(), "*** Indexing done ***");
}

TEST_F(IndexerReport, CannotBeEdited) {
    FrmIndexer& form = showReport();
    EXPECT_FALSE(desktop.type(form.TxtRV, "something else"));
}

TEST_F(IndexerReport, IsSaved) {
    FrmIndexer& form = showReport();
    for (int time = 0; time < 2; ++time) {
        desktop.chooseNextFile(pathOf("a.log"));
        desktop.answerNextBox(ok);
        EXPECT_TRUE(click(form.cmdRpt));
        EXPECT_EQ(desktop.fileDialogs().back().filter, "Log files(*.log)|*.log");
        EXPECT_EQ(desktop.fileDialogs().back().flags, 8194);
        EXPECT_EQ(lastBox(), "Corvelle|64|File: " + pathOf("a.log") + " was saved..");
        EXPECT_EQ(folder.read("a.log"), form.TxtRV.text() + "\r\n");
    }
}

TEST_F(IndexerReport, KeepsSilentWhenItIsNotSaved) {
    FrmIndexer& form = showReport();
    const auto boxes = desktop.boxes().size();
    const auto report = form.TxtRV.text();
    desktop.cancelNextFile();
    click(form.cmdRpt);
    desktop.chooseNextFile(folder.path().string());
    click(form.cmdRpt);
    EXPECT_EQ(desktop.boxes().size(), boxes);
    EXPECT_EQ(form.TxtRV.text(), report);
}

TEST_F(IndexerReport, SavesTheIndexerProject) {
    FrmIndexer& form = showReport(true);
    desktop.chooseNextFile(pathOf("a.icp"));
    desktop.answerNextBox(ok);
    EXPECT_TRUE(click(form.CmdProc));
    EXPECT_EQ(desktop.fileDialogs().back().filter, "Indexer Project(*.icp)|*.icp");
    EXPECT_EQ(lastBox(), "Corvelle|64|File was saved successfully.");
    const auto bytes = folder.read("a.icp");
    EXPECT_THAT(bytes, testing::StartsWith("Indexer project file :" + today()));
    EXPECT_EQ(bytes.substr(bytes.find("\r\n") + 2),
              "VB Project Name= Stockroom\r\nProject File= C:\\Projects\\Stock\\Stockroom.vbp\r\n"
              "Header file= " +
                  pathOf("a.h") + "\r\nConfiguration File= " + pathOf("a.hcnf") +
                  "\r\nText File= " + pathOf("a.txt") +
                  "\r\nModule Name= modHelp\r\nModule File= " + pathOf("modHelp.bas") + "\r\n");
    ProjectInfo info;
    EXPECT_TRUE(ReadProjectFile(pathOf("a.icp"), info));
}

TEST_F(IndexerReport, SavesAProjectWithoutATextFileThatCannotBeOpened) {
    FrmIndexer& form = showStageTwo();
    desktop.chooseNextFile(pathOf("a.icp"));
    desktop.answerNextBox(ok);
    form.saveProject();
    EXPECT_EQ(lastBox(), "Corvelle|64|File was saved successfully.");
    EXPECT_THAT(folder.read("a.icp"), testing::HasSubstr("\r\nText File= \r\nModule Name= \r\n"));
    ProjectInfo info;
    EXPECT_FALSE(ReadProjectFile(pathOf("a.icp"), info));
}

TEST_F(IndexerReport, TellsWhenTheProjectIsNotSaved) {
    FrmIndexer& form = showReport();
    desktop.cancelNextFile();
    click(form.CmdProc);
    const auto boxes = desktop.boxes().size();
    const auto report = form.TxtRV.text();
    desktop.chooseNextFile(folder.path().string());
    desktop.answerNextBox(ok);
    click(form.CmdProc);
    EXPECT_EQ(lastBox(), "Corvelle|48|Errors occured while saving file. ");
    calls.failForGood("VBProject.Name", 1, disaster);
    desktop.chooseNextFile(pathOf("a.icp"));
    desktop.answerNextBox(ok);
    click(form.CmdProc);
    EXPECT_EQ(lastBox(), "Corvelle|0|Method '~' of object '~' failed");
    EXPECT_EQ(desktop.boxes().size(), boxes + 2);
    EXPECT_EQ(form.TxtRV.text(), report);
}

} // namespace
} // namespace corvelle::indexer::test
