#pragma once

#include "base/text.h"

#include <algorithm>
#include <string_view>

namespace corvelle::indexer {

/// Whether the text can be a word of an index's lines.
inline bool isMadeOfNameCharacters(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), base::isNameCharacter);
}

/// Whether it is a name of the language.
inline bool isName(std::string_view text) {
    return isMadeOfNameCharacters(text) && text[0] != '_' && (text[0] < '0' || text[0] > '9');
}

/// Whether a control of that name and class has a place in an index. Of a class only that it cannot be taken
/// for something else: libraries may name theirs as they like.
inline bool isControlOfNames(std::string_view name, std::string_view className) {
    return isName(name) && isMadeOfNameCharacters(className);
}

} // namespace corvelle::indexer
