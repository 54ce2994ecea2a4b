#include "indexer/entry_edits.h"

#include "indexer/paths.h"
#include "indexer/text_file.h"

#include <string>

namespace corvelle::indexer {

EntryState stateOf(const IndexEntry& entry) {
    if (entry.IDHName.empty()) return EntryState::Deleted;
    return entry.IDHName == defaultIDH ? EntryState::DefaultText : EntryState::OwnText;
}

const std::string& shownText(const HelpIndex& index, std::size_t entry) {
    static const std::string deleted = "This control is deleted from Index..";
    switch (stateOf(index.entries[entry])) {
    case EntryState::OwnText:
        return index.entries[entry].HelpText;
    case EntryState::DefaultText:
        return index.entries.front().HelpText;
    case EntryState::Deleted:
        break;
    }
    return deleted;
}

std::vector<std::size_t> entriesOf(const HelpIndex& index, std::int32_t designer) {
    std::vector<std::size_t> result;
    for (std::size_t i = 1; i <= index.count(); ++i) {
        if (index.entries[i].DsrIndex == designer) result.push_back(i);
    }
    return result;
}

void UpdateInfo(HelpIndex& index, std::int32_t id, std::string_view text) {
    if (id <= 0 || static_cast<std::size_t>(id) > index.count()) return;
    index.entries[static_cast<std::size_t>(id)].HelpText = text;
}

void setDefault(HelpIndex& index, std::size_t entry) {
    index.entries[entry].IDHName = index.entries.front().IDHName;
    index.entries[entry].HelpText = index.entries.front().HelpText;
}

void deleteEntry(HelpIndex& index, std::size_t entry) {
    index.entries[entry].HelpText.clear();
    index.entries[entry].IDHName.clear();
}

bool getPromptRet(const std::vector<std::string_view>& paths, const MsgBox& msgBox) {
    return ConfirmUpdate("This action requires following files to be updated :", paths, msgBox);
}

Message textFileNeeded() {
    return {"You have to create new Text file for Text entries..", forms::box::information};
}

PreparedEntries prepareTextEntries(std::string_view headerPath, std::string_view configurationPath,
                                   std::string_view textPath) {
    PreparedEntries result;
    if (!fileExists(headerPath) || !fileExists(configurationPath)) {
        result.message = {
            "Either header  file or configuration file is invalid.You need to re generate them ",
            forms::box::critical};
        return result;
    }
    result.mappings = LoadMappings(configurationPath);
    if (textPath.empty()) {
        result.message = textFileNeeded();
    } else {
        LoadTextEntries(textPath, result.mappings->index);
    }
    return result;
}

void setDefaultEntry(HelpIndex& index, std::string_view defaultText) {
    index.entries.front().HelpText = defaultText;
    index.entries.front().IDHName = defaultIDH;
}

std::string createdTextFile(std::string_view textPath) {
    return std::string("Created Text file: ").append(textPath);
}

SavedEntries saveTextEntries(std::string_view textPath, std::string_view defaultText, HelpIndex& index) {
    setDefaultEntry(index, defaultText);
    SavedEntries result;
    result.saved = SaveTextFile(textPath, index);
    if (result.saved) {
        result.message = {"File was saved successfully.", forms::box::information};
        result.reportLine = createdTextFile(textPath);
    } else {
        result.message = {"Errors occured while saving file. ", forms::box::exclamation};
    }
    return result;
}

bool ConfirmUpdate(std::string_view heading, const std::vector<std::string_view>& paths,
                   const MsgBox& msgBox) {
    std::string text(heading);
    for (const auto path : paths) text.append("\r").append(path);
    text += "\rDo you wish to continue ?";
    const int flags = forms::box::yesNo | forms::box::question;
    return msgBox({text, flags, "Update files..?"}) == forms::answer::yes;
}

} // namespace corvelle::indexer
