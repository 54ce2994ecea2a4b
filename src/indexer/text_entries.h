#pragma once

#include "indexer/index_files.h"
#include "indexer/message.h"

#include <optional>
#include <string>
#include <string_view>

// The text entries of an index that was just created: loading them for editing and saving them.
namespace corvelle::indexer {

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

} // namespace corvelle::indexer
