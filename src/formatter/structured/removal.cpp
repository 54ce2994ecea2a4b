#include "formatter/structured/removal.h"

namespace corvelle::formatter::structured {
namespace {

class Removal {
  public:
    Removal(const base::TextLines& texts, const std::vector<LineInfo>& lines,
            const StructuredOptions& options)
        : texts_(texts), lines_(lines), options_(options), result_(lines.size()) {}

    std::vector<NewLine> run() {
        for (std::size_t i = 0; i < lines_.size(); ++i) {
            result_[i].end = static_cast<std::uint32_t>(texts_[i].size());
        }
        const bool comments = options_.removeCommentLines || options_.removeTrailingComments;
        if (comments || options_.trim) findEndsToKeep();
        if (comments || options_.trim || options_.removeEmptyLines) {
            for (std::size_t i = 0; i < lines_.size(); ++i) {
                if (!lines_[i].fixed()) takeFrom(i);
            }
        }
        if (options_.maxEmptyLines) foldEmptyLines(*options_.maxEmptyLines);
        return std::move(result_);
    }

  private:
    // A lone carriage return may end a line for another reader: what it is and what it joins is not decided
    // here.
    void findEndsToKeep() {
        keepEnd_.resize(lines_.size());
        for (std::size_t i = 0; i < lines_.size(); ++i) {
            const bool goesOn = lines_[i].kind == LineKind::Continuation && i > 0 && keepEnd_[i - 1];
            keepEnd_[i] = goesOn || lines_[i].keepEnd || texts_[i].find('\r') != std::string_view::npos;
        }
    }

    void takeFrom(std::size_t i) {
        const LineInfo& line = lines_[i];
        if (result_[i].dropped()) return;
        if (line.kind == LineKind::Empty && options_.removeEmptyLines) result_[i].drop();
        if (line.kind == LineKind::Comment && options_.removeCommentLines && mayDropCommentOf(i)) {
            result_[i].drop();
            dropRestOfComment(i);
        }
        if (result_[i].dropped()) return;
        const bool trailing = line.kind != LineKind::Comment && line.comment != LineInfo::none;
        if (trailing && options_.removeTrailingComments && mayDropCommentOf(i)) cutComment(i);
        if (options_.trim) trim(i);
    }

    // Whether the comment that begins in the line may go, with all the lines that it goes on in.
    bool mayDropCommentOf(std::size_t i) const {
        for (;; ++i) {
            if (keepEnd_[i] || lines_[i].fixed()) return false;
            if (!lines_[i].joinsNext || i + 1 == lines_.size()) return true;
        }
    }

    void dropRestOfComment(std::size_t i) {
        while (lines_[i].joinsNext && i + 1 < lines_.size()) result_[++i].drop();
    }

    // `Rem'x` is no comment by the letter; without the apostrophe it would be one.
    static bool endsInRem(std::string_view text) {
        return text.size() >= 3 && wordOf(text.substr(text.size() - 3)) == Word::Rem;
    }

    void cutComment(std::size_t i) {
        const std::string_view rest = texts_[i].substr(0, lines_[i].comment);
        if (endsInJoin(rest) || endsInRem(rest)) return; // what is left would say something else
        result_[i].end = static_cast<std::uint32_t>(lengthWithoutBlanks(rest));
        dropRestOfComment(i);
    }

    void trim(std::size_t i) {
        const std::string_view text = texts_[i].substr(0, result_[i].end);
        if (keepEnd_[i] || endsInJoin(text)) return;
        result_[i].end = static_cast<std::uint32_t>(lengthWithoutBlanks(text));
    }

    void foldEmptyLines(std::uint32_t most) {
        std::uint32_t empty = 0;
        for (std::size_t i = 0; i < lines_.size(); ++i) {
            if (result_[i].dropped()) continue;
            if (lines_[i].kind != LineKind::Empty || lines_[i].fixed()) {
                empty = 0;
            } else if (empty == most) {
                result_[i].drop();
            } else {
                ++empty;
            }
        }
    }

    const base::TextLines& texts_;
    const std::vector<LineInfo>& lines_;
    const StructuredOptions& options_;
    std::vector<NewLine> result_;
    std::vector<bool> keepEnd_;
};

} // namespace

std::vector<NewLine> removeParts(const base::TextLines& texts, const std::vector<LineInfo>& lines,
                                 const StructuredOptions& options) {
    return Removal(texts, lines, options).run();
}

} // namespace corvelle::formatter::structured
