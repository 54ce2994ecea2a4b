#include "formatter/forms/frm_formatter.h"

#include <algorithm>

namespace corvelle::formatter {

namespace {

constexpr forms::Size designSize{9600, 6795};
constexpr forms::Size smallest{7800, 6795};

constexpr int margin = 120;
constexpr int lineHeight = 195;
constexpr int buttonWidth = 1575;
constexpr int buttonHeight = 375;
constexpr int boxHeight = 315;
constexpr int labelWidth = 1260;

} // namespace

void FrmFormatter::design() {
    setBorderStyle(forms::BorderStyle::Sizable);
    setKeyPreview(true);
    setSize(designSize);
    setLeastSize(smallest);
    setDefaultButton(CmdFmt);
    setCancelButton(CmdClose);

    Image2.setPicture(forms::Picture("usage"));
    CmdFmt.setCaption("&Format Code");
    CmdAdd.setCaption("&Add to Module");
    CmdAdd.setEnabled(false);
    CmdFile.setCaption("&Select ...");
    CmdBack.setCaption("<< Go &Back");
    CmdClose.setCaption("&Close");
    CmdHelp.setCaption("&Help");

    lblModuleIs.setCaption("Code module:");
    lblModule.setCaption("Unknown [Error]");
    lblModule.setBordered(true);
    lblBackup.setCaption("Backup file:");
    Text1.setLocked(true); // a path comes from the dialog alone

    Frame1.setCaption("Formatting Options");
    ChkNoEmpty.setCaption("Remove all empty lines [Lines which have only space]");
    ChkNoEmpty.setValue(1);
    ChkNoCmnt.setCaption("Remove all Lines which have Only &Comments");
    ChkNoAll.setCaption("Remove all trailing Comments from code lines");
    Lbl6.setCaption("Tab Width:");
    Slider1.setRange({0, 10, 1, 2});
    Slider1.setValue(2);
    lblTab.setCaption("2");

    frmeResult.setCaption("Processing Results");
    for (std::size_t i = 0; i < Image1.size(); ++i) {
        Image1[i].setPicture(forms::Picture("result" + std::to_string(i)));
        Image1[i].setVisible(false);
    }
    Label1.setCaption("Waiting for action");
    Label2.setCaption("       No Results..");
    txtInfo.setLocked(true);
    txtInfo.setBackColor(forms::colours::buttonFace);
    lblInfo.setBordered(true);

    layOut(designSize);
}

void FrmFormatter::Form_Resize() {
    layOut(size());
}

void FrmFormatter::layOut(forms::Size size) {
    const int width = std::max(size.width, smallest.width);
    const int height = std::max(size.height, smallest.height);
    // Of the height to spare each frame's rows get two fifths, the hint gets the rest.
    const int spare = (height - smallest.height) / 5;
    const int optionGap = spare * 2 / 4;
    const int resultGap = spare * 2 / 3;
    const int inner = width - 2 * margin;
    const int right = width - margin - buttonWidth; // of the column of buttons
    const int left = right - 2 * margin;            // width of what stands beside it

    Image2.setBounds({margin, margin, inner, 975});

    int y = 1215;
    CmdFmt.setBounds({right, y, buttonWidth, buttonHeight});
    CmdAdd.setBounds({right, y + 435, buttonWidth, buttonHeight});
    CmdBack.setBounds({right, y + 1110, buttonWidth, buttonHeight});
    CmdClose.setBounds({right, y + 1545, buttonWidth, buttonHeight});
    CmdHelp.setBounds({right, y + 1980, buttonWidth, buttonHeight});

    const int field = margin + labelWidth;
    lblModuleIs.setBounds({margin, y + 60, labelWidth, lineHeight});
    lblModule.setBounds({field, y + 15, left - labelWidth, 285});
    y += 435;
    lblBackup.setBounds({margin, y + 75, labelWidth, lineHeight});
    Text1.setBounds({field, y + 30, left - labelWidth - 1215 - margin, boxHeight});
    CmdFile.setBounds({margin + left - 1215, y, 1215, buttonHeight});

    y += 495;
    const int options = 1815 + 4 * optionGap;
    Frame1.setBounds({margin, y, left, options});
    const int box = left - 2 * margin;
    int row = 285 + optionGap / 2;
    for (forms::CheckBox* option : {&ChkNoEmpty, &ChkNoCmnt, &ChkNoAll}) {
        option->setBounds({margin, row, box, 255});
        row += 330 + optionGap;
    }
    const int slider = std::min(box - 1740, 4200);
    Lbl6.setBounds({margin, row + 120, 960, lineHeight});
    Slider1.setBounds({1140, row, slider, 450});
    lblTab.setBounds({1260 + slider, row + 120, 480, lineHeight});

    y += options + margin;
    const int results = 1395 + 3 * resultGap;
    frmeResult.setBounds({margin, y, left, results});
    for (forms::Image& image : Image1) image.setBounds({margin, (results - 585) / 2, 480, 480});
    const int text = left - 720 - margin;
    Label1.setBounds({720, 285 + resultGap / 2, text, lineHeight});
    Label2.setBounds({720, 540 + resultGap * 3 / 2, text, 2 * lineHeight});
    IndicSurface.setBounds({720, 975 + resultGap * 5 / 2, std::min(text, 4800), 300});

    y += results + margin;
    txtInfo.setBounds({margin, y, inner, boxHeight});
    y += 435;
    lblInfo.setBounds({margin, y, inner, height - margin - y});
}

} // namespace corvelle::formatter
