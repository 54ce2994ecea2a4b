#include "settings/glob.h"

#include <algorithm>
#include <charconv>

namespace corvelle::settings {

namespace {

struct Character {
    std::uint32_t code;
    std::size_t length;
};

// The UTF-8 character at a position; a byte that begins none is one of its own.
Character characterAt(std::string_view text, std::size_t at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const std::uint32_t first = byte(at);
    const std::size_t length = first < 0xC2 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : first < 0xF5 ? 4 : 1;
    constexpr std::uint32_t noCharacter = 0x110000;
    if (length == 1) return {first < 0x80 ? first : noCharacter + first, 1};
    std::uint32_t code = first & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if (at + i >= text.size() || (byte(at + i) & 0xC0U) != 0x80) return {noCharacter + first, 1};
        code = code << 6 | (byte(at + i) & 0x3FU);
    }
    return {code, length};
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr std::size_t mostDigits = 18; // what a 64-bit number surely holds

// Reads a whole number with an optional sign; its length, 0 if there is none.
std::size_t readInteger(std::string_view text, std::int64_t& value) {
    const std::size_t sign = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
    std::size_t end = sign;
    while (end < text.size() && isDigit(text[end])) ++end;
    if (end == sign || end - sign > mostDigits) return 0;
    std::from_chars(text.data() + sign, text.data() + end, value);
    if (text[0] == '-') value = -value;
    return end;
}

} // namespace

struct Glob::Token {
    enum class Kind : std::uint8_t { Literal, Question, Star, DoubleStar, Set, Number, Open, Comma, Close };
    Kind kind;
    char character;
    std::size_t index = 0;    // of the set or the number
    bool afterSlash = false;  // of a double star: it begins a part of the path
    bool beforeSlash = false; // and ends it
};

Glob::Glob(std::string_view pattern) {
    const bool anchored = pattern.find('/') != std::string_view::npos;
    if (!pattern.empty() && pattern.front() == '/') pattern.remove_prefix(1);
    std::vector<Token> tokens = read(pattern);
    pairBraces(tokens);
    forName_ = !anchored && std::none_of(tokens.begin(), tokens.end(), [this](const Token& token) {
        const bool without = token.kind == Token::Kind::Set && sets_[token.index].without;
        return without || token.kind == Token::Kind::DoubleStar;
    });
    if (!anchored && !forName_) addOptionalFolders();
    compile(tokens);
}

std::vector<Glob::Token> Glob::read(std::string_view pattern) {
    std::vector<Token> tokens;
    using Kind = Token::Kind;
    for (std::size_t at = 0; at < pattern.size();) {
        const char c = pattern[at];
        if (c == '\\' && at + 1 < pattern.size()) {
            tokens.push_back({Kind::Literal, pattern[at + 1]});
            at += 2;
        } else if (c == '*') {
            const bool afterSlash = at == 0 || pattern[at - 1] == '/';
            const std::size_t end = std::min(pattern.find_first_not_of('*', at), pattern.size());
            const bool beforeSlash = end < pattern.size() && pattern[end] == '/';
            const Kind kind = end - at > 1 ? Kind::DoubleStar : Kind::Star;
            // Three stars are two and one.
            tokens.push_back({kind, c, 0, afterSlash && end - at == 2, beforeSlash});
            at = end;
        } else if (const std::size_t set = c == '[' ? readSet(pattern, at) : 0; set != 0) {
            tokens.push_back({Kind::Set, c, sets_.size() - 1});
            at += set;
        } else if (const std::size_t number = c == '{' ? readNumber(pattern, at) : 0; number != 0) {
            tokens.push_back({Kind::Number, c, numbers_.size() - 1});
            at += number;
        } else {
            const Kind kind = c == '?'   ? Kind::Question
                              : c == '{' ? Kind::Open
                              : c == ',' ? Kind::Comma
                              : c == '}' ? Kind::Close
                                         : Kind::Literal;
            tokens.push_back({kind, c});
            ++at;
        }
    }
    return tokens;
}

// A set's length in the pattern; 0 for a bracket that is one of the characters, since a slash follows in it.
std::size_t Glob::readSet(std::string_view pattern, std::size_t at) {
    Set set;
    std::size_t i = at + 1;
    if (i < pattern.size() && pattern[i] == '!') {
        set.without = true;
        ++i;
    }
    std::vector<std::pair<std::uint32_t, bool>> characters; // and whether it was escaped
    for (const std::size_t first = i;;) {
        if (i >= pattern.size()) {
            never_ = true;
            return 0;
        }
        if (pattern[i] == '/') return 0;
        if (pattern[i] == ']' && i != first) break;
        const bool escaped = pattern[i] == '\\' && i + 1 < pattern.size();
        if (escaped) ++i;
        const Character character = characterAt(pattern, i);
        characters.emplace_back(character.code, escaped);
        i += character.length;
    }
    for (std::size_t k = 0; k < characters.size(); ++k) {
        const bool range =
            k + 2 < characters.size() && characters[k + 1] == std::pair<std::uint32_t, bool>('-', false);
        set.ranges.emplace_back(characters[k].first, characters[range ? k + 2 : k].first);
        if (range) k += 2;
    }
    sets_.push_back(std::move(set));
    return i + 1 - at;
}

// The length of a range of numbers in the pattern; 0 if there is none.
std::size_t Glob::readNumber(std::string_view pattern, std::size_t at) {
    Number number{};
    const std::size_t from = readInteger(pattern.substr(at + 1), number.from);
    if (from == 0 || pattern.substr(at + 1 + from, 2) != "..") return 0;
    const std::size_t to = readInteger(pattern.substr(at + 3 + from), number.to);
    const std::size_t end = at + 3 + from + to;
    if (to == 0 || end >= pattern.size() || pattern[end] != '}') return 0;
    numbers_.push_back(number);
    return end + 1 - at;
}

// Makes characters of the braces that open no choice, and of the commas that stand in none.
void Glob::pairBraces(std::vector<Token>& tokens) {
    using Kind = Token::Kind;
    const auto count = [&](Kind kind) {
        return std::count_if(tokens.begin(), tokens.end(),
                             [&](const Token& token) { return token.kind == kind; });
    };
    const bool balanced = count(Kind::Open) == count(Kind::Close);
    struct Brace {
        std::size_t at;
        std::vector<std::size_t> commas;
    };
    std::vector<Brace> open;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        Token& token = tokens[i];
        if (token.kind == Kind::Open) {
            open.push_back({i, {}});
            token.kind = Kind::Literal; // until it has closed
        } else if (token.kind == Kind::Comma) {
            if (!open.empty()) open.back().commas.push_back(i);
            token.kind = Kind::Literal;
        } else if (token.kind == Kind::Close) {
            token.kind = Kind::Literal;
            if (open.empty()) continue;
            const Brace brace = std::move(open.back());
            open.pop_back();
            if (!balanced || brace.commas.empty()) continue;
            token.kind = Kind::Close;
            tokens[brace.at].kind = Kind::Open;
            for (const std::size_t comma : brace.commas) tokens[comma].kind = Kind::Comma;
        }
    }
}

