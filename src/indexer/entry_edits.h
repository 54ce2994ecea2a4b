#pragma once

#include "indexer/help_index.h"
#include "indexer/index_files.h"
#include "indexer/message.h"

#include <cstddef>
#include <cstdint>
#include <optional>
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

// The text entries of an index that was just created: loading them for editing and saving them.

/// The default topic's text before anybody changes it.
inline constexpr std::string_view initialDefaultText =
    "No help information is available for this control.\r\n";

/// What the user is told of editing them.
inline constexpr const char* textEntriesInfo =
    "This is the last functional stage. In this stage you can create the text entries for your controls which "
    "will be displayed as text popups for controls. When you add your entries they are updated in a internal "
    "buffer you must not press &Save button after each entry. Only when you have finished all the desired "
    "entries  you must save the entries to the selected file, and you have done..";

/// What is said when no text file has been named yet.
Message textFileNeeded();

/// What there is for editing.
struct PreparedEntries {
    std::optional<Mappings> mappings; ///< none: the index must be created again
    std::optional<Message> message;   ///< what is shown meanwhile
};

/// Reads the mappings of the configuration file and, where its path is not empty, the entries of the text
/// file.
PreparedEntries prepareTextEntries(std::string_view headerPath, std::string_view configurationPath,
                                   std::string_view textPath);

/// How a saving ended.
struct SavedEntries {
    bool saved = false;
    Message message;
    std::string reportLine; ///< what the report gets; empty after a failure
};

/// Gives the default entry its text and its name.
void setDefaultEntry(HelpIndex& index, std::string_view defaultText);

/// What the report gets of a text file that was saved.
std::string createdTextFile(std::string_view textPath);

/// Gives the default entry its text and saves the text file.
SavedEntries saveTextEntries(std::string_view textPath, std::string_view defaultText, HelpIndex& index);

/// Asks whether the files may be updated: the heading, the paths in order and the question, a line each.
/// Whether the answer is Yes.
bool ConfirmUpdate(std::string_view heading, const std::vector<std::string_view>& paths,
                   const MsgBox& msgBox);

} // namespace corvelle::indexer
