#pragma once

#include "base/byte_search.h"
#include "ide/workspace/line_text.h"

#include <string_view>

namespace corvelle::workspace {

/// A line that the IDE hides: `Attribute Member.VB_Description = "text"`, `Attribute VB_Name = "Module1"`.
struct AttributeLine {
    bool found = false;
    std::string_view member; ///< the first of several parts of the name, without brackets; else empty
    std::string_view name;   ///< the last part, without brackets
    std::string_view value;  ///< what follows the equals sign, blanks included
};

/// Reads a line without its line end; `found` is false for a line that is shown.
AttributeLine readAttributeLine(std::string_view line);

/// Whether the line's first character behind blanks lets it be one that the IDE hides. Rules out nearly every
/// line at once.
inline bool mayBeAttributeLine(std::string_view line) {
    const std::size_t blanks = base::pastBlanks(line, 0);
    return blanks < line.size() && (line[blanks] == 'A' || line[blanks] == 'a');
}

} // namespace corvelle::workspace