void Glob::add(Kind kind, char character, std::size_t index) {
    nodes_.push_back({kind, character, static_cast<std::uint32_t>(index)});
}

// Nothing, or any text up to a slash.
void Glob::addOptionalFolders() {
    const auto next = static_cast<std::uint32_t>(nodes_.size()) + 1;
    choices_.push_back({next, next + 2});
    add(Kind::Choice, 0, choices_.size() - 1);
    add(Kind::Anything);
    add(Kind::Character, '/');
}

void Glob::compile(const std::vector<Token>& tokens) {
    struct Open {
        std::size_t choice;
        std::vector<std::size_t> jumps;
    };
    std::vector<Open> open;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const Token& token = tokens[i];
        const auto here = [this] { return static_cast<std::uint32_t>(nodes_.size()); };
        switch (token.kind) {
        case Token::Kind::Literal:
            add(Kind::Character, token.character);
            break;
        case Token::Kind::Question:
            add(Kind::AnyCharacter);
            break;
        case Token::Kind::Star:
            add(Kind::Name);
            break;
        case Token::Kind::DoubleStar:
            if (token.afterSlash && token.beforeSlash) {
                addOptionalFolders();
                ++i; // the slash
            } else {
                add(Kind::Anything);
            }
            break;
        case Token::Kind::Set:
            add(Kind::Set, 0, token.index);
            break;
        case Token::Kind::Number:
            add(Kind::Number, 0, token.index);
            break;
        case Token::Kind::Open:
            choices_.emplace_back();
            add(Kind::Choice, 0, choices_.size() - 1);
            open.push_back({choices_.size() - 1, {}});
            choices_.back().push_back(here());
            break;
        case Token::Kind::Comma:
            open.back().jumps.push_back(nodes_.size());
            add(Kind::Jump);
            choices_[open.back().choice].push_back(here());
            break;
        case Token::Kind::Close:
            for (const std::size_t jump : open.back().jumps) nodes_[jump].index = here();
            open.pop_back();
            break;
        }
    }
    add(Kind::End);
}

