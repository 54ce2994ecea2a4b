#include "forms/message_box.h"
#include "indexer/forms/indexer_wizard.h"
#include "indexer/project_info.h"
#include "indexer/report.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace corvelle::indexer::test {
namespace {

using forms::answer::no;
using forms::answer::ok;
using forms::answer::yes;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

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

const char* const invalidBox =
    "Corvelle|16|Either header  file or configuration file is invalid.You need to re generate them ";
const char* const noTextFileBox = "Corvelle|64|You have to create new Text file for Text entries..";
const char* const savedBox = "Corvelle|64|File was saved successfully.";

// frmMain with cmdOK and txtName, frmOrder with txtDate, lblDate and cmdOK: IDH_AAAB to IDH_AAAF.
class IndexerTexts : public testing::Test, protected IndexerWizard {
  protected:
    IndexerTexts() { addExample(); }

    FrmIndexer& showCreated() {
        FrmIndexer& form = showStageTwo();
        click(form.CmdProc);
        return form;
    }
    FrmIndexer& showStageThree(const std::string& texts) {
        FrmIndexer& form = showCreated();
        folder.write("a.txt", texts);
        form.Text1(2).setText(pathOf("a.txt"));
        click(form.CmdNext);
        return form;
    }
    // The stage with no text file named before.
    FrmIndexer& showStageThree() {
        FrmIndexer& form = showCreated();
        desktop.answerNextBox(ok);
        click(form.CmdNext);
        EXPECT_TRUE(desktop.type(form.Text1(2), pathOf("a.txt")));
        return form;
    }
    void choose(FrmIndexer& form, int designer, int control) {
        EXPECT_TRUE(desktop.choose(form.cboDsr, designer));
        EXPECT_TRUE(desktop.choose(form.CboCtl, control));
    }
    void save(FrmIndexer& form) {
        const auto line = "Created Text file: " + form.Text1(2).text();
        desktop.answerNextBox(ok, [&form, line] { EXPECT_EQ(reportLines(form).back(), line); });
        EXPECT_TRUE(click(form.CmdProc));
        EXPECT_EQ(lastBox(), savedBox);
    }
    // The topic's text in the saved file.
    std::string saved(const std::string& name) const {
        const auto texts = folder.read("a.txt");
        const auto topic = ".topic  " + name + "\r\n";
        const auto at = texts.find(topic);
        if (at == std::string::npos) return "none";
        const auto begin = at + topic.size();
        return texts.substr(begin, texts.find("\r\n", begin) - begin);
    }
};

TEST_F(IndexerTexts, StartEmptyWithoutATextFile) {
    FrmIndexer& form = showStageThree();
    EXPECT_EQ(lastBox(), noTextFileBox);
    EXPECT_THAT(form.cboDsr.items(), ElementsAre("frmMain", "frmOrder"));
    EXPECT_THAT(form.CboCtl.items(), ElementsAre("cmdOK", "txtName"));
    EXPECT_EQ(form.LblType.caption(), "CommandButton");
    EXPECT_EQ(form.LblID.caption(), "IDH_AAAB");
    EXPECT_TRUE(form.txtHelp.enabled());
    EXPECT_EQ(form.txtHelp.text(), "");
    EXPECT_EQ(form.mousePointer(), forms::MousePointer::Default);
}

TEST_F(IndexerTexts, AreReadFromATextFile) {
    FrmIndexer& form = showStageThree(".topic  IDH_AAAC\r\nThe name.\r\n");
    EXPECT_THAT(desktop.boxes(), IsEmpty());
    choose(form, 0, 1);
    EXPECT_EQ(form.txtHelp.text(), " The name.");
}

TEST_F(IndexerTexts, NeedTheIndexFiles) {
    FrmIndexer& form = showCreated();
    for (const auto* missing : {"a.h", "a.hcnf"}) {
        const auto bytes = folder.read(missing);
        std::filesystem::remove(folder.path() / missing);
        desktop.answerNextBox(ok, [&] { EXPECT_EQ(form.mousePointer(), forms::MousePointer::Default); });
        click(form.CmdNext);
        EXPECT_EQ(lastBox(), invalidBox);
        EXPECT_EQ(form.caption(), "Help Context ID Indexer :Stage 2 of 4");
        EXPECT_TRUE(form.FrameTwo.visible());
        folder.write(missing, bytes);
    }
    desktop.answerNextBox(ok);
    click(form.CmdNext);
    EXPECT_EQ(form.caption(), "Help Context ID Indexer :Stage 3 of 4");
}

TEST_F(IndexerTexts, AreSavedWithTheDefaultText) {
    FrmIndexer& form = showStageThree();
    desktop.type(form.txtHelp, "Closes the window.\r\nAt once.");
    choose(form, 0, 1);
    save(form);
    EXPECT_EQ(folder.read("a.txt"),
              ".topic  IDH_AAAA\r\nNo help information is available for this control.\r\n\r\n"
              ".topic  IDH_AAAB\r\nCloses the window.\r\nAt once.\r\n.topic  IDH_AAAC\r\n\r\n"
              ".topic  IDH_AAAD\r\n\r\n.topic  IDH_AAAE\r\n\r\n.topic  IDH_AAAF\r\n\r\n");
    EXPECT_EQ(reportLines(form).back(), "Created Text file: " + pathOf("a.txt"));
    form.txtDefault.setText("Ask Ann.");
    save(form); // as often as one likes
    EXPECT_THAT(folder.read("a.txt"),
                testing::StartsWith(".topic  IDH_AAAA\r\nAsk Ann.\r\n.topic  IDH_AAAB"));
    EXPECT_EQ(reportLines(form)[reportLines(form).size() - 2], "Created Text file: " + pathOf("a.txt"));
    EXPECT_EQ(header(), exampleHeader);
    EXPECT_EQ(configuration(), exampleConfiguration);
}

TEST_F(IndexerTexts, AreTheDefaultAloneWithoutControls) {
    FrmIndexer& form = showCreated();
    folder.write("a.hcnf", "<P>frmMain</P>\r\n");
    desktop.answerNextBox(ok);
    click(form.CmdNext);
    EXPECT_THAT(form.CboCtl.items(), IsEmpty());
    EXPECT_FALSE(form.txtHelp.enabled());
    desktop.type(form.Text1(2), pathOf("a.txt"));
    form.txtDefault.setText("Nothing.");
    save(form);
    EXPECT_EQ(folder.read("a.txt"), ".topic  IDH_AAAA\r\nNothing.\r\n");
}

// The default entry has the text of the last saving, or of the text file, and not yet the one that is typed.
TEST_F(IndexerTexts, ShowTheDefaultTextAsItWasSaved) {
    FrmIndexer& form = showStageThree();
    form.txtDefault.setText("Ask Ann.");
    desktop.answerNextBox(yes);
    click(form.CmdDef);
    EXPECT_EQ(form.txtHelp.text(), "");
    EXPECT_FALSE(form.txtHelp.enabled());
    save(form);
    choose(form, 0, 1);
    click(form.CmdDef);
    EXPECT_EQ(form.txtHelp.text(), "Ask Ann.");
    choose(form, 0, 0);
    EXPECT_EQ(form.txtHelp.text(), "Ask Ann.");
}

TEST_F(IndexerTexts, AreSavedAsTheyStandWithoutTheTextOnDisplay) {
    FrmIndexer& form = showStageThree();
    desktop.type(form.txtHelp, "typed");
    save(form);
    EXPECT_EQ(saved("IDH_AAAB"), "");
    choose(form, 0, 1);
    save(form);
    EXPECT_EQ(saved("IDH_AAAB"), "typed");
}

TEST_F(IndexerTexts, GoIntoTheFirstControlWhenAnotherDesignerIsChosen) {
    FrmIndexer& form = showStageThree(".topic  IDH_AAAC\r\nearlier\r\n");
    choose(form, 0, 1);
    desktop.type(form.txtHelp, "typed for the second");
    desktop.choose(form.cboDsr, 1);
    save(form);
    EXPECT_EQ(saved("IDH_AAAB"), "typed for the second");
    EXPECT_EQ(saved("IDH_AAAC"), " earlier");
    EXPECT_EQ(saved("IDH_AAAD"), "");
}

TEST_F(IndexerTexts, AskOnceWhichFilesNeedUpdating) {
    FrmIndexer& form = showStageThree();
    form.Text1(3).setText("C:\\Proj\\modHelp.bas");
    const auto prompt = "Update files..?|36|This action requires following files to be updated :/" +
                        pathOf("a.h") + "/" + pathOf("a.hcnf") + "/C:\\Proj\\modHelp.bas/" + pathOf("a.txt") +
                        "/Do you wish to continue ?";
    desktop.answerNextBox(no);
    click(form.CmdDel);
    EXPECT_EQ(lastBox(), prompt);
    EXPECT_EQ(form.LblID.caption(), "IDH_AAAB");
    desktop.answerNextBox(yes);
    click(form.CmdDel);
    EXPECT_EQ(form.LblID.caption(), "");
    EXPECT_EQ(form.txtHelp.text(), "This control is deleted from Index..");
    click(form.CmdDef);
    EXPECT_EQ(form.LblID.caption(), "IDH_AAAA");
    choose(form, 1, 1);
    click(form.CmdDel);
    // Nor after the way back and forth.
    click(form.CmdClose);
    click(form.CmdNext);
    click(form.CmdDel);
    EXPECT_EQ(form.LblID.caption(), "");
    EXPECT_EQ(desktop.boxes().size(), 3U);
}

TEST_F(IndexerTexts, AskAgainInAnotherWindow) {
    FrmIndexer& form = showStageThree();
    desktop.answerNextBox(yes);
    click(form.CmdDel);
    const auto same = manager->wizard;
    desktop.close(form);
    manager->wizard = same;
    form.ShowIndexer(ide);
    click(form.CmdProc);
    click(form.CmdNext);
    form.Text1(0).setText(pathOf("a.h"));
    form.Text1(1).setText(pathOf("a.hcnf"));
    click(form.CmdProc);
    desktop.answerNextBox(ok); // no text file yet
    click(form.CmdNext);
    desktop.answerNextBox(no);
    click(form.CmdDel);
    EXPECT_THAT(lastBox(), testing::StartsWith("Update files..?|36|"));
    EXPECT_EQ(form.LblID.caption(), "IDH_AAAB");
}

TEST_F(IndexerTexts, LeaveTheIndexFilesAlone) {
    FrmIndexer& form = showStageThree();
    form.Text1(3).setText(folder.write("m.bas", "the module").string());
    desktop.answerNextBox(yes);
    click(form.CmdDel);
    click(form.CmdDef);
    choose(form, 0, 1);
    click(form.CmdDel);
    save(form);
    EXPECT_EQ(saved("IDH_AAAB"), "none");
    EXPECT_EQ(saved("IDH_AAAC"), "none");
    EXPECT_EQ(saved("IDH_AAAD"), "");
    EXPECT_EQ(header(), exampleHeader);
    EXPECT_EQ(configuration(), exampleConfiguration);
    EXPECT_EQ(folder.read("m.bas"), "the module");
}

TEST_F(IndexerTexts, AreReadAtOnceFromATextFileThatIsChosen) {
    FrmIndexer& form = showStageThree();
    desktop.type(form.txtHelp, "typed");
    folder.write("b.txt", ".topic  IDH_AAAC\r\nThe name.\r\n.topic  IDH_AAAD\r\nThe date.\r\n");
    desktop.chooseNextFile(pathOf("b.txt"));
    click(form.Command2(2));
    EXPECT_EQ(desktop.fileDialogs().back().filter, "Text file(*.txt)|*.txt");
    EXPECT_EQ(form.txtHelp.text(), "typed"); // that file knows nothing of this control
    folder.write("c.txt", ".topic  IDH_AAAB\r\nKnown.\r\n.topic  IDH_AAAD\r\nThe day.\r\n");
    desktop.chooseNextFile(pathOf("c.txt"));
    click(form.Command2(2));
    EXPECT_EQ(form.txtHelp.text(), " Known.");
    choose(form, 0, 1);
    EXPECT_EQ(form.txtHelp.text(), " The name.");
    choose(form, 0, 0);
    EXPECT_EQ(form.txtHelp.text(), " Known.");
    desktop.choose(form.cboDsr, 1);
    EXPECT_EQ(form.txtHelp.text(), " The day.");
    EXPECT_TRUE(form.CmdProc.enabled());
}

TEST_F(IndexerTexts, ChooseTheirFileAsTheIndexFilesAreChosen) {
    FrmIndexer& form = showStageThree(".topic  IDH_AAAB\r\nearlier\r\n");
    EXPECT_EQ(form.Command2(2).caption(), "....");
    folder.write("a.txt", ".topic  IDH_AAAB\r\nlater\r\n");
    desktop.cancelNextFile();
    EXPECT_TRUE(click(form.Command2(2)));
    const auto& dialog = desktop.fileDialogs().back();
    EXPECT_EQ(dialog.initDir, "C:\\Projects\\Stock\\");
    EXPECT_EQ(dialog.flags, 8194);
    EXPECT_TRUE(dialog.save);
    EXPECT_EQ(form.Text1(2).text(), pathOf("a.txt"));
    choose(form, 0, 1);
    choose(form, 0, 0);
    EXPECT_EQ(form.txtHelp.text(), " earlier"); // nothing was read
}

TEST_F(IndexerTexts, CanBeSavedWhileTheirFileHasAName) {
    FrmIndexer& form = showStageThree();
    EXPECT_TRUE(form.CmdProc.enabled());
    EXPECT_TRUE(desktop.type(form.Text1(2), ""));
    EXPECT_FALSE(form.CmdProc.enabled());
    EXPECT_TRUE(desktop.type(form.Text1(2), "b.txt"));
    EXPECT_TRUE(form.CmdProc.enabled());
}

TEST_F(IndexerTexts, AreLoadedAnewOnEveryWayIntoTheStage) {
    FrmIndexer& form = showStageThree(".topic  IDH_AAAB\r\nfirst\r\n.topic  IDH_AAAD\r\nthird\r\n");
    desktop.type(form.txtHelp, "never saved");
    choose(form, 0, 1);
    choose(form, 1, 2);
    click(form.CmdClose);
    folder.write("a.txt", ".topic  IDH_AAAB\r\nnew\r\n.topic  IDH_AAAD\r\nthird\r\n");
    click(form.CmdNext);
    EXPECT_EQ(form.cboDsr.listIndex(), 0);
    EXPECT_EQ(form.txtHelp.text(), " new");
    desktop.choose(form.cboDsr, 1);
    EXPECT_EQ(form.txtHelp.text(), " third");
    EXPECT_EQ(form.cboDsr.listCount(), 2);
}

TEST_F(IndexerTexts, StayWhenTheyCannotBeSaved) {
    FrmIndexer& form = showStageThree();
    desktop.type(form.txtHelp, "typed");
    choose(form, 0, 1);
    form.Text1(2).setText(pathOf("none/a.txt"));
    desktop.answerNextBox(ok);
    click(form.CmdProc);
    EXPECT_EQ(lastBox(), "Corvelle|48|Errors occured while saving file. ");
    EXPECT_THAT(form.TxtRV.text(), testing::Not(HasSubstr("Created Text file: ")));
    form.Text1(2).setText(pathOf("a.txt"));
    save(form);
    EXPECT_EQ(saved("IDH_AAAB"), "typed");
}

TEST_F(IndexerTexts, ReplaceNoFileThatCouldNotBeRead) {
    const auto utf16 = std::string("\xFF\xFE.\0t\0o\0p\0i\0c\0 \0", 16);
    folder.write("b.txt", utf16);
    const auto expectNotSaved = [&](FrmIndexer& form) {
        desktop.answerNextBox(ok);
        click(form.CmdProc);
        EXPECT_EQ(lastBox(), "Corvelle|48|Errors occured while saving file. ");
        EXPECT_EQ(folder.read("b.txt"), utf16);
        EXPECT_THAT(form.TxtRV.text(), testing::Not(HasSubstr("Created Text file: " + pathOf("b.txt"))));
    };
    FrmIndexer& form = showStageThree();
    desktop.chooseNextFile(pathOf("b.txt"));
    click(form.Command2(2));
    expectNotSaved(form);
    click(form.CmdClose); // as it is when the stage is entered
    EXPECT_EQ(form.Text1(2).text(), pathOf("b.txt"));
    click(form.CmdNext);
    expectNotSaved(form);
    form.Text1(2).setText(pathOf("a.txt"));
    save(form);
    form.Text1(2).setText(pathOf("b.txt"));
    expectNotSaved(form);
    folder.write("b.txt", ".topic  IDH_AAAB\r\nKnown.\r\n");
    desktop.chooseNextFile(pathOf("b.txt"));
    click(form.Command2(2));
    EXPECT_EQ(form.txtHelp.text(), " Known.");
    save(form);
}

TEST_F(IndexerTexts, AreNotReadFromAFileWhosePathIsTyped) {
    FrmIndexer& form = showStageThree();
    folder.write("b.txt", ".topic  IDH_AAAB\r\nKnown.\r\n");
    EXPECT_TRUE(desktop.type(form.Text1(2), pathOf("b.txt")));
    choose(form, 0, 1);
    choose(form, 0, 0);
    EXPECT_EQ(form.txtHelp.text(), "");
}

// Nothing is said of a file that cannot be read; it counts as empty.
TEST_F(IndexerTexts, SayNothingOfAFileThatCannotBeRead) {
    FrmIndexer& form = showCreated();
    folder.write("a.txt", std::string(100, '\1'));
    folder.write("a.hcnf", std::string(100, '\1'));
    form.Text1(2).setText(pathOf("a.txt"));
    click(form.CmdNext);
    EXPECT_THAT(desktop.boxes(), IsEmpty());
    EXPECT_EQ(form.caption(), "Help Context ID Indexer :Stage 3 of 4");
    EXPECT_EQ(form.cboDsr.listCount(), 0);
}

// Kept as it has always been: the display of a control without a text of its own counts as a text too.
TEST_F(IndexerTexts, TakeWhatIsShownForAControlWithoutOneIntoTheFirst) {
    FrmIndexer& form = showStageThree(".topic  IDH_AAAA\r\nNothing.\r\n.topic  IDH_AAAB\r\nfirst\r\n"
                                      ".topic  IDH_AAAD\r\nthird\r\n");
    choose(form, 0, 1);
    desktop.answerNextBox(yes);
    click(form.CmdDel);
    desktop.choose(form.cboDsr, 1);
    choose(form, 1, 1);
    click(form.CmdDef);
    desktop.choose(form.cboDsr, 0);
    save(form);
    EXPECT_EQ(saved("IDH_AAAB"), "This control is deleted from Index..");
    EXPECT_EQ(saved("IDH_AAAD"), " Nothing.");
}

TEST_F(IndexerTexts, AreLoadedUnderAnHourglass) {
    FrmIndexer& form = showCreated();
    desktop.answerNextBox(ok, [&] { EXPECT_EQ(form.mousePointer(), forms::MousePointer::Hourglass); });
    click(form.CmdNext);
    EXPECT_EQ(form.mousePointer(), forms::MousePointer::Default);
    EXPECT_EQ(form.CmdDef.toolTipText(), "Asign the default message to selected control");
    EXPECT_EQ(form.CmdDel.toolTipText(), "Remove selected control from Indexing");
}

TEST_F(IndexerTexts, EndWithTheirWindow) {
    const auto disconnect = [this] { manager->disconnect(); };
    FrmIndexer& form = showCreated();
    auto alive = form.shared_from_this();
    desktop.answerNextBox(ok, disconnect); // no text file yet
    click(form.CmdNext);
    EXPECT_FALSE(alive->isLoaded());
    for (const int command : {0, 1, 2}) {
        FrmIndexer& other = showStageThree();
        alive = other.shared_from_this();
        desktop.answerNextBox(command == 2 ? ok : yes, disconnect);
        click(command == 0 ? other.CmdDel : command == 1 ? other.CmdDef : other.CmdProc);
        EXPECT_FALSE(alive->isLoaded());
    }
    FrmIndexer& other = showCreated();
    std::filesystem::remove(folder.path() / "a.h");
    alive = other.shared_from_this();
    desktop.answerNextBox(ok, disconnect);
    click(other.CmdNext);
    EXPECT_FALSE(alive->isLoaded());
    EXPECT_THAT(desktop.windows(), IsEmpty());
}

} // namespace
} // namespace corvelle::indexer::test
