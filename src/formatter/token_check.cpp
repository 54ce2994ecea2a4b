#include "formatter/token_check.h"

#include <algorithm>

namespace corvelle::formatter {
namespace {

constexpr std::size_t longestQuote = 60;

// The text as a message shows it: short, and without anything that would break the message's line.
std::string shown(std::string_view text) {
    text = trimVbBlanks(text);
    std::string result(text.substr(0, longestQuote));
    for (char& c : result) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 32 || byte == 127) c = '?';
    }
    if (text.size() > longestQuote) result += "...";
    return result;
}

std::string fromHere(std::string_view line, const VbToken& token) {
    return shown(line.substr(token.position));
}

bool same(const VbToken& a, const VbToken& b) {
    return a.kind == b.kind && a.glued == b.glued && a.text == b.text;
}

bool startsWith(std::string_view text, std::string_view beginning) {
    return text.substr(0, beginning.size()) == beginning;
}

bool equalButForTabs(std::string_view withTabs, std::string_view without) {
    std::size_t at = 0;
    for (const char c : withTabs) {
        if (at < without.size() && without[at] == c) {
            ++at;
        } else if (c != '\t') {
            return false;
        }
    }
    return at == without.size();
}

std::string_view nounFor(VbTokenKind kind) {
    switch (kind) {
    case VbTokenKind::Literal:
        return "the literal ";
    case VbTokenKind::Name:
        return "the name ";
    case VbTokenKind::Comment:
        return "the comment ";
    case VbTokenKind::Verbatim:
        return "the line with a lone carriage return ";
    default:
        return "the code ";
    }
}

// The token and, where it is a piece of code or a comment, all that follows it in its line.
std::string named(std::string_view line, const VbToken& token) {
    std::string result(nounFor(token.kind));
    const bool closed = token.kind == VbTokenKind::Literal || token.kind == VbTokenKind::Name;
    return result += closed ? shown(token.text) : fromHere(line, token);
}

// A token that holds blanks of its own and came out changed.
std::string changedToken(std::string_view oldLine, const VbToken& was, const VbToken& is) {
    std::string what = named(oldLine, was);
    if (equalButForTabs(was.text, is.text)) return "a tab in " + what;
    if (!startsWith(was.text, is.text)) return what;
    const bool onlyBlanks = trimVbBlanks(was.text.substr(is.text.size())).empty();
    return (onlyBlanks ? "blanks at the end of " : "the end of ") + what;
}

// Why the first pair of tokens that are not the same is a loss. `rest` stands behind `was`.
std::string difference(std::string_view oldLine, const VbToken& was, VbLexer& rest, std::string_view newText,
                       const VbToken& is) {
    if (was.kind == VbTokenKind::End) {
        const bool comment = is.kind == VbTokenKind::Comment;
        return (comment ? "a comment would be added: " : "code would be added: ") + fromHere(newText, is);
    }
    if (was.kind == VbTokenKind::Comment && is.kind != VbTokenKind::Comment && is.kind != VbTokenKind::End) {
        return "the comment " + fromHere(oldLine, was) + " would become code";
    }
    if (was.kind != VbTokenKind::Comment && is.kind == VbTokenKind::Comment) {
        return named(oldLine, was) + " would become a comment";
    }
    if (was.kind != is.kind) return named(oldLine, was);
    if (was.text == is.text) {
        return (was.glued ? "a blank would be added before " : "the blank before ") + fromHere(oldLine, was);
    }
    const bool closed = was.kind == VbTokenKind::Word || was.kind == VbTokenKind::Literal;
    if (closed && is.text.size() > was.text.size() && startsWith(is.text, was.text)) {
        const VbToken next = rest.next();
        if (next.kind != VbTokenKind::End) {
            return "the blank between " + shown(was.text) + " and " + fromHere(oldLine, next);
        }
    }
    if (was.kind == VbTokenKind::Word || was.kind == VbTokenKind::Mark) return named(oldLine, was);
    return changedToken(oldLine, was, is);
}

// Why it is a loss that the new text hands on `is` to the next line and the old one something else.
std::string handedOn(VbLineState was, VbLineState is) {
    if (is == VbLineState::Fresh) {
        return was == VbLineState::Comment ? "the mark that carries the comment on to the next line"
                                           : "the mark that joins the next line";
    }
    if (is == VbLineState::Comment) return "the end of the comment: the next line would become part of it";
    if (was == VbLineState::Comment) return "the comment that goes on: the next line would become code";
    return "the end of the statement: the next line would be joined to it";
}

} // namespace

// Blanks at a line's end belong to a literal or a name left open. Where the line holds the beginning of
// either it is read.
bool TokenCheck::endMayGo(std::string_view end, std::string_view newText) {
    return std::all_of(end.begin(), end.end(), isVbBlank) && newText.find('"') == std::string_view::npos &&
           newText.find('[') == std::string_view::npos;
}

std::optional<std::string> TokenCheck::keptWithChanges(std::string_view oldLine, std::string_view newText,
                                                       std::int32_t spaces) {
    VbLexer oldLexer(oldLine, was_);
    VbLexer newLexer(newText, is_);
    const bool apart = was_ != is_; // the old line is comment, the new one begins a statement
    std::optional<std::string> loss;
    const bool different = apart || oldLine.substr(skipBlanks(oldLine)) != newText;
    while (different) {
        const VbToken was = nextThatCounts(oldLexer);
        const VbToken is = nextThatCounts(newLexer);
        if (was.kind == VbTokenKind::End && is.kind == VbTokenKind::End) break;
        if (apart) {
            loss = "the comment " + shown(oldLine) + " would become code";
            break;
        }
        if (!same(was, is)) {
            loss = difference(oldLine, was, oldLexer, newText, is);
            break;
        }
    }
    const VbLineState is = newLexer.stateAfter();
    settle(different ? oldLexer.stateAfter() : is, is, loss);
    if (!loss && !fits(oldLine, newText, spaces)) {
        loss = "the end of the line: it would have " +
               std::to_string(static_cast<std::int64_t>(newText.size()) + spaces) + " bytes, the IDE takes " +
               std::to_string(longestLine);
    }
    return loss;
}

std::optional<std::string> TokenCheck::droppedWithText(std::string_view oldLine) {
    VbLexer oldLexer(oldLine, was_);
    std::optional<std::string> loss;
    const bool carriesOn = was_ == VbLineState::Comment;
    const VbToken first = nextThatCounts(oldLexer);
    // An empty line that carries a comment on holds nothing to lose but the comment's end.
    const bool holdsText = first.kind != VbTokenKind::End && !(carriesOn && first.text.empty());
    if (holdsText) loss = named(oldLine, first);
    settle(oldLexer.stateAfter(), is_, loss);
    return loss;
}

VbToken TokenCheck::nextThatCounts(VbLexer& lexer) const {
    VbToken token = lexer.next();
    while (options_.commentsMayGo && token.kind == VbTokenKind::Comment) token = lexer.next();
    return token;
}

void TokenCheck::settle(VbLineState was, VbLineState is, std::optional<std::string>& loss) {
    was_ = was;
    is_ = is;
    // A comment that may go may go line by line. What is left of it is looked at when it comes.
    const bool commentGone =
        options_.commentsMayGo && was == VbLineState::Comment && is == VbLineState::Fresh;
    if (!loss && was != is && !commentGone) loss = handedOn(was, is);
    if (loss) is_ = was_; // one fault is one report
}

} // namespace corvelle::formatter
