#include "formatter/structured/layout.h"

#include <algorithm>
#include <optional>

namespace corvelle::formatter::structured {
namespace {

constexpr std::uint32_t none = LineInfo::none;

class Layout {
  public:
    Layout(const base::TextLines& texts, const ModuleBlocks& blocks, const Style& style,
           bool removeTrailingComments, std::vector<NewLine>& result, std::vector<Fault>& notices)
        : texts_(texts), blocks_(blocks), lines_(blocks.lines), style_(style),
          removeTrailingComments_(removeTrailingComments), result_(result), notices_(notices),
          levels_(levelsOf(blocks, style)) {}

    void run() {
        const auto count = static_cast<std::uint32_t>(lines_.size());
        for (std::uint32_t i = 0; i < count; ++i) {
            if (result_[i].dropped()) continue;
            const LineInfo& line = lines_[i];
            if (line.isCode()) {
                const std::uint32_t column = columnOf(i);
                move(i, i + 1, column);
                settleRuns(i);
                above_ = lastPhysical_ = i;
                aboveTrailing_ = true;
            } else if (line.kind == LineKind::Continuation) {
                lastPhysical_ = i;
            } else if (line.kind == LineKind::Comment) {
                if (!runs_.empty() && runs_.back().open && !line.fixed()) {
                    runs_.back().end = i + 1;
                } else {
                    const bool touches = aboveTrailing_ && runs_.empty() && !line.fixed();
                    runs_.push_back({i, i + 1, touches ? lastPhysical_ : none, !line.fixed()});
                }
            } else { // an empty line
                aboveTrailing_ = false;
                if (!runs_.empty()) runs_.back().open = false;
            }
        }
        settleRuns(none);
    }

  private:
    // Comments alone on their lines, one below the other.
    struct Run {
        std::uint32_t begin, end;
        std::uint32_t touches; // the physical line of code right above
        bool open;             // the next comment belongs to it
    };

    std::uint32_t oldColumn(std::uint32_t line) const {
        return columnAfter(texts_[line], lines_[line].start, style_.tabWidth);
    }
    std::uint32_t newColumn(std::uint32_t line) const {
        const NewLine& now = result_[line];
        return now.begin == 0 && now.column == 0 ? oldColumn(line) : now.column;
    }
    std::uint32_t columnOfStatement(std::uint32_t line) const { return levels_[line] * style_.columns(); }

    std::uint32_t columnOf(std::uint32_t line) const {
        if (lines_[line].fixed()) return oldColumn(line);
        if (lines_[line].kind == LineKind::Numbered) return 0;
        if (lines_[line].kind == LineKind::Directive) {
            // A #Const stays where it is, in column 1 or not.
            const std::uint32_t own = blocks_.ownDirective(line);
            const bool margin =
                own == none ? lines_[line].start == 0 : style_.directives[own].place == Place::Margin;
            if (margin) return 0;
        }
        return columnOfStatement(line);
    }

    // Whether the line's blanks are those that the column would be written with.
    bool isWritten(std::uint32_t line, std::uint32_t column) const {
        const std::uint32_t start = lines_[line].start;
        if (!style_.unit.tabs) {
            return start == column && base::skipKind<base::AnyOf<' '>>(texts_[line], 0) >= start;
        }
        const std::string_view blanks = texts_[line].substr(0, start);
        const auto [tabs, spaces] = style_.indentationTo(column);
        if (blanks.size() != std::size_t{tabs} + spaces) return false;
        for (std::size_t i = 0; i < tabs; ++i) {
            if (blanks[i] != '\t') return false;
        }
        for (std::size_t i = tabs; i < blanks.size(); ++i) {
            if (blanks[i] != ' ') return false;
        }
        return true;
    }

