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
        for (const char* const word : {"private property", "friend property"}) {
            if (base::startsWithIgnoringCase(start, word)) return "private property procedures";
        }
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

} // namespace

std::optional<Finding> findMisplacedBlock(const ModuleCode& code, const FormattedCode& formatted) {
    const auto blocks = structured::readBlocks(code.lines);
    const auto& lines = blocks.lines;
    const Columns columns(code, formatted);
    const auto counts = [&](std::uint32_t i) {
        const bool is = lines[i].kind == LineKind::Code || lines[i].kind == LineKind::Directive;
        return is && !lines[i].fixed() && columns.isKept(i);
    };
    const auto isTop = [&](std::uint32_t i) {
        return lines[i].parent == LineInfo::none && lines[i].directive == LineInfo::none &&
               lines[i].kind == LineKind::Code;
    };
    std::vector<bool> closedAtTop(lines.size());
    for (std::uint32_t i = 0; i < lines.size(); ++i) {
        const std::uint32_t opener = lines[i].parent;
        if (lines[i].closes && lines[i].depth == Depth::Same && opener != LineInfo::none) {
            closedAtTop[opener] = isTop(opener);
        }
    }
    std::unordered_map<std::uint32_t, std::int32_t> cases; // by the line of their Select
    std::size_t regionBegins = 0;
    for (std::uint32_t i = 0; i < lines.size(); ++i) {
        const bool divides = lines[i].closes || lines[i].kind == LineKind::Directive;
        if (!divides && !closedAtTop[i]) continue;
        if (!counts(i)) continue;
        const std::uint32_t opener = lines[i].parent;
        const std::int32_t column = columns.of(i);
        bool misplaced = closedAtTop[i] && column != 0;
        if (divides && opener != LineInfo::none && counts(opener) &&
            lines[i].directive == lines[opener].directive) {
            if (lines[i].depth == Depth::Same && lines[i].kind == lines[opener].kind) {
                misplaced = misplaced || column != columns.of(opener);
            } else if (lines[i].closes && lines[i].depth == Depth::Case) {
                misplaced = misplaced || column != cases.emplace(opener, column).first->second;
            }
        }
        if (misplaced) {
            std::string text =
                "CV301 from here on lines do not stand by their blocks: classic does not know ";
            text += unknownTo(code, lines, regionBegins, i);
            return Finding{i, text + "; --layout structured does", Finding::noLine};
        }
        if (lines[i].closes && opener != LineInfo::none && closedAtTop[opener]) regionBegins = i + 1;
    }
    return std::nullopt;
}

} // namespace corvelle::formatter
