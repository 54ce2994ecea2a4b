#include "formatter/structured/statements.h"

#include <array>

namespace corvelle::formatter::structured {
namespace {

constexpr std::array<std::string_view, 26> wordsInDates{
    "am",   "pm",   "jan",    "feb",       "mar",     "apr",      "may",      "jun",   "jul",
    "aug",  "sep",  "oct",    "nov",       "dec",     "january",  "february", "march", "april",
    "june", "july", "august", "september", "october", "november", "december", "sept",
};

bool isWordInDate(std::string_view word) {
    for (const std::string_view known : wordsInDates) {
        if (known.size() != word.size()) continue;
        std::size_t same = 0;
        while (same < word.size() && (word[same] | 0x20) == known[same]) ++same;
        if (same == word.size()) return true;
    }
    return false;
}

bool isDateSeparator(char c) {
    return isBlank(c) || c == '/' || c == '-' || c == ':' || c == ',' || c == '.';
}

// Longer than any date that a person writes; it keeps a line full of `#` linear.
constexpr std::size_t longestDate = 64;

// The position behind the date that begins with the `#` at `at`; `at` if there is none.
std::size_t pastDate(std::string_view line, std::size_t at) {
    bool digits = false;
    for (std::size_t i = at + 1; i < line.size() && i - at < longestDate;) {
        const char c = line[i];
        if (c == '#') return digits ? i + 1 : at;
        if (isDigit(c)) {
            digits = true;
            ++i;
        } else if (isDateSeparator(c)) {
            ++i;
        } else {
            std::size_t end = i;
            while (end < line.size() && isLetter(line[end]) && !isDigit(line[end])) ++end;
            if (end == i || !isWordInDate(line.substr(i, end - i))) return at;
            i = end;
        }
    }
    return at;
}

// Whether a bracket behind the byte can begin a name. In double-byte code pages the second byte of a letter
// can be that of the bracket.
bool nameMayBeginBehind(char c) {
    return static_cast<unsigned char>(c) <= 127;
}

// Whether a `#` behind the byte can begin a date: behind an operand it is its type.
bool dateMayBeginBehind(char c) {
    return !isLetter(c) && c != ')' && c != ']' && c != '"';
}

BlockKind endedBy(Word word) {
    switch (word) {
    case Word::Sub:
        return BlockKind::Sub;
    case Word::Function:
        return BlockKind::Function;
    case Word::Property:
        return BlockKind::Property;
    case Word::Type:
        return BlockKind::Type;
    case Word::Enum:
        return BlockKind::Enum;
    case Word::If:
        return BlockKind::If;
    case Word::Select:
        return BlockKind::Select;
    case Word::With:
        return BlockKind::With;
    default:
        return BlockKind::None;
    }
}

} // namespace

void StatementReader::begin(std::string_view line) {
    const bool continues = joins_;
    line_ = line;
    at_ = start_ = pastBlanks(line, 0);
    end_ = lengthWithoutBlanks(line);
    joins_ = end_ > 0 && line[end_ - 1] == '_' && (end_ == 1 || isBlank(line[end_ - 2]));
    if (joins_) --end_;
    comment_ = noComment;
    leftOpen_ = false;
    carriesComment_ = continues && inComment_;
    if (continues) {
        kind_ = LineKind::Continuation;
        if (inComment_) at_ = end_;
        return;
    }
    kind_ = start_ == line.size() ? LineKind::Empty : LineKind::Code;
    mode_ = Mode::Head;
    inComment_ = false;
    first_ = true;
    elseIf_ = false;
    afterMember_ = false;
}

Statement StatementReader::next(bool inMembers) {
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

// Reads on where the words decide. None: go on as the mode says.
Statement StatementReader::readHead(bool inMembers) {
    switch (mode_) {
    case Mode::Condition:
        return readCondition();
    case Mode::AfterThen:
    case Mode::AfterThenColon:
        return readAfterThen();
    case Mode::Names:
        return readNames();
    case Mode::Directive:
    case Mode::AfterDirectiveEnd:
        return readDirective();
    default:
        break;
    }
    at_ = pastBlanks(line_, at_);
    if (at_ >= end_) return {};
    const char c = line_[at_];
    if (c == '\'') {
        // What was begun ends here: `End 'x`.
        const bool begun = mode_ != Mode::Head;
        comment(at_);
        return begun ? plain() : Statement{};
    }
    if (mode_ == Mode::Head) {
        if (c == ':') {
            ++at_;
            first_ = false;
            return {};
        }
        if (first_ && isDigit(c)) {
            while (at_ < end_ && isDigit(line_[at_])) ++at_;
            first_ = false;
            if (at_ < end_ && isLetter(line_[at_])) return plain(); // `4f` is no number
            if (at_ < end_ && line_[at_] == ':') ++at_;
            if (kind_ == LineKind::Code) kind_ = LineKind::Numbered;
            return {};
        }
        if (first_ && c == '#') {
            if (kind_ == LineKind::Code) kind_ = LineKind::Directive;
            ++at_;
            first_ = false;
            mode_ = Mode::Directive;
            return {};
        }
        if (!isLetter(c)) {
            first_ = false;
            return plain();
        }
        const std::string_view text = word();
        if (first_ && label(at_) && !isReserved(text)) {
            ++at_;
            if (kind_ == LineKind::Code) kind_ = LineKind::Numbered;
            first_ = false;
            return {};
        }
        return headWord(text, inMembers);
    }
    if (!isLetter(c)) {
        if (mode_ == Mode::AfterType && c == '[') {
            skipHidden();
            return open(pending_, Mode::Rest);
        }
        return plain();
    }
    return afterWord(wordOf(word()));
}

// Whether a colon that makes a label of a name stands there. `:=` hands over an argument.
bool StatementReader::label(std::size_t end) const {
    return end < end_ && line_[end] == ':' && (end + 1 >= end_ || line_[end + 1] != '=');
}

std::string_view StatementReader::word() {
    const std::size_t begin = at_;
    while (at_ < end_ && isLetter(line_[at_])) ++at_;
    return line_.substr(begin, at_ - begin);
}

Statement StatementReader::headWord(std::string_view text, bool inMembers) {
    first_ = false;
    const Word word = wordOf(text);
    switch (word) {
    case Word::Other:
        return plain();
    case Word::Rem:
        // What else can follow it means nothing either, but is not to be taken for a plain comment.
        leftOpen_ = leftOpen_ || !wordEnded(at_);
        comment(at_ - text.size());
        return {};
    case Word::Const:
    case Word::Dim:
        return declaration();
    case Word::On: {
        Statement statement = plain();
        statement.handles = true;
        return statement;
    }
    case Word::End:
        mode_ = Mode::AfterEnd;
        return {};
    case Word::Modifier:
        mode_ = Mode::AfterModifier;
        return {};
    case Word::Type:
    case Word::Enum:
        pending_ = endedBy(word);
        mode_ = Mode::AfterType;
        return {};
    case Word::Property:
        mode_ = Mode::AfterProperty;
        return {};
    case Word::Sub:
    case Word::Function:
        if (!inMembers) return open(endedBy(word), Mode::Rest);
        pending_ = endedBy(word);
        mode_ = Mode::AfterSub;
        return {};
    default:
        break;
    }
    if (inMembers) return plain();
    switch (word) {
    case Word::If:
        mode_ = Mode::Condition;
        elseIf_ = false;
        return {};
    case Word::ElseIf: {
        Statement statement = divide(BlockKind::If, Mode::Condition);
        elseIf_ = statement.elseIf = true;
        return statement;
    }
    case Word::Else:
        return divide(BlockKind::If, Mode::Head);
    case Word::EndIf:
        return close(BlockKind::If);
    case Word::Select:
        mode_ = Mode::AfterSelect;
        return {};
    case Word::Case:
        return divide(BlockKind::Select, Mode::Rest);
    case Word::For:
        return open(BlockKind::For, Mode::Rest);
    case Word::Next:
        names_ = 1;
        mode_ = Mode::Names;
        return {};
    case Word::Do:
        // What follows may be the next statement: `Do: x`; a condition hides nothing.
        return open(BlockKind::Do, Mode::Rest);
    case Word::Loop:
        return close(BlockKind::Do);
    case Word::While:
        return open(BlockKind::While, Mode::Rest);
    case Word::Wend:
        return close(BlockKind::While);
    case Word::With:
        return open(BlockKind::With, Mode::Rest);
    default:
        return plain();
    }
}

// The word behind one that does not yet decide.
Statement StatementReader::afterWord(Word word) {
    switch (mode_) {
    case Mode::AfterEnd: {
        const BlockKind block = endedBy(word);
        return block == BlockKind::None ? plain() : close(block);
    }
    case Mode::AfterSelect:
        return word == Word::Case ? open(BlockKind::Select, Mode::Rest) : plain();
    case Mode::AfterProperty:
        if (word == Word::Get || word == Word::Let || word == Word::Set) {
            return open(BlockKind::Property, Mode::Rest);
        }
        return plain();
    case Mode::AfterType:
        return word == Word::As ? plain() : open(pending_, Mode::Rest);
    case Mode::AfterSub:
        return word == Word::As ? plain() : open(pending_, Mode::Rest);
    default:
        break;
    }
    switch (word) { // behind a modifier
    case Word::Modifier:
        return {};
    case Word::Sub:
    case Word::Function:
        return open(endedBy(word), Mode::Rest);
    case Word::Property:
        mode_ = Mode::AfterProperty;
        return {};
    case Word::Type:
    case Word::Enum:
        pending_ = endedBy(word);
        mode_ = Mode::AfterType;
        return {};
    default:
        return declaration();
    }
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
            const std::string_view text = word();
            if (member || text.size() != 4 || wordOf(text) != Word::Then) continue;
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
        const bool remark = wordOf(word()) == Word::Rem && wordEnded(at_);
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

// The rest of a one-line If, all of its statements: only a comment ends it.
void StatementReader::readOneLine() {
    while (at_ < end_) {
        const char c = line_[at_];
        if (isLetter(c)) {
            const std::size_t begin = at_;
            const bool member = afterMember_;
            afterMember_ = false;
            const Word known = wordOf(word());
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
        if (c == ':') {
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

Statement StatementReader::readDirective() {
    at_ = pastBlanks(line_, at_);
    if (at_ >= end_) return {};
    if (line_[at_] == '\'' || !isLetter(line_[at_])) return plain();
    const Word text = wordOf(word());
    if (mode_ == Mode::AfterDirectiveEnd) {
        return text == Word::If ? close(BlockKind::Directive) : plain();
    }
    Statement statement;
    switch (text) {
    case Word::If:
        statement = open(BlockKind::Directive, Mode::Rest);
        break;
    case Word::ElseIf:
        statement = divide(BlockKind::Directive, Mode::Rest);
        statement.elseIf = true;
        break;
    case Word::Else:
        return divide(BlockKind::Directive, Mode::Rest);
    case Word::End:
        mode_ = Mode::AfterDirectiveEnd;
        return {};
    case Word::EndIf:
        return close(BlockKind::Directive);
    default:
        return plain();
    }
    statement.neverTrue = neverTrue();
    return statement;
}

// Whether the condition that follows is plainly false, so that the branch need not be code.
bool StatementReader::neverTrue() const {
    const std::size_t begin = pastBlanks(line_, at_);
    std::size_t end = begin;
    while (end < end_ && isLetter(line_[end])) ++end;
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
        const char c = line_[at_];
        if (!isSpecial(c)) {
            ++at_;
        } else if (c == ':') {
            ++at_;
            if (at_ < end_ && line_[at_] == '=') continue;
            mode_ = Mode::Head;
            return true;
        } else if (c == '\'') {
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

// Goes past a literal, a name in brackets or a date, if one begins here: what is in it means nothing.
bool StatementReader::skipHidden() {
    const char c = line_[at_];
    if (c == '"') {
        // A quote in a literal is written twice: two literals side by side come to the same.
        const std::size_t close = line_.find('"', at_ + 1);
        leftOpen_ = leftOpen_ || close == std::string_view::npos;
        at_ = close == std::string_view::npos ? end_ : close + 1;
        return true;
    }
    if (c == '[' && (at_ == 0 || nameMayBeginBehind(line_[at_ - 1]))) {
        const std::size_t close = line_.find(']', at_ + 1);
        leftOpen_ = leftOpen_ || close == std::string_view::npos;
        at_ = close == std::string_view::npos ? end_ : close + 1;
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

Statement StatementReader::close(BlockKind block) {
    mode_ = Mode::Rest;
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
