#include "formatter/structured/statements.h"

#include "formatter/structured/dates.h"

#include <algorithm>

namespace corvelle::formatter::structured {
namespace {

// Whether a bracket behind the byte can begin a name. In double-byte code pages the second byte of a letter
// can be that of the bracket.
bool nameMayBeginBehind(char c) {
    return static_cast<unsigned char>(c) <= 127;
}

// Whether a `#` behind the byte can begin a date: behind an operand it is its type.
bool dateMayBeginBehind(char c) {
    return !isLetter(c) && c != ')' && c != ']' && c != '"';
}

} // namespace

Statement StatementReader::readOn(bool inMembers) {
    if (first_ && mode_ == Mode::Head && isPlain()) return plain();
    for (;;) {
        switch (mode_) {
        case Mode::Rest:
            if (!skipRest()) return endOfLine();
            break;
        case Mode::OneLine:
            readOneLine();
            return endOfLine();
        default: {
            const Statement statement = readHead(inMembers);
            if (statement.kind != StatementKind::None) return statement;
            if (at_ >= end_) return endOfLine();
        }
        }
    }
}

// Whether the line begins with a plain statement, as most do: with a name that begins as no known word does
// and is no label. Goes on to what can end the statement.
bool StatementReader::isPlain() {
    const char c = line_[at_];
    if (!isLetter(c) || isDigit(c)) return false;
    if (at_ + 1 < end_ && mayBeginWord(c, line_[at_ + 1])) return false;
    const std::size_t special = std::min(base::findKind<Specials>(line_, at_), end_);
    if (special < end_ && line_[special] == ':') return false;
    at_ = special;
    first_ = false;
    return true;
}

// Goes past the word that stands here.
Word StatementReader::readWord() {
    const std::size_t begin = at_;
    at_ = pastLetters(line_, at_);
    return wordIn(line_, begin, at_ - begin);
}

// Whether the byte is a point or an exclamation mark with a name behind it. `a! Then` is a variable's type.
bool StatementReader::namesMember() const {
    const char c = line_[at_];
    if (c != '.' && c != '!') return false;
    const std::size_t next = pastBlanks(line_, at_ + 1);
    return next == at_ + 1 || (c == '.' && next >= end_);
}

// Goes on to Then. A statement If without it (`If a GoTo 10`) is told at its end.
Statement StatementReader::readCondition() {
    while (at_ < end_) {
        const char c = line_[at_];
        if (isLetter(c)) {
            const bool member = afterMember_;
            afterMember_ = false;
            if (readWord() != Word::Then || member) continue;
            if (elseIf_) {
                mode_ = Mode::Head; // what follows belongs to the branch
                return {};
            }
            mode_ = Mode::AfterThen;
            return {};
        }
        if (c == '\'') {
            comment(at_);
            break;
        }
        if (c == ':' && (at_ + 1 >= end_ || line_[at_ + 1] != '=')) {
            return elseIf_ ? (mode_ = Mode::Head, Statement{}) : plain();
        }
        if (!isBlank(c)) afterMember_ = namesMember();
        if (!skipHidden()) ++at_;
    }
    return {};
}

// Behind the Then of an If that is no ElseIf.
Statement StatementReader::readAfterThen() {
    at_ = pastBlanks(line_, at_);
    if (at_ >= end_) return {};
    const char c = line_[at_];
    if (c == '\'') {
        comment(at_);
        return {}; // told at the line's end, which is the statement's
    }
    if (c == ':' && mode_ == Mode::AfterThen) {
        ++at_;
        mode_ = Mode::AfterThenColon;
        return {};
    }
    const bool colon = mode_ == Mode::AfterThenColon;
    mayBeRemark_ = true;
    if (isLetter(c)) {
        const std::size_t before = at_;
        const bool remark = readWord() == Word::Rem && wordEnded(at_);
        at_ = before;
        if (remark) {
            comment(at_);
            if (colon) return {}; // `Then: Rem`: told at the line's end
            mode_ = Mode::Rest;
            Statement statement;
            statement.kind = StatementKind::Unclear;
            statement.remark = true;
            return statement;
        }
    }
    return plain(Mode::OneLine);
}

// The rest of a one-line If, all of its statements, or of a directive: only a comment ends it.
void StatementReader::readOneLine() {
    while (at_ < end_) {
        const char c = line_[at_];
        if (isLetter(c)) {
            const std::size_t begin = at_;
            const bool member = afterMember_;
            afterMember_ = false;
            const Word known = readWord();
            if (member) {
                mayBeRemark_ = false;
                continue;
            }
            if (known == Word::Rem && mayBeRemark_ && wordEnded(at_)) return comment(begin);
            mayBeRemark_ = known == Word::Then || known == Word::Else;
            continue;
        }
        if (c == '\'') return comment(at_);
        if (!isBlank(c)) {
            mayBeRemark_ = c == ':';
            afterMember_ = namesMember();
        }
        if (!skipHidden()) ++at_;
    }
}

// Behind Next: a name for each loop that it ends.
Statement StatementReader::readNames() {
    while (at_ < end_) {
        const char c = line_[at_];
        if (c == ':' && (at_ + 1 >= end_ || line_[at_ + 1] != '=')) {
            ++at_;
            Statement statement = close(BlockKind::For);
            statement.count = names_;
            mode_ = Mode::Head;
            return statement;
        }
        if (c == '\'') {
            comment(at_);
            break;
        }
        if (c == ',') ++names_;
        if (!skipHidden()) ++at_;
    }
    return {};
}

// A directive has its line for itself: a colon parts nothing.
Statement StatementReader::readDirective() {
    at_ = pastBlanks(line_, at_);
    if (at_ >= end_) return {};
    if (line_[at_] == '\'' || !isLetter(line_[at_])) return plain(Mode::OneLine);
    const Word text = readWord();
    if (mode_ == Mode::AfterDirectiveEnd) {
        return text == Word::If ? close(BlockKind::Directive, Mode::OneLine) : plain(Mode::OneLine);
    }
    Statement statement;
    switch (text) {
    case Word::If:
        statement = open(BlockKind::Directive, Mode::OneLine);
        break;
    case Word::ElseIf:
        statement = divide(BlockKind::Directive, Mode::OneLine);
        statement.elseIf = true;
        break;
    case Word::Else:
        return divide(BlockKind::Directive, Mode::OneLine);
    case Word::End:
        mode_ = Mode::AfterDirectiveEnd;
        return {};
    case Word::EndIf:
        return close(BlockKind::Directive, Mode::OneLine);
    default:
        return plain(Mode::OneLine);
    }
    statement.neverTrue = neverTrue();
    return statement;
}

// Whether the condition that follows is plainly false, so that the branch need not be code.
bool StatementReader::neverTrue() const {
    const std::size_t begin = pastBlanks(line_, at_);
    const std::size_t end = begin < end_ ? pastLetters(line_, begin) : begin;
    const std::string_view text = line_.substr(begin, end - begin);
    const bool isFalse = text.size() == 5 && (text[0] | 0x20) == 'f' && (text[1] | 0x20) == 'a' &&
                         (text[2] | 0x20) == 'l' && (text[3] | 0x20) == 's' && (text[4] | 0x20) == 'e';
    if (!isFalse && text != "0") return false;
    const std::size_t then = pastBlanks(line_, end);
    return then + 4 <= end_ && wordOf(line_.substr(then, 4)) == Word::Then && wordEnded(then + 4);
}

// Skips to the next statement of the line; false at the line's end.
bool StatementReader::skipRest() {
    while (at_ < end_) {
        at_ = base::findKind<Specials>(line_, at_);
        if (at_ >= end_) break;
        const char c = line_[at_];
        if (c == ':') {
            ++at_;
            if (at_ < end_ && line_[at_] == '=') continue;
            mode_ = Mode::Head;
            return true;
        }
        if (c == '\'') {
            comment(at_);
        } else if (!skipHidden()) {
            ++at_;
        }
    }
    return false;
}

// The rest of the line is a comment.
void StatementReader::comment(std::size_t at) {
    comment_ = static_cast<std::uint32_t>(at);
    inComment_ = true;
    if (kind_ == LineKind::Code && at == start_) kind_ = LineKind::Comment;
    at_ = end_;
}

// Goes past the byte, the next one of its kind behind the one that stands here.
template <char wanted>
void StatementReader::skipTo() {
    const std::size_t close = base::findKind<base::AnyOf<wanted>>(line_, at_ + 1);
    const bool isOpen = close == line_.size();
    leftOpen_ = leftOpen_ || isOpen;
    at_ = isOpen ? end_ : close + 1;
}

// Goes past a literal, a name in brackets or a date, if one begins here: what is in it means nothing.
bool StatementReader::skipHidden() {
    const char c = line_[at_];
    if (c == '"') {
        // A quote in a literal is written twice: two literals side by side come to the same.
        skipTo<'"'>();
        return true;
    }
    if (c == '[' && (at_ == 0 || nameMayBeginBehind(line_[at_ - 1]))) {
        skipTo<']'>();
        return true;
    }
    if (c == '#' && (at_ == 0 || dateMayBeginBehind(line_[at_ - 1]))) {
        const std::size_t past = pastDate(line_, at_);
        if (past == at_) return false;
        at_ = past;
        return true;
    }
    return false;
}

// What the line's end tells: of a statement that goes on in the next line nothing yet.
Statement StatementReader::endOfLine() {
    if (joins_) return {};
    const Mode mode = mode_;
    mode_ = Mode::Rest;
    switch (mode) {
    case Mode::Head:
    case Mode::Rest:
    case Mode::OneLine:
        return {};
    case Mode::AfterThen:
        return open(BlockKind::If, Mode::Rest);
    case Mode::AfterThenColon: {
        Statement statement;
        statement.kind = StatementKind::Unclear;
        return statement;
    }
    case Mode::Names: {
        Statement statement = close(BlockKind::For);
        statement.count = names_;
        return statement;
    }
    case Mode::Condition:
        return elseIf_ ? Statement{} : plain();
    default:
        return plain();
    }
}

Statement StatementReader::open(BlockKind block, Mode then) {
    mode_ = then;
    Statement statement;
    statement.kind = StatementKind::Open;
    statement.block = block;
    return statement;
}

Statement StatementReader::plain(Mode then) {
    mode_ = then;
    Statement statement;
    statement.kind = StatementKind::Plain;
    return statement;
}

Statement StatementReader::declaration() {
    Statement statement = plain();
    statement.declares = true;
    return statement;
}

Statement StatementReader::close(BlockKind block, Mode then) {
    mode_ = then;
    Statement statement;
    statement.kind = StatementKind::Close;
    statement.block = block;
    return statement;
}

Statement StatementReader::divide(BlockKind block, Mode then) {
    mode_ = then;
    Statement statement;
    statement.kind = StatementKind::Divide;
    statement.block = block;
    return statement;
}

} // namespace corvelle::formatter::structured