bool Glob::contains(const Set& set, std::uint32_t character) const {
    const bool found = std::any_of(set.ranges.begin(), set.ranges.end(), [character](const auto& range) {
        return range.first <= character && character <= range.second;
    });
    return found != set.without;
}

bool Glob::matches(std::string_view path) const {
    if (never_) return false;
    if (forName_) path.remove_prefix(path.rfind('/') + 1); // npos + 1 is 0
    struct State {
        std::uint32_t node;
        std::uint32_t at;
    };
    // Each pair of a node and a position is gone to once, whatever way leads there.
    std::vector<bool> met(nodes_.size() * (path.size() + 1));
    std::vector<State> waiting;
    const auto go = [&](std::size_t node, std::size_t at) {
        const std::size_t state = node * (path.size() + 1) + at;
        if (met[state]) return;
        met[state] = true;
        waiting.push_back({static_cast<std::uint32_t>(node), static_cast<std::uint32_t>(at)});
    };
    go(0, 0);
    while (!waiting.empty()) {
        const auto [index, at] = waiting.back();
        waiting.pop_back();
        const Node& node = nodes_[index];
        const bool more = at < path.size();
        switch (node.kind) {
        case Kind::Character:
            if (more && path[at] == node.character) go(index + 1, at + 1);
            break;
        case Kind::AnyCharacter:
            if (more && path[at] != '/') go(index + 1, at + characterAt(path, at).length);
            break;
        case Kind::Set:
            if (more) {
                const Character character = characterAt(path, at);
                if (contains(sets_[node.index], character.code)) go(index + 1, at + character.length);
            }
            break;
        case Kind::Name:
        case Kind::Anything:
            go(index + 1, at);
            if (more && (node.kind == Kind::Anything || path[at] != '/')) go(index, at + 1);
            break;
        case Kind::Choice:
            for (const std::uint32_t target : choices_[node.index]) go(target, at);
            break;
        case Kind::Jump:
            go(node.index, at);
            break;
        case Kind::Number: {
            const std::size_t sign = more && (path[at] == '+' || path[at] == '-') ? 1 : 0;
            const std::size_t first = at + sign;
            const bool zero = first < path.size() && path[first] == '0'; // with more digits it is no number
            for (std::size_t end = first + 1; end <= path.size() && isDigit(path[end - 1]); ++end) {
                std::int64_t value = 0;
                if (readInteger(path.substr(at, end - at), value) == 0) break;
                const Number& number = numbers_[node.index];
                if (number.from <= value && value <= number.to) go(index + 1, end);
                if (zero) break;
            }
            break;
        }
        case Kind::End:
            if (!more) return true;
            break;
        }
    }
    return false;
}

} // namespace corvelle::settings
