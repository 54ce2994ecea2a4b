#include "forms/desktop.h"
#include "indexer/entry_edits.h"
#include "indexer/forms/dialog_design.h"
#include "indexer/forms/frm_indexer.h"

#include <array>
#include <utility>

// How the wizard looks: the design of its four frames, and what each stage shows and says.
namespace corvelle::indexer {

using namespace dialog;

namespace {

constexpr int frameLeft = infoWidth + 90;
constexpr int frameWidth = 7005;
constexpr int frameHeight = 5580;
constexpr int inner = frameWidth - 2 * margin;

constexpr forms::Size designSize{frameLeft + frameWidth + edge, edge + frameHeight + 600};

struct StageTexts {
    const char* info;
    const char* caption;
};

constexpr std::array<StageTexts, 4> stageTexts{{
    {" This 'Add In' will help you semi automate the process of creating the index file for Help Context ID for "
     "all the controls. You may set some option to cotrol the behaviour of processings. The Help Context ID can "
     "also be assigned automatically. After you have created the index file you can also create the Text "
     "Messages for the controls through this Add-In.",
     "Help Context ID Indexer :Stage 1 of 4"},
    {"In this stage you are ready to create  Index file which you will add to the help projec. A configuration "
     "file will be also created to store the mappings. Tou must supply the two file paths in order to create "
     "them. After you have created the files you can proceed to next and last stage to write the help topics.",
     "Help Context ID Indexer :Stage 2 of 4"},
    {textEntriesInfo, "Help Context ID Indexer :Stage 3 of 4"},
    // The last caption counts as the first one does.
    {"This is the final stage of this Add-In. Here you are presented with the processing results. Optionally you "
     "can save the processings as a Project file (a plain file to list the relevant informations for this "
     "Add-In and don't think a VB Project). If saved you can use it for latter reference for this Add-In.",
     "Help Context ID Indexer :Stage 1 of 4"},
}};

void designField(PathField& field, const char* caption, int top) {
    field.label.setCaption(caption);
    field.label.setBounds({margin, top, inner, lineHeight});
    field.path.setBounds({margin, top + below, inner - browseWidth - 60, boxHeight});
    field.browse.setCaption("....");
    field.browse.setBounds({margin + inner - browseWidth, top + below, browseWidth, boxHeight});
}

} // namespace

void FrmIndexer::design() {
    setSize(designSize);
    dialog::designInfo(lblInfo, edge, frameHeight);

    FrameOne.setCaption("Project Analysis");
    FrameTwo.setCaption("Index Files");
    FrameThree.setCaption("Text Pop Up Entries");
    FrameFour.setCaption("&Finished Indexing");
    for (forms::Frame* frame : {&FrameOne, &FrameTwo, &FrameThree, &FrameFour}) {
        frame->setBounds({frameLeft, edge, frameWidth, frameHeight});
        frame->setVisible(frame == &FrameOne);
    }
    designInfo();
    designOptions();
    designStageTwo();
    designStageThree();
    designStageFour();

    const int top = edge + frameHeight + margin;
    const int right = frameLeft + frameWidth - buttonWidth;
    dialog::design(CmdProc, "&Analyse", right - 2 * (buttonWidth + margin), top);
    dialog::design(CmdNext, "&Next", right - buttonWidth - margin, top);
    dialog::design(CmdClose, "&Close", right, top);
}

namespace {

// FrameInfo and FrameOption lie on the tab strip, one in the other's place.
constexpr forms::Bounds tabs{margin, 255, inner, frameHeight - 255 - margin};
constexpr forms::Bounds page{tabs.left + margin, tabs.top + 435, tabs.width - 2 * margin,
                             tabs.height - 435 - margin};

} // namespace

void FrmIndexer::designInfo() {
    TBS.setTabs({"&Informations", "&Options"});
    TBS.setBounds(tabs);
    FrameInfo.setCaption("&Info");
    FrameInfo.setBounds(page);
    FrameOption.setCaption("&Options");
    FrameOption.setBounds(page);
    FrameOption.setVisible(false);

    const std::array<std::pair<forms::Label*, const char*>, 10> labels{
        {{&lblProj, "Project Name: "},
         {&lblPrjStat, "Project has been saved: "},
         {&LblForms, "VB Forms: "},
         {&lblMDI, "MDI form: "},
         {&lblActive, "ActiveX Controls: "},
         {&LblProp, "Property pages: "},
         {&LblDOB, "ActiveX Documents: "},
         {&LblDsr, "Designers: "},
         {&lblMsFrm, "Ms Forms: "},
         {&lblControls, "Total Controls: "}}};
    int top = 375;
    for (const auto& [label, caption] : labels) {
        dialog::design(*label, caption, {2 * margin, top, page.width - 4 * margin, lineHeight});
        top += 420;
    }
}

void FrmIndexer::designOptions() {
    constexpr int width = page.width - 2 * margin;
    constexpr int column = width / 3;
    constexpr int row = 270;
    constexpr int boxLine = 240;
    const auto place = [](const std::array<std::pair<forms::CheckBox*, const char*>, 6>& boxes, int top) {
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            const auto& [box, caption] = boxes.at(i);
            const int x = static_cast<int>(i % 3), y = static_cast<int>(i / 3);
            box->setCaption(caption);
            box->setBounds({2 * margin + x * column, top + y * row, column - margin, boxLine});
        }
    };
    int top = 285;
    dialog::design(lblSelect, "Select Components for which to generate Help ID",
                   {margin, top, width, lineHeight});
    place({{{&ChkFrm, "&Forms"},
            {&ChkMDI, "&MDI Form"},
            {&ChkDsr, "&Designer"},
            {&ChkDOB, "&ActiveX Docs"},
            {&ChkPG, "Property Pages"},
            {&ChkActiveXCtl, "ActiveX Controls"}}},
          top + row);
    top += 930;
    dialog::design(lblExclude, "Exclude following controls from Indexing", {margin, top, width, lineHeight});
    place({{{&ChkExclLbl, "&Labels"},
            {&ChKExcFrame, "&Frames"},
            {&ChkExcShape, "&Shapes"},
            {&ChkExcMenu, "&Menus"},
            {&ChkExcLine, "Lines"},
            {&ChkExcToolbar, "&ToolBars"}}},
          top + row);
    top += 930;
    ChkIDMap.setCaption("Add a &Module to project listing all the ID Mappings");
    ChkIDMap.setBounds({margin, top, width, boxLine});
    ChkAutoLoad.setCaption("Create Procedures in each Designer to load  each");
    ChkAutoLoad.setBounds({margin, top + 300, width, boxLine});
    dialog::design(lblAutoLoad, "control's Help Context ID on loading",
                   {margin + 270, top + 300 + boxLine, width - 270, lineHeight});
    top += 855;
    FrameDefault.setCaption("Default Text Pop UP ( for controls which have no topic)");
    FrameDefault.setBounds({margin, top, width, page.height - top - margin});
    txtDefault.setMultiLine(true);
    txtDefault.setText(std::string(initialDefaultText));
    txtDefault.setBounds({margin, 270, width - 2 * margin, page.height - top - margin - 270 - margin});
}

