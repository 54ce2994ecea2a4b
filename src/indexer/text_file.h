#pragma once

#include "indexer/help_index.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

// The text pop-up file (.txt) of the help compiler: ".topic  IDH_AAAB" and the topic's text below it, in
// lines that end in CR LF.
namespace corvelle::indexer {

/// What becomes of a default topic that stands last in its file. Who has another source for its text leaves
/// it.
enum class LastDefault { Ignored, Read };

/// Reads the texts of a file into the entries of their topics' names; the others are left as they are. Of a
/// file that cannot be read to its end none is taken, without a word. The index notes a file that is there
/// but is no text that can be read.
void LoadTextEntries(std::string_view path, HelpIndex& index, LastDefault lastDefault = LastDefault::Ignored);

/// The same, of the file's bytes.
void readTextEntries(std::string_view bytes, HelpIndex& index,
                     LastDefault lastDefault = LastDefault::Ignored);

/// The name of the topic that begins with the line, what stands behind its last space: empty if it names
/// none, nothing for any other line.
std::optional<std::string_view> topicOf(std::string_view line);

/// The name of the file's first topic; empty if it has none.
std::string_view firstTopic(std::string_view bytes);

/// Whether a line of the text would begin another topic in the file.
bool holdsTopicLine(std::string_view text);

/// Whether the index could not take the texts of that file, or its own entries, so that the file must not be
/// replaced.
bool isUnread(std::string_view path, const HelpIndex& index);

/// The text file of the index: the default entry and all entries that have a topic of their own.
std::string textFileOf(const HelpIndex& index);

/// Writes the default entry and all entries that have a topic of their own. False on any failure, which an
/// unread file is too; the old file, and so its texts, is as it was then. `beforeReplacing` runs when the new
/// file is complete but for its name.
bool SaveTextFile(std::string_view path, const HelpIndex& index,
                  const std::function<void()>& beforeReplacing = nullptr);

// Changes of one topic in the bytes of a text pop-up file that leave every other byte as it is: line ends,
// blanks, topics of other programs, and what stands before the first topic.

/// The file with that text, in which no line begins with ".topic", for the topic. Of topics of one name it is
/// the last, whose text is the one that readers take. Empty lines below the old text stay. The new text has
/// the line ends of the topic's own line. A topic that the file has not yet gets its place at the end, in a
/// file that is empty behind the default topic.
std::string withTopicText(std::string_view bytes, std::string_view topic, std::string_view text);

/// The file without any topic of that name.
std::string withoutTopic(std::string_view bytes, std::string_view topic);

} // namespace corvelle::indexer
