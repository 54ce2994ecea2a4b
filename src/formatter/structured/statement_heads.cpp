#include "formatter/structured/statements.h"

// What the words at a statement's beginning tell.
namespace corvelle::formatter::structured {
namespace {

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
        if (first_ && c == '#' && kind_ == LineKind::Code) { // no line that goes on can be one
            kind_ = LineKind::Directive;
            ++at_;
            first_ = false;
            mode_ = Mode::Directive;
            return {};
        }
        if (!isLetter(c)) {
            first_ = false;
            return plain();
        }
        const std::size_t begin = at_;
        const Word word = readWord();
        const std::string_view text = line_.substr(begin, at_ - begin);
        if (first_ && label(at_) && !isReserved(text)) {
            ++at_;
            if (kind_ == LineKind::Code) kind_ = LineKind::Numbered;
            first_ = false;
            return {};
        }
        return headWord(word, text, inMembers);
    }
    if (!isLetter(c)) {
        if (mode_ == Mode::AfterType && c == '[') {
            skipHidden();
            return open(pending_, Mode::Rest);
        }
        return plain();
    }
    return afterWord(readWord());
}

// Whether a colon that makes a label of a name stands there. `:=` hands over an argument.
bool StatementReader::label(std::size_t end) const {
    return end < end_ && line_[end] == ':' && (end + 1 >= end_ || line_[end + 1] != '=');
}

Statement StatementReader::headWord(Word word, std::string_view text, bool inMembers) {
    first_ = false;
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

} // namespace corvelle::formatter::structured