void FrmIndexer::designStageTwo() {
    designField(headerField, "Select New Header File Name: (You need it for help file)", 360);
    designField(configurationField, "Select Configuration File: (Used internally for this Add-In)", 1140);
    dialog::design(lblModuleName, "Enter Module Name ( No Spcae):", {margin, 1920, inner, lineHeight});
    txtModule.setBounds({margin, 1920 + below, 3000, boxHeight});
    designField(moduleField, "Select Module File: (You will need it in your project)", 2700);

    dialog::design(LblProc, "", {margin, 3720, inner, lineHeight});
    dialog::design(LblProcModule, "No module under process..", {margin, 4020, inner, lineHeight});
    IndicSurface.setBounds({margin, 4380, inner, 300});
}

void FrmIndexer::designStageThree() {
    designField(textField, "Select New Text File Name: (You need it for help file)", 300);
    texts_.design({lblDsr, lblCtl, lblTypeIs, lblIDIs, lblHelp}, 1050, inner, frameHeight);
}

void FrmIndexer::designStageFour() {
    constexpr int button = frameHeight - margin - buttonHeight;
    dialog::design(lblReview, "Please review the text below", {margin, 300, inner, lineHeight});
    TxtRV.setMultiLine(true);
    TxtRV.setLocked(true); // lines are only appended
    TxtRV.setBounds({margin, 300 + below, inner, button - margin - 300 - below});
    dialog::design(cmdRpt, "Save &Report", margin + inner - buttonWidth, button);
}

void FrmIndexer::showStage(Stage stage) {
    const std::array<forms::Frame*, 4> frames{&FrameOne, &FrameTwo, &FrameThree, &FrameFour};
    const auto number = static_cast<std::size_t>(stage);
    forms::Frame& own = *frames.at(number);
    for (forms::Frame* frame : frames) {
        if (frame != &own) frame->setVisible(false);
    }
    auto bounds = own.bounds();
    bounds.left = lblInfo.bounds().width + 90;
    bounds.top = 45;
    own.setBounds(bounds);
    own.setVisible(true);
    lblInfo.setCaption(stageTexts.at(number).info);
    setCaption(stageTexts.at(number).caption);

    const auto filled = [this](std::size_t index) { return !Text1(index).text().empty(); };
    switch (stage) {
    case Stage::New:
        CmdProc.setCaption("&Analyse");
        CmdProc.setEnabled(true);
        CmdNext.setCaption("&Next");
        CmdClose.setCaption("&Close");
        break;
    case Stage::Index:
        CmdProc.setCaption("&Create");
        CmdProc.setEnabled(filled(0) && filled(1));
        CmdNext.setCaption("&Next");
        CmdClose.setCaption("&Back");
        break;
    case Stage::TxtPopup:
        CmdProc.setCaption("&Save");
        CmdProc.setEnabled(filled(2));
        CmdClose.setCaption("&Back");
        break;
    case Stage::Report:
        CmdClose.setCaption("&Close");
        break;
    }
    session_->stage = stage;
    enableNext();
}

} // namespace corvelle::indexer
