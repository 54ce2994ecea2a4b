#include "plain_reading.h"

#include "formatter/vb_lexer.h"

#include <algorithm>
#include <cctype>
#include <string>

namespace plain {
namespace {

using corvelle::formatter::VbLexer;
using corvelle::formatter::VbLineState;
using corvelle::formatter::VbToken;
using corvelle::formatter::VbTokenKind;
using structured::BlockKind;
using structured::Statement;
using structured::StatementKind;

struct Token {
    VbTokenKind kind;
    std::string word;     // in small letters
    bool touches = false; // the token before it
    bool member = false;  // follows a point or an exclamation mark that touches it
    bool newLine = false; // the first one of its physical line
};
using Tokens = std::vector<Token>;

std::string small(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return result;
}

bool isOneOf(const std::string& word, std::initializer_list<std::string_view> words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

BlockKind blockOf(const std::string& word) {
    constexpr std::pair<std::string_view, BlockKind> names[] = {
        {"sub", BlockKind::Sub},   {"function", BlockKind::Function}, {"property", BlockKind::Property},
        {"type", BlockKind::Type}, {"enum", BlockKind::Enum},         {"if", BlockKind::If},
        {"for", BlockKind::For},   {"select", BlockKind::Select},     {"with", BlockKind::With},
        {"do", BlockKind::Do},     {"while", BlockKind::While}};
    for (const auto& [name, block] : names) {
        if (word == name) return block;
    }
    return BlockKind::None;
}

Statement make(StatementKind kind, BlockKind block = BlockKind::None, std::uint32_t count = 1) {
    Statement statement;
    statement.kind = kind;
    statement.block = block;
    statement.count = count;
    return statement;
}

// One logical line's tokens; what stands behind them, a comment, only as what kind it is.
class Line {
  public:
    // `mayDirect`: the first token stands on the first of the physical lines.
    Line(Tokens tokens, bool mayDirect, bool remark, Members& members)
        : tokens_(std::move(tokens)), mayDirect_(mayDirect), remark_(remark), members_(members) {}

    void read(LogicalLine& into) {
        if (tokens_.empty()) return;
        if (mayDirect_ && tokens_[0].word == "#") {
            into.directive = true;
            into.statements.push_back(directive());
            return;
        }
        if (isNumber(tokens_[0].word)) {
            into.labelled = true;
            at_ = 1;
            if (isColon(at_)) ++at_;
        } else if (tokens_[0].kind == VbTokenKind::Word && !structured::isDigit(tokens_[0].word[0]) &&
                   isColon(1) && tokens_[1].touches && !structured::isReserved(tokens_[0].word)) {
            into.labelled = true;
            at_ = 2;
        }
        for (; at_ < tokens_.size(); ++at_) { // past each colon
            const std::size_t end = statementEnd(at_);
            const std::size_t told = into.statements.size();
            if (end > at_) statement(at_, end, into.statements);
            for (std::size_t i = told; i < into.statements.size(); ++i) members_.take(into.statements[i]);
            if (at_ < tokens_.size()) at_ = std::max(at_, end);
        }
    }

  private:
    static bool isNumber(const std::string& word) {
        return !word.empty() && word.find_first_not_of("0123456789") == std::string::npos;
    }
    bool isWord(std::size_t i, std::size_t end) const {
        return i < end && tokens_[i].kind == VbTokenKind::Word;
    }
    bool isColon(std::size_t i) const {
        if (i >= tokens_.size() || tokens_[i].kind != VbTokenKind::Mark || tokens_[i].word != ":")
            return false;
        return i + 1 >= tokens_.size() || tokens_[i + 1].word != "=" || !tokens_[i + 1].touches;
    }
    std::size_t statementEnd(std::size_t from) const {
        while (from < tokens_.size() && !isColon(from)) ++from;
        return from;
    }
    // The Then of the statement; `end` if it has none.
    std::size_t then(std::size_t from, std::size_t end) const {
        while (from < end && (tokens_[from].word != "then" || tokens_[from].member)) ++from;
        return from;
    }

    void statement(std::size_t from, std::size_t end, std::vector<Statement>& into) {
        const std::string& word = tokens_[from].word;
        if (tokens_[from].kind != VbTokenKind::Word) return into.push_back(make(StatementKind::Plain));
        if (word == "end") {
            const BlockKind block = isWord(from + 1, end) ? blockOf(tokens_[from + 1].word) : BlockKind::None;
            const bool closes = block != BlockKind::None && block != BlockKind::For &&
                                block != BlockKind::Do && block != BlockKind::While;
            return into.push_back(
                make(closes ? StatementKind::Close : StatementKind::Plain, closes ? block : BlockKind::None));
        }
        std::size_t head = from;
        while (isWord(head, end) &&
               isOneOf(tokens_[head].word, {"public", "private", "friend", "global", "static"}))
            ++head;
        if (isWord(head, end)) {
            const std::string& kind = tokens_[head].word;
            const bool bare = head == from;
            const bool named = head + 1 < end && (tokens_[head + 1].kind == VbTokenKind::Word ||
                                                  tokens_[head + 1].kind == VbTokenKind::Name);
            const bool member = !named || tokens_[head + 1].word == "as";
            if (isOneOf(kind, {"sub", "function"})) {
                const bool opens = !(bare && members_.inside()) || (!member && isWord(head + 1, end));
                return into.push_back(opens ? make(StatementKind::Open, blockOf(kind))
                                            : make(StatementKind::Plain));
            }
            if (isOneOf(kind, {"type", "enum"})) {
                return into.push_back(member ? make(StatementKind::Plain)
                                             : make(StatementKind::Open, blockOf(kind)));
            }
            if (kind == "property") {
                const bool opens =
                    isWord(head + 1, end) && isOneOf(tokens_[head + 1].word, {"get", "let", "set"});
                return into.push_back(opens ? make(StatementKind::Open, BlockKind::Property)
                                            : make(StatementKind::Plain));
            }
        }
        if (head != from || members_.inside()) return into.push_back(make(StatementKind::Plain));
        if (word == "if") return ifStatement(from, end, into);
        if (word == "elseif") {
            into.push_back(make(StatementKind::Divide, BlockKind::If));
            const std::size_t behind = then(from + 1, end) + 1;
            if (behind < end) statement(behind, end, into);
        } else if (word == "else") {
            into.push_back(make(StatementKind::Divide, BlockKind::If));
            if (from + 1 < end) statement(from + 1, end, into);
        } else if (word == "endif") {
            into.push_back(make(StatementKind::Close, BlockKind::If));
        } else if (word == "case") {
            into.push_back(make(StatementKind::Divide, BlockKind::Select));
        } else if (word == "loop") {
            into.push_back(make(StatementKind::Close, BlockKind::Do));
        } else if (word == "wend") {
            into.push_back(make(StatementKind::Close, BlockKind::While));
        } else if (word == "next") {
            const auto begin = tokens_.begin();
            const auto commas = std::count_if(
                begin + static_cast<std::ptrdiff_t>(from), begin + static_cast<std::ptrdiff_t>(end),
                [](const Token& t) { return t.kind == VbTokenKind::Mark && t.word == ","; });
            into.push_back(
                make(StatementKind::Close, BlockKind::For, static_cast<std::uint32_t>(commas) + 1));
        } else if (word == "select") {
            const bool opens = isWord(from + 1, end) && tokens_[from + 1].word == "case";
            into.push_back(opens ? make(StatementKind::Open, BlockKind::Select) : make(StatementKind::Plain));
        } else if (isOneOf(word, {"for", "do", "while", "with"})) {
            into.push_back(make(StatementKind::Open, blockOf(word)));
        } else {
            into.push_back(make(StatementKind::Plain));
        }
    }

    // A one-line If takes the rest of the line.
    void ifStatement(std::size_t from, std::size_t end, std::vector<Statement>& into) {
        const std::size_t behind = then(from + 1, end) + 1;
        if (behind > end) return into.push_back(make(StatementKind::Plain));
        std::size_t next = behind;
        if (next == end && next < tokens_.size()) ++next; // the colon of `Then:`
        at_ = tokens_.size();
        if (next < tokens_.size()) return into.push_back(make(StatementKind::Plain));
        if (next == behind && !remark_) return into.push_back(make(StatementKind::Open, BlockKind::If));
        into.push_back(make(StatementKind::Unclear));
    }

    Statement directive() const {
        const std::string word =
            tokens_.size() > 1 && tokens_[1].kind == VbTokenKind::Word ? tokens_[1].word : "";
        const std::string second =
            tokens_.size() > 2 && tokens_[2].kind == VbTokenKind::Word ? tokens_[2].word : "";
        if (word == "if") return make(StatementKind::Open, BlockKind::Directive);
        if (word == "else" || word == "elseif") return make(StatementKind::Divide, BlockKind::Directive);
        if (word == "endif" || (word == "end" && second == "if"))
            return make(StatementKind::Close, BlockKind::Directive);
        return make(StatementKind::Plain);
    }

    Tokens tokens_;
    bool mayDirect_;
    bool remark_;
    Members& members_;
    std::size_t at_ = 0;
};

} // namespace

void Members::take(const Statement& statement) {
    const bool list = statement.block == BlockKind::Type || statement.block == BlockKind::Enum;
    if (statement.block == BlockKind::Directive) return;
    if (statement.kind == StatementKind::Open) inside_ = list;
    if (statement.kind == StatementKind::Close && list) inside_ = false;
}

std::optional<std::vector<LogicalLine>> read(const std::vector<std::string_view>& lines) {
    std::vector<LogicalLine> result;
    Members members;
    for (std::uint32_t at = 0; at < lines.size();) {
        LogicalLine logical{at, at, false, false, {}};
        Tokens tokens;
        bool mayDirect = false, remark = false;
        int hashes = 0, ownHashes = 0;
        VbLineState state = VbLineState::Fresh;
        do {
            const std::string_view line = lines[at++];
            VbLexer lexer(line, state);
            std::size_t past = 0;
            for (VbToken token = lexer.next(); token.kind != VbTokenKind::End; token = lexer.next()) {
                if (token.kind == VbTokenKind::Verbatim) return std::nullopt;
                if (token.kind == VbTokenKind::Literal &&
                    std::count(token.text.begin(), token.text.end(), '"') % 2 != 0)
                    return std::nullopt;
                if (token.kind == VbTokenKind::Name && (token.text.back() != ']' || token.text.size() < 2))
                    return std::nullopt;
                if (token.text.find('[', token.kind == VbTokenKind::Word ? 0 : 1) != std::string_view::npos &&
                    token.kind == VbTokenKind::Word)
                    return std::nullopt;
                if (token.kind == VbTokenKind::Comment) {
                    const bool begins = !(state == VbLineState::Comment && token.position == 0);
                    const bool rem = begins && line[token.position] != '\'';
                    if (rem && !tokens.empty() && isOneOf(tokens.back().word, {"then", "else"}) &&
                        (members.inside() || !isOneOf(tokens[0].word, {"if", "elseif", "else"})))
                        return std::nullopt;
                    remark = remark || rem;
                    continue;
                }
                Token mine{token.kind, small(token.text)};
                if (mine.word == "rem") return std::nullopt; // `Rem:`, `Rem'x`
                mine.newLine = past == 0;
                mine.touches = !mine.newLine && token.position == past;
                const bool behindMark = !tokens.empty() && tokens.back().kind == VbTokenKind::Mark &&
                                        (tokens.back().word == "." || tokens.back().word == "!");
                mine.member = behindMark && (mine.touches || (mine.newLine && tokens.back().word == "."));
                if (mine.word == "#" && (!tokens.empty() || at != logical.begin + 1)) {
                    ++hashes;
                    ownHashes += token.glued ? 0 : 1;
                }
                past = token.position + token.text.size();
                if (tokens.empty()) mayDirect = at == logical.begin + 1;
                tokens.push_back(std::move(mine));
            }
            state = lexer.stateAfter();
        } while (state != VbLineState::Fresh && at < lines.size());
        if (ownHashes > 0 && hashes > 1) return std::nullopt;
        logical.end = at;
        Line(std::move(tokens), mayDirect, remark, members).read(logical);
        result.push_back(std::move(logical));
    }
    return result;
}

} // namespace plain
