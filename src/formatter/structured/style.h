#pragma once

#include "base/text_lines.h"
#include "formatter/structured/blocks.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace corvelle::formatter::structured {

/// Where a block's content stands: deeper than its first line, or in its column.
enum class Body : std::uint8_t { Indent, Flush };
/// Where `#If` and its like stand: in column 1, or where a statement would.
enum class Place : std::uint8_t { Margin, Code };
/// What becomes of a comment in column 1 among indented code.
enum class MarginComments : std::uint8_t { Keep, Follow };

/// What one level is.
struct Unit {
    bool tabs = false;
    std::uint32_t count = 4; ///< blanks, or tabs
};

/// The style as far as it is said; the module says the rest.
struct StyleOptions {
    std::optional<bool> tabs;          ///< what the unit is made of
    std::optional<std::uint32_t> unit; ///< how many of them, from 1
    std::optional<Body> procedure, declarations, onError, type, caseBody, withBody, directiveBody;
    std::optional<Place> directive;
    MarginComments marginComments = MarginComments::Keep;
    std::optional<std::uint32_t> tabWidth; ///< columns of a tab, from 1
};

/// How a value was found.
enum class Source : std::uint8_t { Said, Voted, Default };

/// One key's decision: its source, and of the module's votes those for the value and all of them.
struct Decision {
    Source source = Source::Default;
    std::uint32_t votes = 0, of = 0;
};

/// What stands before a line's text.
struct Indentation {
    std::uint32_t tabs, spaces; ///< in this order
};

struct DirectiveStyle {
    Place place;
    Body body;
};

/// The style that a module is laid out in.
struct Style {
    Unit unit;
    Body procedure = Body::Indent, declarations = Body::Indent, onError = Body::Indent;
    Body type = Body::Indent, caseBody = Body::Indent, withBody = Body::Indent;
    Body directiveBody = Body::Flush;
    Place directive = Place::Margin;
    MarginComments marginComments = MarginComments::Keep;
    std::uint32_t tabWidth = 4;
    Decision unitBy, procedureBy, declarationsBy, onErrorBy, typeBy, caseBy, withBy, directiveBodyBy,
        directiveBy;
    /// Of each #If, how it and what it holds stand: as it stands already, where that is one of the two ways.
    std::vector<DirectiveStyle> directives;
    /// Of each line, how many levels deeper it stands for the paired calls around it; empty: none.
    std::vector<std::uint32_t> paired;

    Body bodyOf(Depth depth) const;
    /// The blanks that a line in that column is written with.
    Indentation indentationTo(std::uint32_t column) const;
    /// Columns of one level.
    std::uint32_t columns() const { return unit.tabs ? unit.count * tabWidth : unit.count; }
};

/// The column, from 0, behind the first `length` bytes of a line.
std::uint32_t columnAfter(std::string_view line, std::size_t length, std::uint32_t tabWidth);

/// How many levels deep each line stands. Continuation lines have no level.
std::vector<std::uint32_t> levelsOf(const ModuleBlocks& blocks, const Style& style);

/// Decides every key that is not said by the votes of the module's own lines.
Style decideStyle(const base::TextLines& texts, const ModuleBlocks& blocks, const StyleOptions& options);

} // namespace corvelle::formatter::structured
