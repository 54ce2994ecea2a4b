#pragma once

#include "indexer/help_index.h"
#include "indexer/message.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Changes of single entries of an index.
namespace corvelle::indexer {

/// Whether a control shows a text of its own, the default one, or none any more.
enum class EntryState { OwnText, DefaultText, Deleted };

/// The state that the entry's name gives it.
EntryState stateOf(const IndexEntry& entry);

/// What is shown as the entry's text: its own, the default text, or that it is deleted.
const std::string& shownText(const HelpIndex& index, std::size_t entry);

/// Numbers of the entries of a designer, whose number counts from 1.
std::vector<std::size_t> entriesOf(const HelpIndex& index, std::int32_t designer);

/// Stores a text into an entry; nothing happens for entry 0 and beyond the last one.
void UpdateInfo(HelpIndex& index, std::int32_t id, std::string_view text);

/// Puts an entry, which may be deleted, on the default text.
void setDefault(HelpIndex& index, std::size_t entry);

/// Takes an entry out of the index.
void deleteEntry(HelpIndex& index, std::size_t entry);

/// Asks whether the files that such changes concern may be marked for update.
bool getPromptRet(const std::vector<std::string_view>& paths, const MsgBox& msgBox);

} // namespace corvelle::indexer
