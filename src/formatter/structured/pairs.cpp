#include "formatter/structured/pairs.h"

#include <array>

namespace corvelle::formatter::structured {
namespace {

struct WordPair {
    std::string_view opening, closing;
};

constexpr std::array<WordPair, 7> wordPairs{{
    {"Start", "End"},
    {"Start", "Stop"},
    {"Begin", "End"},
    {"Open", "Close"},
    {"Write", "Close"},
    {"Push", "Pop"},
    {"Enter", "Leave"},
}};

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

bool same(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (lower(a[i]) != lower(b[i])) return false;
    }
    return true;
}

// The name that the line's statement calls, with the objects before it; nothing if it assigns something.
std::string_view calledName(std::string_view text, std::size_t start) {
    std::size_t end = start;
    while (end < text.size() && (isLetter(text[end]) || text[end] == '.')) ++end;
    const std::size_t next = pastBlanks(text, end);
    if (next < text.size() && text[next] == '=') return {};
    return text.substr(start, end - start);
}

// End and Stop alone end the program.
bool isStatement(std::string_view word) {
    return same(word, "End") || same(word, "Stop");
}

// Whether the names are alike but for the two words, which both have at their ends or both at the beginning
// of what follows the last point.
bool isPair(std::string_view opening, std::string_view closing) {
    for (const WordPair& words : wordPairs) {
        const std::size_t first = words.opening.size(), second = words.closing.size();
        if (opening.size() < first || closing.size() < second) continue;
        const std::size_t rest = opening.size() - first;
        if (rest != closing.size() - second) continue;
        if (rest == 0 && isStatement(words.closing)) continue;
        if (same(opening.substr(rest), words.opening) && same(closing.substr(rest), words.closing) &&
            same(opening.substr(0, rest), closing.substr(0, rest))) {
            return true;
        }
        const std::size_t point = opening.rfind('.');
        const std::size_t from = point == std::string_view::npos ? 0 : point + 1;
        if (from > rest) continue;
        if (same(opening.substr(from, first), words.opening) &&
            same(closing.substr(from, second), words.closing) &&
            same(opening.substr(0, from), closing.substr(0, from)) &&
            same(opening.substr(from + first), closing.substr(from + second))) {
            return true;
        }
    }
    return false;
}

class Pairs {
  public:
    Pairs(const base::TextLines& texts, const ModuleBlocks& blocks, const Style& style)
        : texts_(texts), blocks_(blocks), lines_(blocks.lines), style_(style) {}

    std::vector<std::uint32_t> find() {
        std::uint32_t last = LineInfo::none, comment = LineInfo::none; // the first one since
        const auto count = static_cast<std::uint32_t>(lines_.size());
        for (std::uint32_t i = 0; i < count; ++i) {
            const LineInfo& line = lines_[i];
            if (line.kind == LineKind::Comment && comment == LineInfo::none) comment = i;
            if (line.kind != LineKind::Code) continue;
            if (last != LineInfo::none && !lines_[last].fixed() && !line.fixed()) {
                if (begins(last, i)) {
                    open_.push_back(last);
                } else if (comment != LineInfo::none && sameBlock(last, i) && isOneDeeper(last, comment) &&
                           column(last) == column(i) && isPair(nameIn(last), nameIn(i))) {
                    found_.push_back({last, i}); // nothing but comments between them
                }
            }
            if (!open_.empty()) end(i);
            last = i;
            comment = LineInfo::none;
        }
        return levels();
    }

  private:
    struct Pair {
        std::uint32_t begin, end;
    };

    std::vector<std::uint32_t> levels() const {
        if (found_.empty()) return {};
        std::vector<std::int32_t> changes(lines_.size() + 1);
        for (const Pair& pair : found_) {
            ++changes[pair.begin + 1];
            --changes[pair.end];
        }
        std::vector<std::uint32_t> result(lines_.size());
        std::int32_t level = 0;
        for (std::size_t i = 0; i < result.size(); ++i) {
            level += changes[i];
            result[i] = static_cast<std::uint32_t>(level);
        }
        return result;
    }

    std::string_view nameIn(std::uint32_t line) const { return calledName(texts_[line], lines_[line].start); }
    std::uint32_t column(std::uint32_t line) const {
        return columnAfter(texts_[line], lines_[line].start, style_.tabWidth);
    }
    std::uint32_t directiveOf(const LineInfo& line) const { return blocks_.around(line).directive; }
    bool sameBlock(std::uint32_t a, std::uint32_t b) const {
        const LineInfo &x = lines_[a], &y = lines_[b];
        return x.parent == y.parent && directiveOf(x) == directiveOf(y) && !x.closes && !y.closes;
    }

    static bool isDeeper(std::uint32_t a, std::uint32_t b) {
        return a != LineInfo::none && (b == LineInfo::none || a > b);
    }

    bool isOneDeeper(std::uint32_t line, std::uint32_t next) const {
        return lines_[next].start != lines_[line].start && column(next) == column(line) + style_.columns();
    }
    bool begins(std::uint32_t line, std::uint32_t next) const {
        return lines_[next].start > lines_[line].start && sameBlock(line, next) && isOneDeeper(line, next) &&
               !nameIn(line).empty();
    }

    void end(std::uint32_t line) {
        const LineInfo& at = lines_[line];
        while (!open_.empty()) {
            const std::uint32_t begin = open_.back();
            const LineInfo& opening = lines_[begin];
            if (isDeeper(at.parent, opening.parent)) return;
            if (at.parent == opening.parent && !at.closes && isDeeper(directiveOf(at), directiveOf(opening)))
                return;
            if (sameBlock(begin, line)) {
                if (!at.fixed() && column(line) > column(begin)) return;
                const bool pair =
                    !at.fixed() && column(line) == column(begin) && isPair(nameIn(begin), nameIn(line));
                open_.pop_back();
                if (!pair) continue;
                found_.push_back({begin, line});
                return;
            }
            open_.pop_back();
        }
    }

    const base::TextLines& texts_;
    const ModuleBlocks& blocks_;
    const std::vector<LineInfo>& lines_;
    const Style& style_;
    std::vector<std::uint32_t> open_;
    std::vector<Pair> found_;
};

} // namespace

std::vector<std::uint32_t> pairedLevels(const base::TextLines& texts, const ModuleBlocks& blocks,
                                        const Style& style) {
    return Pairs(texts, blocks, style).find();
}

} // namespace corvelle::formatter::structured
