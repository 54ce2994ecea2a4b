#include "forms/message_box.h"
#include "indexer/forms/indexer_wizard.h"

#include <gmock/gmock.h>

namespace corvelle::indexer::test {
namespace {

using forms::answer::no;
using forms::answer::ok;
using forms::answer::yes;
using ide::ComponentType;
using ide::ProjectType;
using testing::ElementsAre;

class Indexer : public testing::Test, protected IndexerWizard {
  protected:
    // What stands around the stage's frame.
    struct Look {
        std::string caption, proc, next, close;
        bool procEnabled, nextEnabled;
        bool operator==(const Look&) const = default;
    };
    static Look look(FrmIndexer& form) {
        return {form.caption(),          form.CmdProc.caption(), form.CmdNext.caption(),
                form.CmdClose.caption(), form.CmdProc.enabled(), form.CmdNext.enabled()};
    }
    // The frame that is shown, which must be the only one and in its place; -1 otherwise.
    static int shownFrame(FrmIndexer& form) {
        const std::vector<forms::Frame*> frames{&form.FrameOne, &form.FrameTwo, &form.FrameThree,
                                                &form.FrameFour};
        int shown = -1;
        for (std::size_t i = 0; i < frames.size(); ++i) {
            if (!frames[i]->visible()) continue;
            const auto& place = frames[i]->bounds();
            if (shown != -1 || place.top != 45 || place.left != form.lblInfo.bounds().width + 90) return -1;
            shown = static_cast<int>(i);
        }
        return shown;
    }
    // The wizard with an index created, in stage 2.
    FrmIndexer& showCreated() {
        FrmIndexer& form = showStageTwo();
        EXPECT_TRUE(click(form.CmdProc));
        return form;
    }
    void nextToTexts(FrmIndexer& form) {
        desktop.answerNextBox(ok); // no text file yet
        EXPECT_TRUE(click(form.CmdNext));
    }
    static std::vector<std::string> checkedBoxes(FrmIndexer& form) {
        std::vector<std::string> names;
        for (const auto* control : form.controls()) {
            const auto* const box = dynamic_cast<const forms::CheckBox*>(control);
            if (box && box->value() == 1) names.push_back(box->name());
        }
        return names;
    }
};

// Start-up

TEST_F(Indexer, HasTheCaptionsOfItsControls) {
    FrmIndexer& form = show();
    const std::vector<std::pair<forms::Captioned*, const char*>> rows{
        {&form.ChkFrm, "&Forms"},
        {&form.ChkMDI, "&MDI Form"},
        {&form.ChkDsr, "&Designer"},
        {&form.ChkDOB, "&ActiveX Docs"},
        {&form.ChkPG, "Property Pages"},
        {&form.ChkActiveXCtl, "ActiveX Controls"},
        {&form.ChkExclLbl, "&Labels"},
        {&form.ChKExcFrame, "&Frames"},
        {&form.ChkExcShape, "&Shapes"},
        {&form.ChkExcMenu, "&Menus"},
        {&form.ChkExcLine, "Lines"},
        {&form.ChkExcToolbar, "&ToolBars"},
        {&form.ChkIDMap, "Add a &Module to project listing all the ID Mappings"},
        {&form.ChkAutoLoad, "Create Procedures in each Designer to load  each"},
        {&form.lblAutoLoad, "control's Help Context ID on loading"},
        {&form.lblSelect, "Select Components for which to generate Help ID"},
        {&form.lblExclude, "Exclude following controls from Indexing"},
        {&form.FrameDefault, "Default Text Pop UP ( for controls which have no topic)"},
        {&form.FrameOption, "&Options"},
        {&form.FrameInfo, "&Info"},
        {&form.headerField.label, "Select New Header File Name: (You need it for help file)"},
        {&form.configurationField.label, "Select Configuration File: (Used internally for this Add-In)"},
        {&form.textField.label, "Select New Text File Name: (You need it for help file)"},
        {&form.moduleField.label, "Select Module File: (You will need it in your project)"},
        {&form.lblModuleName, "Enter Module Name ( No Spcae):"},
        {&form.Command2(0), "...."},
        {&form.Command2(1), "...."},
        {&form.Command2(3), "...."},
        {&form.lblIDIs, "HelpContext ID:"},
        {&form.lblHelp, "Text Pop Up Entry [The text which appears as help):"},
        {&form.CmdDef, "Set &Default"},
        {&form.CmdDel, "Delete"},
        {&form.FrameFour, "&Finished Indexing"},
        {&form.lblReview, "Please review the text below"},
        {&form.cmdRpt, "Save &Report"},
    };
    for (const auto& [control, caption] : rows) EXPECT_EQ(control->caption(), caption) << control->name();
    EXPECT_EQ(form.txtDefault.text(), "No help information is available for this control.\r\n");
    EXPECT_THAT(form.TBS.tabs(), ElementsAre("&Informations", "&Options"));
    EXPECT_EQ(form.icon().name(), "icon101");
    for (forms::TextBox* box : {&form.txtDefault, &form.txtHelp, &form.TxtRV})
        EXPECT_TRUE(box->multiLine()) << box->name();
    EXPECT_EQ(form.cancelButton(), nullptr);
}

TEST_F(Indexer, HasItsControlsInTheFramesTheyBelongTo) {
    FrmIndexer& form = show();
    const std::vector<std::pair<forms::Control*, std::vector<forms::Control*>>> rows{
        {&form.FrameOption,
         {&form.lblSelect, &form.ChkFrm, &form.ChkMDI, &form.ChkDsr, &form.ChkDOB, &form.ChkPG,
          &form.ChkActiveXCtl, &form.lblExclude, &form.ChkExclLbl, &form.ChKExcFrame, &form.ChkExcShape,
          &form.ChkExcMenu, &form.ChkExcLine, &form.ChkExcToolbar, &form.ChkIDMap, &form.ChkAutoLoad,
          &form.lblAutoLoad, &form.FrameDefault}},
        {&form.FrameDefault, {&form.txtDefault}},
        {&form.FrameInfo,
         {&form.lblProj, &form.LblForms, &form.lblMsFrm, &form.lblActive, &form.LblProp, &form.LblDOB,
          &form.LblDsr, &form.lblMDI, &form.lblControls, &form.lblPrjStat}},
        {&form.FrameOne, {&form.TBS, &form.FrameInfo, &form.FrameOption}},
        {nullptr,
         {&form.lblInfo, &form.FrameOne, &form.FrameTwo, &form.FrameThree, &form.FrameFour, &form.CmdProc,
          &form.CmdNext, &form.CmdClose}},
    };
    for (const auto& [container, controls] : rows) {
        for (const auto* control : controls) EXPECT_EQ(control->container(), container) << control->name();
    }
    // The boxes stand below their headings.
    const auto top = [](const forms::Control& control) { return control.bounds().top; };
    for (const auto* box :
         {&form.ChkFrm, &form.ChkMDI, &form.ChkDsr, &form.ChkDOB, &form.ChkPG, &form.ChkActiveXCtl}) {
        EXPECT_LT(top(form.lblSelect), top(*box)) << box->name();
        EXPECT_LT(top(*box), top(form.lblExclude)) << box->name();
    }
    for (const auto* box : {&form.ChkExclLbl, &form.ChKExcFrame, &form.ChkExcShape, &form.ChkExcMenu,
                            &form.ChkExcLine, &form.ChkExcToolbar})
        EXPECT_LT(top(form.lblExclude), top(*box)) << box->name();
    EXPECT_LT(top(form.ChkAutoLoad), top(form.lblAutoLoad));
}

TEST_F(Indexer, AsksForTheExclusionListOnceAndRemembersItsPath) {
    desktop.map().values.clear();
    const auto path = folder.write("list", "timer image\r\nlabel\r\n").string();
    desktop.answerNextBox(yes, [this] { EXPECT_EQ(calls.count("VBProject.Type"), 0); }); // first of all
    desktop.chooseNextFile(path);
    addExample();
    add("frmTimer", ComponentType::VBForm, {{"tmr", "Timer"}, {"lbl", "Label"}});
    FrmIndexer& form = showStageTwo();
    EXPECT_EQ(lastBox(),
              "File not found..|36|The filepath containing list of controls which are to be excluded from / "
              "indexing was not found. This file must be a text file and it contains the control /class "
              "names delimited with single space. The control class name found in the file are  /generally "
              "does not have a Context Help ID property./Do you wish to locate it ?");
    ASSERT_EQ(desktop.fileDialogs().size(), 1U);
    const auto& dialog = desktop.fileDialogs().back();
    EXPECT_FALSE(dialog.save);
    EXPECT_EQ(dialog.filter + dialog.fileName, "");
    EXPECT_EQ(dialog.flags, 2048);
    EXPECT_EQ(desktop.map().values[listSetting], path);

    click(form.CmdProc); // the list holds from this run on
    EXPECT_THAT(configuration(), testing::EndsWith("<P>frmTimer</P>\r\n<C>lbl Label IDH_AAAG</C>\r\n"));
    manager->disconnect();
    show();
    EXPECT_EQ(desktop.boxes().size(), 1U);
}

TEST_F(Indexer, GoesOnWithoutAnExclusionList) {
    addExample();
    for (const bool wanted : {false, true}) {
        desktop.map().values.clear();
        desktop.answerNextBox(wanted ? yes : no);
        if (wanted) desktop.cancelNextFile();
        FrmIndexer& form = showStageTwo();
        EXPECT_TRUE(desktop.map().values.empty());
        click(form.CmdProc);
        EXPECT_EQ(configuration(), exampleConfiguration); // every class
        folder.write("a.hcnf", "");
        manager->disconnect();
    }
}

TEST_F(Indexer, AsksNothingAboutAListThatCannotBeRead) {
    desktop.map().values[listSetting] = pathOf("gone.lst");
    addExample();
    FrmIndexer& form = showStageTwo();
    click(form.CmdProc);
    EXPECT_EQ(header(), exampleHeader);
    EXPECT_TRUE(desktop.boxes().empty());
}

TEST_F(Indexer, RemembersAListThatCannotBeRead) {
    desktop.map().values.clear();
    desktop.answerNextBox(yes);
    desktop.chooseNextFile(pathOf("gone.lst"));
    EXPECT_TRUE(show().visible());
    EXPECT_EQ(desktop.map().values[listSetting], pathOf("gone.lst"));
}

// A desktop whose settings fail, and whose file dialog is looked at.
class PoorDesktop : public forms::HeadlessDesktop {
  public:
    bool cancelError = false;
    std::string chosen;

