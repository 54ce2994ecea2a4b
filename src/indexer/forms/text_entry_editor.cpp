#include "indexer/forms/text_entry_editor.h"

#include "base/scope_exit.h"
#include "forms/desktop.h"
#include "forms/form.h"
#include "indexer/entry_edits.h"
#include "indexer/forms/dialog_design.h"
#include "indexer/text_file.h"

namespace corvelle::indexer {

void TextEntryEditor::reset() {
    bFilesPrompted_ = false;
    controls_.CmdDef.setToolTipText("Asign the default message to selected control");
    controls_.CmdDel.setToolTipText("Remove selected control from Indexing");
    clear();
}

void TextEntryEditor::clear() {
    controls_.CboCtl.clear();
    controls_.cboDsr.clear();
    index_.clear();
    firstEntry_ = 0;
    currentRow_ = -1;
    controls_.LblType.setCaption("");
    controls_.LblID.setCaption("");
    showText("", false);
    controls_.CmdDef.setEnabled(false);
    controls_.CmdDel.setEnabled(false);
}

void TextEntryEditor::takeMappings(Mappings mappings) {
    index_ = std::move(mappings.index);
    controls_.cboDsr.addItems(mappings.rows);
}

void TextEntryEditor::chooseFirst() {
    if (controls_.cboDsr.listCount() > 0) controls_.cboDsr.setListIndex(0);
}

void TextEntryEditor::loadTexts(std::string_view path) {
    if (currentRow_ != -1) UpdateInfo(firstEntry_ + currentRow_);
    LoadTextEntries(path, index_);
    if (isChosen()) showEntry(chosenEntry());
}

// The lists

void TextEntryEditor::cboDsr_Click() {
    const int row = controls_.cboDsr.listIndex();
    if (row == -1) return;
    // Into the designer's first control, whichever was on display: as it has always been.
    UpdateInfo(firstEntry_);
    currentRow_ = -1;
    controls_.CboCtl.clear();
    const auto entries = entriesOf(index_, row + 1);
    if (entries.empty()) return;
    firstEntry_ = static_cast<std::int32_t>(entries.front());
    std::vector<std::string> names;
    names.reserve(entries.size());
    for (const auto entry : entries) names.push_back(index_.entries[entry].CtlName);
    controls_.CboCtl.addItems(names);
    controls_.CboCtl.setListIndex(0);
}

void TextEntryEditor::CboCtl_Click() {
    if (currentRow_ != -1) UpdateInfo(firstEntry_ + currentRow_);
    if (!isChosen()) return;
    showEntry(chosenEntry());
    currentRow_ = controls_.CboCtl.listIndex();
}

void ArrowKeysOnly(std::int16_t& keyCode) {
    constexpr std::int16_t left = 37, down = 40;
    if (keyCode < left || keyCode > down) keyCode = 0;
}

void TextEntryEditor::KeyDown(std::int16_t KeyCode) {
    ArrowKeysOnly(KeyCode); // a copy: the list does with the key what it always does
}

bool TextEntryEditor::isChosen() const {
    return controls_.CboCtl.form().isLoaded() && controls_.CboCtl.listIndex() != -1;
}

std::size_t TextEntryEditor::chosenEntry() const {
    return static_cast<std::size_t>(firstEntry_ + controls_.CboCtl.listIndex());
}

void TextEntryEditor::showEntry(std::size_t entry) {
    const auto state = stateOf(index_.entries[entry]);
    controls_.LblType.setCaption(index_.entries[entry].CtlClass);
    showText(shownText(index_, entry), state == EntryState::OwnText);
    controls_.CmdDel.setEnabled(state != EntryState::Deleted);
    controls_.CmdDef.setEnabled(state != EntryState::DefaultText);
    controls_.LblID.setCaption(index_.entries[entry].IDHName);
}

void TextEntryEditor::showText(const std::string& text, bool enabled) {
    showing_ = true;
    const base::ScopeExit shown([this] { showing_ = false; });
    controls_.txtHelp.setEnabled(enabled);
    controls_.txtHelp.setText(text);
}

// Changes

void TextEntryEditor::UpdateInfo(const std::int32_t& id) {
    indexer::UpdateInfo(index_, id, controls_.txtHelp.text());
}

void TextEntryEditor::CmdDef_Click() {
    changeEntry(setDefault);
}

void TextEntryEditor::CmdDel_Click() {
    changeEntry(deleteEntry);
}

void TextEntryEditor::changeEntry(void (*change)(HelpIndex&, std::size_t)) {
    if (!isChosen()) return;
    if (!bFilesPrompted_ && !getPromptRet()) return;
    if (!isChosen()) return; // the window has gone behind the question
    change(index_, chosenEntry());
    CboCtl_Click();
    bFilesPrompted_ = true;
}

bool TextEntryEditor::getPromptRet() {
    auto& desktop = controls_.txtHelp.form().desktop();
    return indexer::getPromptRet(filesToUpdate_(), [&desktop](const Message& message) {
        return desktop.msgBox(message.text, message.flags, message.title);
    });
}

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