    // Puts the first of the lines, which belong together, into the column; the others move with it.
    void move(std::uint32_t begin, std::uint32_t end, std::uint32_t column) {
        if (needsBlank(begin)) column = std::max<std::uint32_t>(column, 1);
        if (lines_[begin].fixed() || isWritten(begin, column)) return;
        const std::int64_t by = static_cast<std::int64_t>(column) - oldColumn(begin);
        std::uint32_t last = end;
        while (last < lines_.size() && lines_[last].kind == LineKind::Continuation) ++last;
        for (std::uint32_t i = begin; i < last; ++i) {
            if (result_[i].dropped() || lines_[i].start >= result_[i].end) continue;
            if (lines_[begin].start > 0 && isMarginComment(i)) continue;
            write(i, std::max<std::int64_t>(oldColumn(i) + by, 0));
            const std::size_t size = result_[i].size(style_);
            if (size <= std::max(longestLine, texts_[i].size())) continue;
            notices_.push_back({"CV302", i, Fault::noLine,
                                "the line would have " + std::to_string(size) + " bytes, the IDE takes " +
                                    std::to_string(longestLine) + "; it stays where it is"});
            for (std::uint32_t j = begin; j <= i; ++j) {
                if (!result_[j].dropped()) result_[j].column = result_[j].begin = 0;
            }
            return;
        }
    }

    // Whether the line is a comment in column 1 that stays there.
    bool isMarginComment(std::uint32_t line) const {
        return lines_[line].kind == LineKind::Comment && lines_[line].start == 0 &&
               style_.marginComments == MarginComments::Keep;
    }

    // Whether the line is but the mark that joins the next one, which must stand behind a blank.
    bool needsBlank(std::uint32_t line) const {
        const LineInfo& at = lines_[line];
        return at.joinsNext && at.start > 0 && texts_[line][at.start] == '_' &&
               lengthWithoutBlanks(texts_[line]) == at.start + 1;
    }

    void write(std::uint32_t line, std::int64_t column) {
        NewLine& now = result_[line];
        auto columns = static_cast<std::uint32_t>(column);
        if (needsBlank(line)) columns = std::max<std::uint32_t>(columns, 1);
        now.begin = lines_[line].start;
        now.column = columns;
    }

    // The comments since the last line of code, now that the next one is known.
    void settleRuns(std::uint32_t below) {
        for (const Run& run : runs_) {
            if (!lines_[run.begin].fixed()) move(run.begin, run.end, columnOfRun(run, below));
        }
        runs_.clear();
    }

    std::uint32_t columnOfRun(const Run& run, std::uint32_t below) const {
        const std::uint32_t column = oldColumn(run.begin);
        const bool byBelow = below != none && oldColumn(below) == column;
        const bool byAbove = above_ != none && oldColumn(above_) == column;
        // What stands before a closer, in lines that all begin in one column, is the body's.
        const bool bodys = byAbove && byBelow && lines_[below].closes && levels_[above_] > levels_[below];
        if (byBelow && !bodys) return newColumn(below);
        if (byAbove) return newColumn(above_);
        if (run.touches != none && !removeTrailingComments_ && lines_[run.touches].comment != none &&
            columnAfter(texts_[run.touches], lines_[run.touches].comment, style_.tabWidth) == column) {
            return newColumnOfComment(run.touches);
        }
        if (isMarginComment(run.begin)) return 0;
        // Left of the closer or divider below, it is not the body's.
        if (below != none && lines_[below].closes && column > 0 && column < oldColumn(below))
            return newColumn(below);
        return columnOfStatement(run.begin);
    }

    std::uint32_t newColumnOfComment(std::uint32_t line) const {
        std::uint32_t column = newColumn(line);
        for (std::size_t i = lines_[line].start; i < lines_[line].comment; ++i) {
            column = texts_[line][i] == '\t' ? (column / style_.tabWidth + 1) * style_.tabWidth : column + 1;
        }
        return column;
    }

    const base::TextLines& texts_;
    const ModuleBlocks& blocks_;
    const std::vector<LineInfo>& lines_;
    const Style& style_;
    bool removeTrailingComments_;
    std::vector<NewLine>& result_;
    std::vector<Fault>& notices_;
    std::vector<std::uint32_t> levels_;
    std::vector<Run> runs_;
    std::uint32_t above_ = none;
    std::uint32_t lastPhysical_ = none;
    bool aboveTrailing_ = false; // no empty line since
};

} // namespace

void layOut(const base::TextLines& texts, const ModuleBlocks& blocks, const Style& style,
            bool removeTrailingComments, std::vector<NewLine>& result, std::vector<Fault>& notices) {
    Layout(texts, blocks, style, removeTrailingComments, result, notices).run();
}

} // namespace corvelle::formatter::structured
