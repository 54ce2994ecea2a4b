#include "indexer/entry_edits.h"

#include "indexer/confirm_update.h"

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

} // namespace corvelle::indexer
