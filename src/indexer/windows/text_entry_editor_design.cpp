#include "indexer/windows/dialog_design.h"
#include "indexer/windows/text_entry_editor.h"

namespace corvelle::indexer {

using namespace dialog;

void TextEntryEditor::design(const Labels& labels, int top, int width, int bottom) const {
    const int half = (width - margin) / 2;
    const int second = margin + half + margin;
    constexpr int labelWidth = 1260;
    constexpr int shownHeight = 285;
    dialog::design(labels.designer, "Designer:", {margin, top, half, lineHeight});
    controls_.cboDsr.setBounds({margin, top + below, half, boxHeight});
    dialog::design(labels.control, "Control:", {second, top, half, lineHeight});
    controls_.CboCtl.setBounds({second, top + below, half, boxHeight});

    const int boxTop = top + 660;
    dialog::design(labels.type, "Control type:", {margin, boxTop + 45, labelWidth, lineHeight});
    controls_.LblType.setBordered(true);
    controls_.LblType.setBounds({margin + labelWidth, boxTop, half - labelWidth, shownHeight});
    dialog::design(labels.number, "HelpContext ID:", {second, boxTop + 45, labelWidth, lineHeight});
    controls_.LblID.setBordered(true);
    controls_.LblID.setBounds({second + labelWidth, boxTop, half - labelWidth, shownHeight});

    const int textTop = top + 1110;
    const int buttonsTop = bottom - margin - buttonHeight;
    dialog::design(labels.text, "Text Pop Up Entry [The text which appears as help):",
                   {margin, textTop, width, lineHeight});
    controls_.txtHelp.setMultiLine(true);
    controls_.txtHelp.setBounds({margin, textTop + below, width, buttonsTop - margin - textTop - below});
    dialog::design(controls_.CmdDef, "Set &Default", margin + width - 2 * buttonWidth - margin, buttonsTop);
    dialog::design(controls_.CmdDel, "Delete", margin + width - buttonWidth, buttonsTop);
}

} // namespace corvelle::indexer
