#pragma once

#include <string>
#include <string_view>

// Changes of one topic in the bytes of a text pop-up file that leave every other byte as it is: line ends,
// blanks, topics of other programs, and what stands before the first topic.
namespace corvelle::indexer {

/// The file with that text, in which no line begins with ".topic", for the topic. Of topics of one name it is
/// the last, whose text is the one that readers take. Empty lines below the old text stay. The new text has
/// the line ends of the topic's own line. A topic that the file has not yet gets its place at the end, in a
/// file that is empty behind the default topic.
std::string withTopicText(std::string_view bytes, std::string_view topic, std::string_view text);

/// The file without any topic of that name.
std::string withoutTopic(std::string_view bytes, std::string_view topic);

} // namespace corvelle::indexer
