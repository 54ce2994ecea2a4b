#include "formatter/misplaced_blocks.h"

#include "base/byte_search.h"
#include "base/text.h"
#include "formatter/structured/blocks.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

namespace corvelle::formatter {

namespace {

using structured::Depth;
using structured::LineInfo;
using structured::LineKind;
using structured::ModuleBlocks;

// The columns in which the code's lines stand once they are formatted.
class Columns {
  public:
    Columns(const ModuleCode& code, const FormattedCode& formatted) : lines_(formatted.lines) {
        allKept_ = static_cast<std::size_t>(lines_.maxIndx()) + 1 == code.lines.size();
        if (allKept_) return;
        indices_.reserve(code.lines.size());
        std::int32_t index = 0;
        for (const bool kept : formatted.kept) indices_.push_back(kept ? index++ : notKept);
    }

    bool isKept(std::uint32_t line) const { return indexOf(line) != notKept; }
    std::int32_t of(std::uint32_t line) const {
        const std::int32_t index = indexOf(line);
        return lines_.spaces(index) + static_cast<std::int32_t>(base::pastBlanks(lines_.text(index), 0));
    }

  private:
    static constexpr std::int32_t notKept = -1;

    std::int32_t indexOf(std::uint32_t line) const {
        return allKept_ ? static_cast<std::int32_t>(line) : indices_[line];
    }

    const base::LineBuffer& lines_;
    bool allKept_;
    std::vector<std::int32_t> indices_; // in the buffer, of each line; empty where they are the same
};

// What of the lines from `first` to `last` the tables of the classic layout have no entry for.
std::string_view unknownTo(const ModuleCode& code, const std::vector<LineInfo>& lines, std::size_t first,
                           std::size_t last) {
    for (std::size_t i = first; i <= last; ++i) {
        if (lines[i].kind == LineKind::Directive) return "#If";
        if (lines[i].kind == LineKind::Numbered) return "line numbers";
        const auto start = code.lines[i].substr(std::min<std::size_t>(lines[i].start, code.lines[i].size()));
        if (base::startsWithIgnoringCase(start, "private property")) return "private property procedures";
        if (lines[i].depth != Depth::Case || !lines[i].closes) continue;
        // A Case whose Select stands under another Case.
        const std::uint32_t select = lines[i].parent;
        const std::uint32_t outer = select == LineInfo::none ? LineInfo::none : lines[select].parent;
        if (outer != LineInfo::none && lines[outer].closes && lines[outer].depth == Depth::Case) {
            return "a Select inside a Case";
        }
    }
    return "what stands before it";
}

// Looks for the first misplaced line as far as the module's blocks are known.
class Search {
  public:
    Search(const ModuleCode& code, const FormattedCode& formatted)
        : code_(code), columns_(code, formatted), closedAtTop_(code.lines.size()) {}

    /// Looks at the lines that have come to be known, up to `end`; whether none of them is misplaced.
    bool goOn(const ModuleBlocks& blocks, std::uint32_t end) {
        const std::vector<LineInfo>& lines = blocks.lines;
        for (std::uint32_t i = next_; i < end; ++i) {
            const std::uint32_t opener = lines[i].parent;
            if (lines[i].closes && lines[i].depth == Depth::Same && opener != LineInfo::none) {
                closedAtTop_[opener] = isTop(blocks, lines[opener]);
            }
        }
        for (; next_ < end && !found_; ++next_) look(blocks, next_);
        return !found_;
    }

    std::optional<Finding> takeFound() { return std::move(found_); }

  private:
    static bool isTop(const ModuleBlocks& blocks, const LineInfo& line) {
        return line.parent == LineInfo::none && blocks.around(line).directive == LineInfo::none &&
               line.kind == LineKind::Code;
    }

    bool counts(const std::vector<LineInfo>& lines, std::uint32_t i) const {
        const bool is = lines[i].kind == LineKind::Code || lines[i].kind == LineKind::Directive;
        return is && !lines[i].fixed() && columns_.isKept(i);
    }

    void look(const ModuleBlocks& blocks, std::uint32_t i) {
        const std::vector<LineInfo>& lines = blocks.lines;
        const LineInfo& line = lines[i];
        const bool divides = line.closes || line.kind == LineKind::Directive;
        if (!divides && !closedAtTop_[i]) return;
        if (!counts(lines, i)) return;
        const std::uint32_t opener = line.parent;
        const std::int32_t column = columns_.of(i);
        bool misplaced = closedAtTop_[i] && column != 0;
        if (divides && opener != LineInfo::none && counts(lines, opener) &&
            blocks.around(line).directive == blocks.around(lines[opener]).directive) {
            if (line.depth == Depth::Same && line.kind == lines[opener].kind) {
                misplaced = misplaced || column != columns_.of(opener);
            } else if (line.closes && line.depth == Depth::Case) {
                misplaced = misplaced || column != cases_.emplace(opener, column).first->second;
            }
        }
        if (misplaced) {
            std::string text =
                "CV301 from here on lines do not stand by their blocks: classic does not know ";
            text += unknownTo(code_, lines, regionBegins_, i);
            found_ = Finding{i, text + "; --layout structured does", Finding::noLine};
        }
        if (line.closes && opener != LineInfo::none && closedAtTop_[opener]) regionBegins_ = i + 1;
    }

    const ModuleCode& code_;
    Columns columns_;
    std::vector<bool> closedAtTop_;
    std::unordered_map<std::uint32_t, std::int32_t> cases_; // by the line of their Select
    std::uint32_t next_ = 0;
    std::size_t regionBegins_ = 0;
    std::optional<Finding> found_;
};

} // namespace

std::optional<Finding> findMisplacedBlock(const ModuleCode& code, const FormattedCode& formatted) {
    Search search(code, formatted);
    // What follows the first such line need not be read.
    structured::readBlocks(
        code.lines, [&](const ModuleBlocks& blocks, std::uint32_t end) { return search.goOn(blocks, end); });
    return search.takeFound();
}

} // namespace corvelle::formatter
