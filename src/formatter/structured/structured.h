#pragma once

#include "base/text_lines.h"
#include "formatter/structured/fault.h"
#include "formatter/structured/style.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The structured layout: a module laid out by the language's real blocks, in its own style. What it changes
// is the blanks that lines begin with; the rest only where an option says so.
namespace corvelle::formatter::structured {

struct StructuredOptions {
    StyleOptions style;
    bool trim = false;                          ///< blanks at the ends of lines go
    std::optional<std::uint32_t> maxEmptyLines; ///< longer runs of empty lines are folded
    bool removeEmptyLines = false;
    bool removeCommentLines = false;
    bool removeTrailingComments = false;
    bool force = false; ///< procedures with faults are laid out too, as far as it goes
};

/// What becomes of one code line: the style's blanks up to `column`, then the old line's bytes from `begin`
/// to `end`; one that ends before it begins is dropped.
struct NewLine {
    std::uint32_t column = 0, begin = 0, end = 0;

    bool dropped() const { return end < begin; }
    void drop() { *this = {0, 1, 0}; }
    std::size_t size(const Style& style) const {
        const Indentation blanks = style.indentationTo(column);
        return std::size_t{blanks.tabs} + blanks.spaces + (end - begin);
    }
    void appendTo(std::string& text, std::string_view old, const Style& style) const {
        const Indentation blanks = style.indentationTo(column);
        text.append(blanks.tabs, '\t').append(blanks.spaces, ' ').append(old.substr(begin, end - begin));
    }
};

struct StructuredResult {
    std::vector<NewLine> lines; ///< one for each code line
    std::vector<Fault> faults;  ///< CV2xx, in the order of their lines
    std::vector<Fault> notices; ///< CV3xx: lines that stay where they are for want of room
    Style style;
};

/// The bytes that a line may have, its end not counted.
inline constexpr std::size_t longestLine = 1023;

/// Lays out the code lines of a module, which are without their line ends. A second run over the result with
/// the same options changes nothing. Linear in lines, nesting and the lines' lengths.
StructuredResult formatStructured(const base::TextLines& lines, const StructuredOptions& options);

} // namespace corvelle::formatter::structured
