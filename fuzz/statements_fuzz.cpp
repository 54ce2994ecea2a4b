// The reader of statements on any lines: it tells of each line once, what it says of the line is so, it
// agrees with a plain second reading, and case, blanks and joined lines change no statement.
//
// Input: the module.

#include "formatter/structured/statements.h"
#include "plain_reading.h"
#include "require.h"
#include "structured_phrases.h"
#include "texts.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

using namespace corvelle::formatter::structured;

namespace {

using Told = std::vector<Statement>;

bool isRem(std::string_view text) {
    return text.size() >= 3 && wordOf(text.substr(0, 3)) == Word::Rem;
}

void checkLine(const StatementReader& reader, std::string_view line, bool joined) {
    require(reader.start() == pastBlanks(line, 0), "where the line begins");
    require(reader.joinsNext() == endsInJoin(line), "whether it joins the next one");
    require((reader.lineKind() == LineKind::Continuation) == joined, "what the line before joins goes on");
    if (!joined)
        require((reader.lineKind() == LineKind::Empty) == (reader.start() == line.size()), "emptiness");
    require(!reader.carriesComment() || (joined && reader.comment() == StatementReader::noComment),
            "a comment that is carried on begins in another line");
    const bool comment = reader.comment() != StatementReader::noComment;
    if (comment) {
        require(reader.comment() >= reader.start() && reader.comment() < line.size(),
                "a comment in the line");
        const std::string_view mark = line.substr(reader.comment());
        require(mark[0] == '\'' || isRem(mark), "a comment's mark");
    }
    if (reader.lineKind() == LineKind::Comment)
        require(comment && reader.comment() == reader.start(), "a comment alone");
}

// The statements of each logical line.
std::vector<Told> toldOf(const Texts& lines) {
    std::vector<Told> result;
    StatementReader reader;
    plain::Members members;
    bool joined = false;
    for (const std::string_view line : lines) {
        reader.begin(line);
        if (!joined) result.emplace_back();
        for (std::size_t i = 0;; ++i) {
            const Statement statement = reader.next(members.inside());
            if (statement.kind == StatementKind::None) break;
            require(i <= line.size(), "no statement twice");
            members.take(statement);
            result.back().push_back(statement);
        }
        require(reader.next(members.inside()).kind == StatementKind::None, "nothing behind the line's end");
        checkLine(reader, line, joined);
        joined = reader.joinsNext();
    }
    return result;
}

bool same(const Told& a, const Told& b, bool flags) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [flags](const Statement& x, const Statement& y) {
                          if (x.kind != y.kind || x.block != y.block || x.count != y.count) return false;
                          return !flags || (x.elseIf == y.elseIf && x.declares == y.declares &&
                                            x.handles == y.handles && x.remark == y.remark);
                      });
}

void show(const Told& told) {
    for (const Statement& each : told)
        std::fprintf(stderr, " %d/%d/%u", static_cast<int>(each.kind), static_cast<int>(each.block),
                     each.count);
    std::fputs("\n", stderr);
}

void requireSame(const Told& told, const Told& expected, std::string_view line, std::string_view what,
                 bool flags = true) {
    if (same(told, expected, flags)) return;
    std::fprintf(stderr, "in: %.*s\n", static_cast<int>(line.size()), line.data());
    show(told);
    show(expected);
    require(false, what);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Behind a line that joins the next one there is one.
    const std::string text = std::string(reinterpret_cast<const char*>(data), size) + "\n";
    const Texts lines = linesOf(text);
    const auto told = toldOf(lines);
    // In capitals.
    std::string capitals = text;
    for (char& c : capitals) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    const auto loud = toldOf(linesOf(capitals));
    require(loud.size() == told.size(), "as many logical lines in capitals");
    for (std::size_t i = 0; i < told.size(); ++i)
        requireSame(loud[i], told[i], {}, "letter case means nothing");

    const auto reading = plain::read(lines);
    if (!reading) return 0;
    require(reading->size() == told.size(), "as many logical lines");
    for (std::size_t i = 0; i < told.size(); ++i)
        requireSame(told[i], (*reading)[i].statements, lines[(*reading)[i].begin], "as read plainly", false);

    // With more blanks, and with lines joined at each blank.
    for (const auto& logical : *reading) {
        if (logical.end != logical.begin + 1) continue;
        const std::string_view line = lines[logical.begin];
        if (line.find_first_of("\"[#'") != std::string_view::npos) continue;
        std::string wide, joined;
        const std::size_t start = pastBlanks(line, 0);
        for (std::size_t at = 0; at < line.size(); ++at) {
            wide += line[at];
            joined += line[at];
            if (at < start || !isBlank(line[at])) continue;
            wide += '\t';
            const std::size_t next = pastBlanks(line, at);
            if (next < line.size() && line[at - 1] != '.') joined += "_\n";
        }
        const Told& first = told[static_cast<std::size_t>(&logical - reading->data())];
        const auto wider = toldOf({wide}), parted = toldOf(linesOf(joined));
        // The line alone: not among a Type's members.
        const auto alone = toldOf({line});
        if (!same(alone[0], first, true)) continue;
        requireSame(wider[0], first, line, "blanks mean nothing");
        require(parted.size() == 1, "joined lines are one");
        requireSame(parted[0], first, line, "where a line is joined means nothing");
    }
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    static const Phrases phrases = vocabulary::structured();
    return mutateLines(data, size, maxSize, seed, phrases);
}