    forms::Settings& settings() override { return settings_; }
    std::optional<std::string> chooseFile(const forms::CommonDialog& dialog, bool) override {
        cancelError = dialog.cancelError;
        return chosen;
    }

  private:
    struct NoSettings : forms::Settings {
        std::string get(const std::string&, const std::string&, const std::string&,
                        const std::string&) override {
            throw IndexerWizard::disaster;
        }
        void save(const std::string&, const std::string&, const std::string&, const std::string&) override {
            throw IndexerWizard::disaster;
        }
    } settings_;
};

TEST_F(Indexer, StartsWhereSettingsCanBeNeitherReadNorSaved) {
    addExample();
    PoorDesktop poor;
    poor.chosen = folder.write("list", "textbox label\r\n").string();
    poor.answerNextBox(yes); // as with no setting
    const auto form = std::make_shared<FrmIndexer>(poor);
    form->ShowIndexer(ide);
    EXPECT_EQ(poor.boxes().size(), 1U);
    EXPECT_TRUE(poor.cancelError);
    poor.click(form->CmdProc);
    poor.click(form->CmdNext);
    form->Text1(0).setText(pathOf("a.h"));
    form->Text1(1).setText(pathOf("a.hcnf"));
    poor.click(form->CmdProc);
    EXPECT_EQ(configuration(), "<P>frmMain</P>\r\n<C>cmdOK CommandButton IDH_AAAB</C>\r\n"
                               "<P>frmOrder</P>\r\n<C>cmdOK CommandButton IDH_AAAC</C>\r\n");
    form->unload();
}

TEST_F(Indexer, YieldsOnceWhenItIsShownAndOnTheWayBackToTheFirstStage) {
    desktop.atYield([this] { // the window is there by then
        EXPECT_TRUE(manager->wizard->visible());
        EXPECT_EQ(look(*manager->wizard).caption, "Help Context ID Indexer :Stage 1 of 4");
    });
    FrmIndexer& form = show();
    EXPECT_EQ(desktop.yields(), 1);
    EXPECT_TRUE(desktop.modals().empty());
    click(form.CmdProc);
    click(form.CmdNext);
    const int before = desktop.yields();
    click(form.CmdClose);
    EXPECT_EQ(desktop.yields(), before + 1);
}

TEST_F(Indexer, IsGoneWhenItIsUnloadedWhileItAsks) {
    for (const int answer : {yes, no}) {
        desktop.map().values.clear();
        desktop.answerNextBox(answer, [this] { manager->disconnect(); });
        const auto form = std::make_shared<FrmIndexer>(desktop);
        manager->wizard = form;
        form->ShowIndexer(ide);
        EXPECT_FALSE(form->isLoaded());
    }
    EXPECT_EQ(desktop.boxes().size(), 2U);
    EXPECT_TRUE(desktop.fileDialogs().empty());
}

TEST_F(Indexer, PresetsTheComponentsOfTheProjectsType) {
    const std::vector<std::pair<ProjectType, std::vector<std::string>>> rows{
        {ProjectType::StandardExe, {"ChkFrm", "ChkMDI"}},
        {ProjectType::ActiveXControl, {"ChkFrm", "ChkPG", "ChkActiveXCtl"}},
        {ProjectType::ActiveXExe, {"ChkFrm", "ChkDsr", "ChkDOB"}},
        {ProjectType::ActiveXDll, {"ChkFrm", "ChkDsr", "ChkDOB"}},
        {static_cast<ProjectType>(7), {}},
    };
    for (const auto& [type, boxes] : rows) {
        ide->project->type = type;
        EXPECT_EQ(checkedBoxes(show()), boxes) << static_cast<int>(type);
        manager->disconnect();
    }
}

TEST_F(Indexer, StartsWithoutAProjectAndWhateverTheIdeRefuses) {
    for (int n = 1; n <= 6; ++n) {
        calls.fail("", n, disaster);
        EXPECT_TRUE(show().visible()) << n;
        calls.failNoMore();
        manager->disconnect();
    }
    ide->project = nullptr;
    EXPECT_THAT(checkedBoxes(show()), ElementsAre());
    EXPECT_TRUE(desktop.boxes().empty());
}

// The stages

TEST_F(Indexer, ShowsEachStage) {
    addExample();
    FrmIndexer& form = show();
    EXPECT_EQ(shownFrame(form), 0);
    EXPECT_EQ(look(form),
              (Look{"Help Context ID Indexer :Stage 1 of 4", "&Analyse", "&Next", "&Close", true, false}));
    EXPECT_EQ(form.lblInfo.caption(),
              " This 'Add In' will help you semi automate the process of creating the index file for Help "
              "Context ID for all the controls. You may set some option to cotrol the behaviour of "
              "processings. The Help Context ID can also be assigned automatically. After you have created "
              "the index file you can also create the Text Messages for the controls through this Add-In.");
    click(form.CmdProc);
    EXPECT_TRUE(form.CmdNext.enabled());

    click(form.CmdNext);
    EXPECT_EQ(shownFrame(form), 1);
    EXPECT_EQ(look(form),
              (Look{"Help Context ID Indexer :Stage 2 of 4", "&Create", "&Next", "&Back", false, false}));
    EXPECT_EQ(form.lblInfo.caption(),
              "In this stage you are ready to create  Index file which you will add to the help projec. A "
              "configuration file will be also created to store the mappings. Tou must supply the two file "
              "paths in order to create them. After you have created the files you can proceed to next and "
              "last stage to write the help topics.");
    desktop.type(form.Text1(0), pathOf("a.h"));
    desktop.type(form.Text1(1), pathOf("a.hcnf"));
    click(form.CmdProc);
    EXPECT_TRUE(form.CmdNext.enabled());

    nextToTexts(form);
    EXPECT_EQ(shownFrame(form), 2);
    EXPECT_EQ(look(form),
              (Look{"Help Context ID Indexer :Stage 3 of 4", "&Save", "&Next", "&Back", false, true}));
    EXPECT_EQ(form.lblInfo.caption(),
              "This is the last functional stage. In this stage you can create the text entries for your "
              "controls which will be displayed as text popups for controls. When you add your entries they "
              "are updated in a internal buffer you must not press &Save button after each entry. Only when "
              "you have finished all the desired entries  you must save the entries to the selected file, "
              "and you have done..");
    desktop.type(form.Text1(2), pathOf("a.txt"));
    EXPECT_TRUE(form.CmdProc.enabled());

    click(form.CmdNext);
    EXPECT_EQ(shownFrame(form), 3);
    EXPECT_EQ(look(form),
              (Look{"Help Context ID Indexer :Stage 1 of 4", "&Save", "&Next", "&Close", true, false}));
    EXPECT_EQ(form.lblInfo.caption(),
              "This is the final stage of this Add-In. Here you are presented with the processing results. "
              "Optionally you can save the processings as a Project file (a plain file to list the relevant "
              "informations for this Add-In and don't think a VB Project). If saved you can use it for "
              "latter reference for this Add-In.");
}

TEST_F(Indexer, SetsWhatBelongsToAStageWhateverWasThere) {
    addExample();
    FrmIndexer& form = showCreated();
    form.Text1(2).setText(pathOf("a.txt"));
    const std::pair<void (FrmIndexer::*)(), Look> stages[] = {
        {&FrmIndexer::StageNew,
         {"Help Context ID Indexer :Stage 1 of 4", "&Analyse", "&Next", "&Close", true, true}},
        {&FrmIndexer::StageIndex,
         {"Help Context ID Indexer :Stage 2 of 4", "&Create", "&Next", "&Back", true, true}},
        {&FrmIndexer::StageTxtPopup,
         {"Help Context ID Indexer :Stage 3 of 4", "&Save", "?", "&Back", true, true}},
        {&FrmIndexer::StageReport,
         {"Help Context ID Indexer :Stage 1 of 4", "?", "?", "&Close", false, false}},
    };
    int frame = 0;
    for (const auto& [enter, wanted] : stages) {
        form.setCaption("?");
        form.lblInfo.setCaption("?");
        for (auto* button : {&form.CmdProc, &form.CmdNext, &form.CmdClose}) button->setCaption("?");
        form.CmdProc.setEnabled(false);
        form.CmdNext.setEnabled(!wanted.nextEnabled);
        (form.*enter)();
        EXPECT_EQ(look(form), wanted) << frame;
        EXPECT_NE(form.lblInfo.caption(), "?");
        EXPECT_EQ(shownFrame(form), frame++);
    }
}

TEST_F(Indexer, PlacesAStagesFrameBesideItsText) {
    FrmIndexer& form = show();
    const auto move = [](forms::Control& control, int left, int top, int wider) {
        const auto& now = control.bounds();
        control.setBounds({left, top, now.width + wider, now.height});
    };
    move(form.lblInfo, 30, 40, 300);
    const std::pair<void (FrmIndexer::*)(), forms::Frame*> stages[] = {
        {&FrmIndexer::StageNew, &form.FrameOne},
        {&FrmIndexer::StageIndex, &form.FrameTwo},
        {&FrmIndexer::StageReport, &form.FrameFour}};
    for (const auto& [enter, frame] : stages) {
        move(*frame, 1, 2, 0);
        const auto before = frame->bounds();
        (form.*enter)();
        EXPECT_EQ(frame->bounds(),
                  (forms::Bounds{form.lblInfo.bounds().width + 90, 45, before.width, before.height}))
            << frame->name();
    }
}

TEST_F(Indexer, KeepsWhatWasDoneOnTheWayBack) {
    addExample();
    FrmIndexer& form = showCreated();
    nextToTexts(form);
    click(form.CmdClose);
    EXPECT_EQ(shownFrame(form), 1);
    EXPECT_EQ(look(form),
              (Look{"Help Context ID Indexer :Stage 2 of 4", "&Create", "&Next", "&Back", true, true}));
    EXPECT_EQ(form.LblProc.caption(), "Processing completed..");
    click(form.CmdClose);
    EXPECT_EQ(shownFrame(form), 0);
    EXPECT_EQ(look(form),
              (Look{"Help Context ID Indexer :Stage 1 of 4", "&Analyse", "&Next", "&Close", true, true}));
    EXPECT_EQ(form.lblControls.caption(), "Total Controls: 5");
    click(form.CmdNext);
    EXPECT_EQ(form.Text1(0).text(), pathOf("a.h"));
    EXPECT_TRUE(form.CmdNext.enabled());
}

TEST_F(Indexer, EnablesTheStagesCommandAsTheStageIsEntered) {
    addExample();
    FrmIndexer& form = show();
    click(form.CmdProc);
    const std::vector<std::pair<const char*, const char*>> incomplete{{"", ""}, {"h", ""}, {"", "c"}};
    for (const auto& [headerPath, configurationPath] : incomplete) {
        form.Text1(0).setText(headerPath);
        form.Text1(1).setText(configurationPath);
        EXPECT_TRUE(form.CmdProc.enabled()); // there is no need of them yet
        click(form.CmdNext);
        EXPECT_FALSE(form.CmdProc.enabled()) << headerPath << '|' << configurationPath;
        click(form.CmdClose);
    }
    EXPECT_TRUE(form.CmdProc.enabled());
    form.Text1(0).setText(pathOf("a.h"));
    form.Text1(1).setText(pathOf("a.hcnf"));
    click(form.CmdNext);
    EXPECT_TRUE(click(form.CmdProc));

    nextToTexts(form);
    EXPECT_FALSE(form.CmdProc.enabled());
    click(form.CmdNext); // where it stays as it was
    EXPECT_EQ(look(form),
              (Look{"Help Context ID Indexer :Stage 1 of 4", "&Save", "&Next", "&Close", false, false}));
    form.StageIndex();
    form.Text1(2).setText(pathOf("a.txt"));
    click(form.CmdNext);
    EXPECT_EQ(look(form),
              (Look{"Help Context ID Indexer :Stage 3 of 4", "&Save", "&Next", "&Back", true, true}));
    EXPECT_EQ(form.Text1(2).text(), pathOf("a.txt"));
}

TEST_F(Indexer, ClosesInTheFirstAndTheLastStage) {
    addExample();
    FrmIndexer& first = show();
    const auto alive = first.shared_from_this();
    click(first.CmdClose);
    EXPECT_EQ(manager->hides, 1);
    EXPECT_FALSE(first.isLoaded());

    FrmIndexer& last = showCreated();
    nextToTexts(last);
    click(last.CmdNext);
    EXPECT_FALSE(click(last.CmdNext)); // there is no further stage
    click(last.CmdClose);
    EXPECT_EQ(manager->hides, 2);
    EXPECT_TRUE(desktop.windows().empty());
}

TEST_F(Indexer, TellsTheConnectObjectOfACloseInEveryStage) {
    addExample();
    for (int stage = 1; stage <= 4; ++stage) {
        FrmIndexer& form = showCreated();
        if (stage == 1) form.StageNew();
        if (stage >= 3) nextToTexts(form);
        if (stage == 4) click(form.CmdNext);
        EXPECT_EQ(shownFrame(form), stage - 1);
        manager->hides = 0;
        EXPECT_TRUE(desktop.close(form));
        EXPECT_EQ(manager->hides, 1) << stage;
        EXPECT_EQ(manager->wizard, nullptr);
    }
}

TEST_F(Indexer, ClosesWithoutAConnectObject) {
    FrmIndexer& form = show();
    const auto alive = form.shared_from_this();
    form.ThisMgr.reset();
    click(form.CmdClose);
    EXPECT_FALSE(form.isLoaded());
}

TEST_F(Indexer, SwitchesBetweenInformationAndOptions) {
    FrmIndexer& form = show();
    EXPECT_TRUE(form.FrameInfo.visible());
    EXPECT_FALSE(form.FrameOption.visible());
    desktop.choose(form.TBS, 2);
    EXPECT_FALSE(form.FrameInfo.visible());
    EXPECT_TRUE(form.FrameOption.visible());
    click(form.CmdProc);
    // Coming back shows the frame of the tab that is still the selected one.
    for (const int tab : {2, 1}) {
        desktop.choose(form.TBS, tab);
        click(form.CmdNext);
        form.FrameInfo.setVisible(tab == 2);
        form.FrameOption.setVisible(tab == 1);
        click(form.CmdClose);
        EXPECT_EQ(form.TBS.selected(), tab);
        EXPECT_EQ(form.FrameInfo.visible(), tab == 1);
        EXPECT_EQ(form.FrameOption.visible(), tab == 2);
    }
}

TEST_F(Indexer, StartsAfreshWhenItsWindowIsClosedAndShownAgain) {
    addExample();
    FrmIndexer& form = showCreated();
    const auto alive = manager->wizard;
    const auto settings = desktop.map().values;
    const auto preset = checkedBoxes(form);
    for (auto* control : form.controls()) {
        if (auto* const box = dynamic_cast<forms::CheckBox*>(control)) box->setValue(1 - box->value());
    }
    form.txtDefault.setText("Ask Ann.");
    form.txtModule.setText("modHelp");
    desktop.close(form);
    EXPECT_FALSE(form.isLoaded());
    manager->wizard = alive;
    form.ShowIndexer(ide);
    EXPECT_EQ(shownFrame(form), 0);
    EXPECT_FALSE(form.CmdNext.enabled());
    EXPECT_EQ(form.TxtRV.text() + form.Text1(0).text() + form.Text1(1).text() + form.txtModule.text(), "");
    EXPECT_EQ(form.lblControls.caption(), "Total Controls: ");
    // No option is remembered.
    EXPECT_EQ(checkedBoxes(form), preset);
    EXPECT_EQ(form.txtDefault.text(), "No help information is available for this control.\r\n");
    EXPECT_EQ(desktop.map().values, settings);
    click(form.CmdProc);
    click(form.CmdNext);
    EXPECT_FALSE(form.CmdNext.enabled());
}

TEST_F(Indexer, GoesBackToTheFirstStageWhenItIsShownAgain) {
    addExample();
    FrmIndexer& form = showCreated();
    form.ShowIndexer(ide);
    EXPECT_EQ(shownFrame(form), 0);
    EXPECT_EQ(form.Text1(0).text(), pathOf("a.h"));
    EXPECT_EQ(desktop.windows().size(), 1U);
}

TEST_F(Indexer, LetsGoOfTheIdeWhenItsWindowIsClosed) {
    addExample();
    FrmIndexer& form = show();
    click(form.CmdProc);
    const std::weak_ptr<corvelle::test::FakeComponent> designer = ide->project->components.back();
    ide->project->components.clear();
    EXPECT_FALSE(designer.expired());
    desktop.close(form);
    EXPECT_TRUE(designer.expired());
    EXPECT_EQ(ide.use_count(), 1);
}

TEST_F(Indexer, ReachesEveryControlOfAStageInTheOrderOfItsPlaces) {
    FrmIndexer& form = show();
    std::vector<std::string> reached;
    for (auto* control : form.controls()) {
        if (control->kind() == forms::ControlKind::TextBox ||
            control->kind() == forms::ControlKind::CommandButton) {
            if (control->container() == &form.FrameTwo) reached.push_back(control->name());
        }
    }
    EXPECT_THAT(reached, ElementsAre("Text1(0)", "Command2(0)", "Text1(1)", "Command2(1)", "txtModule",
                                     "Text1(3)", "Command2(3)"));
}

} // namespace
} // namespace corvelle::indexer::test
