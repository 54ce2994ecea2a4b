// The check that follows a formatting, against a second reading of Visual Basic that is written for
// nothing but to be plain: the whole module at once, joined and cut into tokens that are stored as text.

#include "formatter/token_check.h"
#include "vocabulary.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

using corvelle::formatter::TokenCheck;
using corvelle::formatter::TokenCheckOptions;

namespace {

bool blank(char c) {
    return c == ' ' || c == '\t';
}

bool letter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           static_cast<unsigned char>(c) > 127;
}

bool suffix(char c) {
    return std::string("%&!#@$.").find(c) != std::string::npos;
}

std::string trimmed(std::string text) {
    while (!text.empty() && blank(text.back())) text.pop_back();
    while (!text.empty() && blank(text.front())) text.erase(0, 1);
    return text;
}

std::vector<std::string> split(const std::string& text, const std::string& ends) {
    std::vector<std::string> lines(1);
    for (const char c : text) {
        if (ends.find(c) == std::string::npos) {
            lines.back() += c;
        } else {
            lines.emplace_back();
        }
    }
    return lines;
}

// A module's tokens: comments as `'text` for each of their lines, statement ends as "\n", where blanks
// matter "~" before a token that touches the one before it. A lone CR ends a line.
std::vector<std::string> plainTokens(const std::vector<std::string>& lines, bool withComments) {
    std::vector<std::string> tokens;
    std::string last;       // the statement's last token
    bool lastHolds = false; // an operand ends there: a type suffix or a dot behind it would belong to it
    bool begins = true;     // a statement begins: what is `Rem` here is a comment's mark
    bool inComment = false;
    const auto endStatement = [&] {
        if (!tokens.empty() && tokens.back() != "\n") tokens.emplace_back("\n");
        last.clear();
        begins = true;
        inComment = false;
    };
    for (const std::string& given : lines) {
        for (std::string line : split(given, "\r")) {
            const std::string whole = line;
            bool joined = false;
            while (!line.empty() && blank(line.back())) line.pop_back();
            if (!line.empty() && line.back() == '_' && (line.size() == 1 || blank(line[line.size() - 2]))) {
                joined = true;
                line.pop_back();
            }
            std::size_t i = 0;
            bool apart = true;
            if (inComment) {
                // An empty line of a comment that goes on says nothing: it may go.
                if (withComments && !trimmed(line).empty()) tokens.push_back("'" + trimmed(line));
                i = line.size();
            }
            while (i < line.size()) {
                const char c = line[i];
                if (blank(c)) {
                    apart = true;
                    ++i;
                    continue;
                }
                std::string token;
                bool touches = false;
                bool holds = true;
                const bool afterSuffix = last.size() == 1 && suffix(last[0]);
                bool beginsAnother = c == ':';
                if (c == '\'') {
                    if (withComments) tokens.push_back("'" + trimmed(line.substr(i + 1)));
                    inComment = true;
                    break;
                }
                if (letter(c)) {
                    while (i < line.size() &&
                           (letter(line[i]) || (line[i] == '[' && !token.empty() &&
                                                static_cast<unsigned char>(token.back()) > 127))) {
                        token += line[i++];
                    }
                    std::string lower = token;
                    for (char& letterOfWord : lower) {
                        if (letterOfWord >= 'A' && letterOfWord <= 'Z') letterOfWord += 'a' - 'A';
                    }
                    const bool rem = lower == "rem";
                    if (rem && begins && (i == line.size() || blank(line[i]))) {
                        if (withComments) tokens.push_back("'" + trimmed(line.substr(i)));
                        inComment = true;
                        break;
                    }
                    touches = afterSuffix;
                    const bool member = last == "." || last == "!";
                    const bool number = token.find_first_not_of("0123456789") == std::string::npos;
                    beginsAnother =
                        (!member && (lower == "then" || lower == "else")) || (last.empty() && number);
                } else if (c == '"') {
                    bool closed = false;
                    token = whole[i++];
                    while (i < whole.size() && !closed) {
                        token += whole[i++];
                        if (token.back() != '"') continue;
                        if (i < whole.size() && whole[i] == '"') {
                            token += whole[i++];
                        } else {
                            closed = true;
                        }
                    }
                } else if (c == '[') {
                    token = whole[i++];
                    while (i < whole.size() && token.back() != ']') token += whole[i++];
                    touches = afterSuffix;
                } else {
                    token = line[i++];
                    touches = suffix(c) && lastHolds;
                    holds = c == ')' || (touches && !apart);
                }
                tokens.push_back((touches && !apart ? "~" : "") + token);
                last = token;
                begins = beginsAnother;
                lastHolds = holds;
                apart = false;
            }
            if (!joined) endStatement();
        }
    }
    endStatement();
    return tokens;
}

