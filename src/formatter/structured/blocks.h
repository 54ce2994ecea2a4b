#pragma once

#include "base/text_lines.h"
#include "formatter/structured/fault.h"
#include "formatter/structured/statements.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace corvelle::formatter::structured {

/// Which of the style's keys decides how deep a line stands under the line that holds it.
enum class Depth : std::uint8_t {
    Same,        ///< in the same column
    Block,       ///< one unit deeper, always
    Procedure,   ///< the body of a procedure
    Declaration, ///< in it Dim, Static and Const
    OnError,     ///< in it On Error
    Type,        ///< the members of a Type or an Enum
    Case,        ///< a Case under its Select
    With,        ///< the body of a With
};
inline constexpr std::size_t depths = 8; ///< how many there are

/// What the reader and the blocks tell of a physical line.
struct LineInfo {
    static constexpr std::uint32_t none = 0xFFFFFFFF;

    std::uint32_t parent = none;  ///< the line that this one stands under; none: column 1
    std::uint32_t around = 0;     ///< index of the #Ifs around it
    std::uint32_t comment = none; ///< where its own comment begins
    std::uint32_t start = 0;      ///< how many blanks the line begins with
    LineKind kind = LineKind::Empty;
    Depth depth = Depth::Same;
    bool joinsNext : 1; ///< the next line belongs to it
    bool keepEnd : 1;   ///< nothing may be taken from its end: a literal is left open, say
    bool closes : 1;    ///< its first statement ends or divides a block
    bool held : 1;      ///< stays as it stands: a fault's procedure
    bool off : 1;       ///< stays as it stands: between 'corvelle:off and 'corvelle:on

    LineInfo() : joinsNext(false), keepEnd(false), closes(false), held(false), off(false) {}

    bool fixed() const { return held || off; }
    /// Whether the line begins a statement or a directive.
    bool isCode() const {
        return kind == LineKind::Code || kind == LineKind::Numbered || kind == LineKind::Directive;
    }
};

/// The #Ifs that a line stands in. Lines that follow one another share them.
struct Around {
    std::uint32_t directive = LineInfo::none; ///< index of the innermost one
    std::uint32_t within = LineInfo::none;    ///< of the innermost one in which the line's parent stands too
};

/// A block and its first direct statement, both at the beginning of their lines, without a label.
struct Sample {
    std::uint32_t opener, child;
    Depth depth;
};

/// An #If of the module. Their order is that of their lines.
struct DirectiveBlock {
    std::uint32_t line;
    std::uint32_t outer = LineInfo::none; ///< the #If around it
    std::uint32_t child = LineInfo::none; ///< the first statement directly in it
    /// A procedure goes on behind it that one of its branches begins or ends, or it begins with a closer:
    /// what it holds stands as if it were not there.
    bool flush = false;
};

/// Everything that the layout needs to know of a module, but the style.
struct ModuleBlocks {
    std::vector<LineInfo> lines;
    std::vector<Sample> samples;
    std::vector<DirectiveBlock> directives;
    std::vector<Around> arounds{{}}; ///< the first one: none
    std::vector<Fault> faults;       ///< in the order in which they were found

    const Around& around(const LineInfo& line) const { return arounds[line.around]; }
    /// Of an #If, #ElseIf, #Else or #End If the index of their #If, of other lines none.
    std::uint32_t ownDirective(std::uint32_t line) const;
};

/// Called when all is known of the lines before `end`, which what follows them cannot change any more; with
/// the next line a procedure, say, may begin. False ends the reading.
using LinesRead = std::function<bool(const ModuleBlocks& blocks, std::uint32_t end)>;

/// Reads a module's code lines and matches its blocks. Linear in lines, nesting and line length.
ModuleBlocks readBlocks(const base::TextLines& lines, const LinesRead& linesRead = {});

} // namespace corvelle::formatter::structured
