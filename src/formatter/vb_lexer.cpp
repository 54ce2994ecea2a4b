#include "formatter/vb_lexer.h"

#include <array>

namespace corvelle::formatter {
namespace {

enum class ByteKind : std::uint8_t { Mark, Blank, Letter, Quote, Apostrophe, Bracket, Suffix };

constexpr std::array<ByteKind, 256> makeByteKinds() {
    std::array<ByteKind, 256> kinds{};
    for (std::size_t c = 128; c < 256; ++c) kinds[c] = ByteKind::Letter;
    for (std::size_t c = 'a'; c <= 'z'; ++c) kinds[c] = ByteKind::Letter;
    for (std::size_t c = 'A'; c <= 'Z'; ++c) kinds[c] = ByteKind::Letter;
    for (std::size_t c = '0'; c <= '9'; ++c) kinds[c] = ByteKind::Letter;
    kinds['_'] = ByteKind::Letter;
    kinds[' '] = ByteKind::Blank;
    kinds['\t'] = ByteKind::Blank;
    kinds['"'] = ByteKind::Quote;
    kinds['\''] = ByteKind::Apostrophe;
    kinds['['] = ByteKind::Bracket;
    for (const unsigned char c : {'%', '&', '!', '#', '@', '$', '.'}) kinds[c] = ByteKind::Suffix;
    return kinds;
}

constexpr auto byteKinds = makeByteKinds();

ByteKind kindOf(char c) {
    return byteKinds[static_cast<unsigned char>(c)];
}

// Whether the word is that one, which is given in small letters, whatever its letter case.
bool is(std::string_view word, std::string_view keyword) {
    if (word.size() != keyword.size()) return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i] != keyword[i] && word[i] != keyword[i] - ('a' - 'A')) return false;
    }
    return true;
}

bool isNumber(std::string_view word) {
    return word.find_first_not_of("0123456789") == std::string_view::npos;
}

} // namespace

std::string_view trimVbBlanks(std::string_view text) {
    while (!text.empty() && isVbBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isVbBlank(text.back())) text.remove_suffix(1);
    return text;
}

VbLexer::VbLexer(std::string_view line, VbLineState before)
    : line_(line), bodyEnd_(line.size()),
      // A CR may end a line for one reader and be a character for another. What such a line means is not
      // decided here: it is one token, so that no byte of it can be lost unseen.
      verbatim_(before == VbLineState::Verbatim || line.find('\r') != std::string_view::npos),
      inComment_(before == VbLineState::Comment), commentDue_(inComment_),
      afterMember_(before == VbLineState::Member), numberMayCome_(before == VbLineState::Fresh),
      statementBegins_(before == VbLineState::Fresh || before == VbLineState::Begin) {
    std::size_t end = line.size();
    while (end > 0 && isVbBlank(line[end - 1])) --end;
    if (end > 0 && line[end - 1] == '_' && (end == 1 || isVbBlank(line[end - 2]))) {
        continued_ = true;
        bodyEnd_ = end - 1;
    }
}

VbToken VbLexer::next() {
    const std::size_t start = at_;
    if (commentDue_ && !verbatim_) return comment(0, 0);
    const std::size_t end = verbatim_ ? line_.size() : bodyEnd_;
    while (at_ < end && isVbBlank(line_[at_])) ++at_;
    if (at_ >= end) return {VbTokenKind::End, false, line_.size(), {}};
    if (verbatim_) return operand(VbTokenKind::Verbatim, end, false);

    const bool adjacent = at_ == start;
    switch (kindOf(line_[at_])) {
    case ByteKind::Letter:
        return word(adjacent);
    case ByteKind::Quote:
        return literal();
    case ByteKind::Apostrophe:
        return comment(at_, at_ + 1);
    case ByteKind::Bracket:
        return name(adjacent);
    default:
        return mark(adjacent);
    }
}

VbLineState VbLexer::stateAfter() {
    while (next().kind != VbTokenKind::End) {
    }
    if (!continued_) return VbLineState::Fresh;
    if (verbatim_) return VbLineState::Verbatim;
    if (inComment_) return VbLineState::Comment;
    if (statementBegins_) return VbLineState::Begin;
    return afterMember_ ? VbLineState::Member : VbLineState::Statement;
}

VbToken VbLexer::comment(std::size_t mark, std::size_t from) {
    at_ = line_.size();
    inComment_ = true;
    commentDue_ = false;
    return {VbTokenKind::Comment, false, mark, trimVbBlanks(line_.substr(from, bodyEnd_ - from))};
}

VbToken VbLexer::literal() {
    std::size_t close = line_.find('"', at_ + 1);
    while (close != std::string_view::npos && close + 1 < line_.size() && line_[close + 1] == '"') {
        close = line_.find('"', close + 2);
    }
    // Left open, it takes in the joining mark as well: the mark's bytes may belong to the text. The next
    // line is joined all the same, the reading under which less can be dropped.
    return operand(VbTokenKind::Literal, close == std::string_view::npos ? line_.size() : close + 1, false);
}

VbToken VbLexer::name(bool adjacent) {
    const std::size_t close = line_.find(']', at_ + 1);
    return operand(VbTokenKind::Name, close == std::string_view::npos ? line_.size() : close + 1,
                   adjacent && afterSuffix_);
}

VbToken VbLexer::word(bool adjacent) {
    std::size_t end = at_ + 1;
    // No name in brackets can directly follow a letter, but in double-byte code pages a letter's second
    // byte can be that of `[`.
    while (end < bodyEnd_ && (kindOf(line_[end]) == ByteKind::Letter ||
                              (line_[end] == '[' && static_cast<unsigned char>(line_[end - 1]) > 127))) {
        ++end;
    }
    const bool ended = end == bodyEnd_ || isVbBlank(line_[end]);
    const std::string_view text = line_.substr(at_, end - at_);
    if (ended && statementBegins_ && is(text, "rem")) return comment(at_, end);
    const bool begins =
        (numberMayCome_ && isNumber(text)) || (!afterMember_ && (is(text, "then") || is(text, "else")));
    const VbToken token = operand(VbTokenKind::Word, end, adjacent && afterSuffix_);
    statementBegins_ = begins;
    return token;
}

VbToken VbLexer::mark(bool adjacent) {
    const char c = line_[at_];
    const bool suffix = kindOf(c) == ByteKind::Suffix;
    const VbToken token{VbTokenKind::Mark, suffix && adjacent && afterOperand_, at_, line_.substr(at_, 1)};
    ++at_;
    afterOperand_ = c == ')' || token.glued; // what touches an operand belongs to it: `a$`, `#1/1/2000#`
    afterSuffix_ = suffix;
    afterMember_ = c == '.' || c == '!';
    statementBegins_ = c == ':';
    numberMayCome_ = false;
    return token;
}

VbToken VbLexer::operand(VbTokenKind kind, std::size_t end, bool glued) {
    const VbToken token{kind, glued, at_, line_.substr(at_, end - at_)};
    at_ = end;
    afterOperand_ = true;
    afterSuffix_ = false;
    afterMember_ = false;
    statementBegins_ = false;
    numberMayCome_ = false;
    return token;
}

} // namespace corvelle::formatter
