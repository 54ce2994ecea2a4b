#include "indexer/windows/dialog_design.h"
#include "indexer/windows/frm_txt.h"

// How the editor for an existing index looks.
namespace corvelle::indexer {

using namespace dialog;

namespace {

constexpr int left = infoWidth + 2 * edge + margin;
constexpr int width = 7005;
constexpr int infoTop = 420;
constexpr int frameTop = 2700;
constexpr int frameHeight = 3690;
constexpr int bottom = frameTop + frameHeight;
constexpr forms::Size designSize{left + width + margin, bottom + 2 * margin + buttonHeight};

} // namespace

void FrmTxt::design() {
    setCaption("Help ID Indexer: Create /Modify Text Entries");
    setSize(designSize);

    dialog::design(lblSubtitle, "Add  pop up text entries for your controls",
                   {margin, margin, designSize.width - 2 * margin, 240});
    auto bold = lblSubtitle.font();
    bold.bold = true;
    lblSubtitle.setFont(bold);
    dialog::designInfo(lblInfo, infoTop, bottom - infoTop);

    dialog::design(lblProject, "Select Indexer Project File:", {left, infoTop, width, lineHeight});
    Text1.setLocked(true); // a path comes from the dialog alone
    Text1.setBounds({left, infoTop + below, width - browseWidth - 60, boxHeight});
    Command2.setCaption("....");
    Command2.setBounds({left + width - browseWidth, infoTop + below, browseWidth, boxHeight});
    constexpr int projectTop = infoTop + below + boxHeight + margin;
    txtPrj.setMultiLine(true);
    txtPrj.setLocked(true);
    txtPrj.setText("No Information");
    txtPrj.setBounds({left, projectTop, width, frameTop - projectTop - margin});

    Frame1.setCaption("Text Pop Up Entries");
    Frame1.setBounds({left, frameTop, width, frameHeight});
    editor_.design({lblDesigner, lblControl, lblTypeIs, lblIDIs, lblHelp}, 300, width - 2 * margin,
                   frameHeight);

    constexpr int buttonsTop = bottom + margin;
    constexpr int right = left + width - buttonWidth;
    constexpr int indicatorWidth = 1200;
    Lblstat.setCaption(" Status: Not ready file path(s) empty");
    Lblstat.setBordered(true);
    Lblstat.setBounds({edge, buttonsTop + 45,
                       right - 2 * (buttonWidth + margin) - edge + buttonWidth - indicatorWidth - margin,
                       285});
    IndicSurface.setBounds(
        {right - buttonWidth - margin - indicatorWidth - margin, buttonsTop + 45, indicatorWidth, 285});
    dialog::design(CmdProc, "&Save", right - buttonWidth - margin, buttonsTop);
    CmdProc.setEnabled(false);
    dialog::design(CmdClose, "&Close", right, buttonsTop);
}

} // namespace corvelle::indexer
