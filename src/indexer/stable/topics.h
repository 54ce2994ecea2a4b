#pragma once

#include "indexer/stable/numbering.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// The topics of a text pop-up file as those of an index whose controls come and go.
namespace corvelle::indexer::stable {

/// How the topics of a text file go with the names of an index.
struct TopicsOf {
    std::vector<std::string> missing;  ///< names of the index without a text, in its order
    bool allAreMissing = false;        ///< no name has one
    std::vector<std::string> leftOver; ///< topics that no control has any more, in the file's order
    std::vector<std::string> twice;    ///< topics that stand there more than once
};
/// `names` are those of the controls that have a topic of their own; `waiting` others whose texts may stay.
TopicsOf compareTopics(std::string_view text, const std::vector<std::string>& names,
                       const std::vector<std::string>& waiting = {});

/// The names of the controls that have a topic of their own, in the order of the index.
std::vector<std::string> ownNames(const Numbering& numbering);

/// The text file with a topic for each of the names, and with that default text, if one is given. Whatever
/// the file has keeps its bytes; an empty one gets the initial default text.
std::string withTopics(std::string_view text, const std::vector<std::string>& names,
                       const std::optional<std::string>& defaultText);

/// Every topic's text, by its name: the lines with LF between them, without the empty ones at their end. Of
/// topics of one name the last one's.
std::unordered_map<std::string, std::string> textsOf(std::string_view text);

/// The file with those texts, in which no line begins a topic, for the topics of those names.
std::string withTexts(std::string_view text, const std::map<std::string, std::string>& texts);

/// The file without the topics of these names.
std::string withoutTopics(std::string_view text, const std::vector<std::string>& names);

} // namespace corvelle::indexer::stable
