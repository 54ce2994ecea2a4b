#include "ide/workspace/declarations.h"

#include "base/text.h"

#include <algorithm>
#include <initializer_list>

namespace corvelle::workspace {

namespace {

// Takes the next part of a dotted name off the text; empty when there is none.
std::string_view takeNamePart(std::string_view& text) {
    std::string_view part;
    if (!text.empty() && text[0] == '[') {
        const auto close = text.find(']');
        if (close == std::string_view::npos) return {};
        part = text.substr(1, close - 1);
        text.remove_prefix(close + 1);
    } else {
        const auto size = base::nameLength(text);
        part = text.substr(0, size);
        text.remove_prefix(size);
    }
    return part;
}

} // namespace

AttributeLine readAttributeLine(std::string_view line) {
    constexpr std::string_view word = "Attribute";
    std::string_view rest = base::withoutLeadingBlanks(line);
    if (!base::startsWithIgnoringCase(rest, word)) return {};
    rest.remove_prefix(word.size());
    if (rest.empty() || !base::isBlank(rest[0])) return {};
    rest = base::withoutLeadingBlanks(rest);

    AttributeLine result;
    result.name = takeNamePart(rest);
    while (!result.name.empty() && !rest.empty() && rest[0] == '.') {
        if (result.member.empty()) result.member = result.name;
        rest.remove_prefix(1);
        result.name = takeNamePart(rest);
    }
    if (!base::startsWithIgnoringCase(result.name, "VB_")) return {};
    rest = base::withoutLeadingBlanks(rest);
    if (rest.empty() || rest[0] != '=') return {};
    result.value = rest.substr(1);
    result.found = true;
    return result;
}

namespace {

using base::equalIgnoringCase;

// Whether the line goes on in the next one: it ends in an underscore behind a blank.
bool isContinued(std::string_view line) {
    while (!line.empty() && base::isBlank(line.back())) line.remove_suffix(1);
    return !line.empty() && line.back() == '_' && (line.size() == 1 || base::isBlank(line[line.size() - 2]));
}

// The length of the piece of code at the text's beginning that must be read as one: a literal or a
// bracketed name, else one character.
std::size_t pieceLength(std::string_view text) {
    const char close = text[0] == '"' ? '"' : text[0] == '[' ? ']' : '\0';
    if (close == '\0') return 1;
    return std::min(text.find(close, 1), text.size() - 1) + 1;
}

// Takes the next word off the text: a name, with its brackets taken away, or nothing.
std::string_view takeName(std::string_view& text) {
    text = base::withoutLeadingBlanks(text);
    std::string_view name;
    if (!text.empty() && text[0] == '[') {
        const auto size = pieceLength(text);
        name = text.substr(1, size - 2);
        text.remove_prefix(size);
        return name;
    }
    const auto size = base::nameLength(text);
    name = text.substr(0, size);
    text.remove_prefix(size);
    return name;
}

bool isOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
    return std::any_of(words.begin(), words.end(), [&](auto one) { return equalIgnoringCase(word, one); });
}

} // namespace

void Declarations::read(std::string_view line) {
    if (isContinued(line)) {
        begun_.append(line.substr(0, line.rfind('_')));
    } else if (begun_.empty()) {
        readStatements(line);
    } else {
        begun_.append(line);
        readStatements(begun_);
        begun_.clear();
    }
    ++lines_;
}

void Declarations::readStatements(std::string_view text) {
    std::size_t begin = 0, at = 0;
    for (; at < text.size() && text[at] != '\''; at += pieceLength(text.substr(at))) {
        if (text[at] != ':') continue;
        std::string_view statement = text.substr(begin, at - begin);
        readStatement(statement);
        if (equalIgnoringCase(takeName(statement), "Rem")) return;
        begin = at + 1;
    }
    readStatement(text.substr(begin, at - begin));
}

void Declarations::readStatement(std::string_view statement) {
    std::string_view rest = statement;
    std::string_view word = takeName(rest);
    if (equalIgnoringCase(word, "End")) {
        if (endsBlock(takeName(rest))) block_ = Block::None;
        return;
    }
    if (block_ == Block::Type || block_ == Block::Enum) return;

    bool hasModifier = false;
    std::string_view names = statement;
    while (isOneOf(word, {"Public", "Private", "Friend", "Global", "Static", "Dim"})) {
        hasModifier = true;
        names = rest;
        word = takeName(rest);
    }
    // A procedure's head counts inside a procedure too: conditional compilation may give one body two heads.
    if (isOneOf(word, {"Sub", "Function"})) {
        add(takeName(rest));
        block_ = Block::Procedure;
    } else if (equalIgnoringCase(word, "Property")) {
        if (!isOneOf(takeName(rest), {"Get", "Let", "Set"})) return;
        add(takeName(rest));
        block_ = Block::Procedure;
    } else if (block_ == Block::None) {
        readDeclaration(word, rest, hasModifier ? names : std::string_view());
    }
}

bool Declarations::endsBlock(std::string_view word) const {
    switch (block_) {
    case Block::Procedure:
        return isOneOf(word, {"Sub", "Function", "Property"});
    case Block::Type:
        return equalIgnoringCase(word, "Type");
    case Block::Enum:
        return equalIgnoringCase(word, "Enum");
    case Block::None:
        break;
    }
    return false;
}

void Declarations::readDeclaration(std::string_view word, std::string_view rest, std::string_view variables) {
    if (equalIgnoringCase(word, "Declare")) {
        if (isOneOf(takeName(rest), {"Sub", "Function"})) add(takeName(rest));
    } else if (equalIgnoringCase(word, "Event")) {
        add(takeName(rest));
    } else if (equalIgnoringCase(word, "Type")) {
        add(takeName(rest));
        block_ = Block::Type;
    } else if (equalIgnoringCase(word, "Enum")) {
        add(takeName(rest));
        block_ = Block::Enum;
    } else {
        readNames(equalIgnoringCase(word, "Const") ? rest : variables);
    }
}

void Declarations::readNames(std::string_view list) {
    while (!list.empty()) {
        auto name = takeName(list);
        if (equalIgnoringCase(name, "WithEvents")) name = takeName(list);
        add(name);
        // Bounds, types and values may hold commas of their own.
        std::size_t at = 0;
        for (int depth = 0; at < list.size() && (list[at] != ',' || depth > 0);
             at += pieceLength(list.substr(at))) {
            if (list[at] == '(') ++depth;
            if (list[at] == ')') --depth;
        }
        list.remove_prefix(std::min(at + 1, list.size()));
    }
}

void Declarations::add(std::string_view name) {
    if (name.empty()) return;
    auto& ends = ends_[base::upper(name)];
    if (ends.empty() || ends.back() != lines_) ends.push_back(lines_);
}

const std::vector<std::uint32_t>& Declarations::endsOf(std::string_view name) const {
    static const std::vector<std::uint32_t> none;
    const auto found = ends_.find(base::upper(name));
    return found != ends_.end() ? found->second : none;
}

} // namespace corvelle::workspace