void fail(const char* what, const std::vector<std::string>& oldLines, const std::string& detail) {
    std::fprintf(stderr, "%s: %s\n", what, detail.c_str());
    for (const std::string& line : oldLines) std::fprintf(stderr, "| %s\n", line.c_str());
    std::abort();
}

std::string withoutTabs(const std::string& line) {
    std::string text;
    for (const char c : line) {
        if (c != '\t') text += c;
    }
    while (!text.empty() && text.back() == ' ') text.pop_back();
    while (!text.empty() && text.front() == ' ') text.erase(0, 1);
    return text;
}

// What becomes of a line, by a byte of the input; nothing for a line left out.
std::optional<std::string> changed(const std::string& line, std::uint8_t choice,
                                   const std::string& nextLine) {
    const std::size_t place = line.empty() ? 0 : (choice / 8u) % line.size();
    switch (choice % 8) {
    case 0:
        return line.substr(0, place);
    case 1:
        return std::nullopt;
    case 2: {
        const std::string text = withoutTabs(line);
        return text.substr(0, text.find('\''));
    }
    case 3:
        return line.substr(0, place) + line.substr(line.empty() ? 0 : place + 1);
    case 4:
        return nextLine;
    case 5:
        return trimmed(line);
    default:
        return withoutTabs(line);
    }
}

void leadingBlanksMayChange(const std::vector<std::string>& lines, TokenCheckOptions options) {
    TokenCheck check(options);
    for (const std::string& line : lines) {
        std::size_t blanks = 0;
        while (blanks < line.size() && blank(line[blanks])) ++blanks;
        const auto loss = check.kept(line, line.substr(blanks), static_cast<std::int32_t>(blanks));
        if (loss) fail("reported although only indentation changed", lines, *loss);
    }
}

void whatIsSafeHasEqualTokens(const std::vector<std::string>& lines, const std::string& choices,
                              TokenCheckOptions options) {
    TokenCheck check(options);
    std::vector<std::string> newLines;
    bool safe = true;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const auto choice = static_cast<std::uint8_t>(choices.empty() ? 6 : choices[i % choices.size()]);
        const auto text = changed(lines[i], choice, lines[(i + 1) % lines.size()]);
        const auto loss = text ? check.kept(lines[i], *text, choice) : check.dropped(lines[i]);
        if (text) newLines.push_back(std::string(choice, ' ') + *text);
        if (!loss) continue;
        safe = false;
        if (loss->empty() || loss->size() > 200) fail("not a short message", lines, *loss);
        for (const char c : *loss) {
            if (static_cast<unsigned char>(c) < 32) fail("not one line", lines, *loss);
        }
    }
    if (!safe) return;
    const auto was = plainTokens(lines, !options.commentsMayGo);
    const auto is = plainTokens(newLines, !options.commentsMayGo);
    if (was == is) return;
    std::size_t i = 0;
    while (i < was.size() && i < is.size() && was[i] == is[i]) ++i;
    fail("called safe", lines,
         "token " + (i < was.size() ? was[i] : "(end)") + " became " + (i < is.size() ? is[i] : "(end)"));
}

} // namespace

// The first line of the input says what becomes of the lines, the rest is the module.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<std::string> lines = split(std::string(data, data + size), "\n");
    const std::string choices = lines.front();
    lines.erase(lines.begin());
    if (lines.empty()) return 0;
    for (const bool commentsMayGo : {false, true}) {
        leadingBlanksMayChange(lines, {commentsMayGo});
        whatIsSafeHasEqualTokens(lines, choices, {commentsMayGo});
    }
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    return mutateLines(data, size, maxSize, seed, vocabulary::code);
}
