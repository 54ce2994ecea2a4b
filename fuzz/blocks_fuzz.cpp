// The matching of blocks on any lines: what it tells hangs together, columns mean nothing to it, and where a
// plain reading with a stack finds the code balanced it finds no fault, and each line laid out stands by its
// block.
//
// Input: the module.

#include "formatter/structured/blocks.h"
#include "formatter/structured/structured.h"
#include "plain_reading.h"
#include "require.h"
#include "structured_phrases.h"
#include "texts.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

using namespace corvelle::formatter::structured;

namespace {

constexpr std::uint32_t none = LineInfo::none;

void checkLines(const ModuleBlocks& blocks) {
    const auto count = static_cast<std::uint32_t>(blocks.lines.size());
    for (std::uint32_t i = 0; i < count; ++i) {
        const LineInfo& line = blocks.lines[i];
        require(line.parent == none || line.parent < i, "a line stands under one above it");
        require(line.parent == none || blocks.lines[line.parent].isCode(), "and that is code");
        require(line.around < blocks.arounds.size(), "what is around it is known");
        const Around& around = blocks.around(line);
        require(around.directive == none || around.directive < blocks.directives.size(), "its #If is one");
        require(around.within == none || (around.directive != none && around.within <= around.directive),
                "the #If that holds both is around the line's own");
        const std::uint32_t own = line.kind == LineKind::Directive ? blocks.ownDirective(i) : none;
        if (own != none) {
            require(blocks.directives[own].line <= i, "a directive's #If stands above it");
            require(line.kind == LineKind::Directive || line.joinsNext, "and it is a directive");
        }
        if (line.kind == LineKind::Continuation)
            require(i > 0 && blocks.lines[i - 1].joinsNext && blocks.lines[i - 1].held == line.held,
                    "a statement is held as a whole");
    }
    for (const Sample& sample : blocks.samples) {
        require(sample.opener < sample.child && sample.child < count, "a block begins above what it holds");
        if (blocks.lines[sample.child].held) continue;
        require(blocks.lines[sample.child].parent == sample.opener, "a sample stands under its opener");
        require(blocks.lines[sample.opener].kind == LineKind::Code &&
                    blocks.lines[sample.child].kind == LineKind::Code,
                "only lines that begin with a statement vote");
        require(blocks.lines[sample.child].depth == sample.depth, "a sample's key is its line's");
    }
    std::uint32_t last = 0;
    for (std::size_t i = 0; i < blocks.directives.size(); ++i) {
        const DirectiveBlock& block = blocks.directives[i];
        require(block.line < count && (i == 0 || block.line > last), "each #If in a line of its own");
        require(block.outer == none || block.outer < i, "an #If stands in one above it");
        require(block.child == none || block.child > block.line, "it holds what follows");
        last = block.line;
    }
    for (const Fault& fault : blocks.faults) {
        require(fault.line < count && (fault.other == none || fault.other < count),
                "a fault's places are lines");
    }
}

bool same(const ModuleBlocks& a, const ModuleBlocks& b) {
    const auto sameLine = [&](const LineInfo& x, const LineInfo& y) {
        const Around &p = a.around(x), &q = b.around(y);
        return x.parent == y.parent && p.directive == q.directive && p.within == q.within &&
               x.kind == y.kind && x.depth == y.depth && x.closes == y.closes && x.held == y.held &&
               x.off == y.off && x.keepEnd == y.keepEnd && x.joinsNext == y.joinsNext;
    };
    const auto sameFault = [](const Fault& x, const Fault& y) {
        return x.code == y.code && x.line == y.line && x.other == y.other && x.words == y.words;
    };
    return std::equal(a.lines.begin(), a.lines.end(), b.lines.begin(), b.lines.end(), sameLine) &&
           std::equal(a.faults.begin(), a.faults.end(), b.faults.begin(), b.faults.end(), sameFault) &&
           a.samples.size() == b.samples.size() && a.directives.size() == b.directives.size();
}

// Columns say nothing of blocks.
void checkOtherColumns(const Texts& lines, const ModuleBlocks& blocks) {
    std::vector<std::string> moved;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string_view text = lines[i].substr(blocks.lines[i].start);
        moved.push_back(std::string(text.empty() ? 0 : (i * 7) % 11 + 1, ' ').append(text));
    }
    require(same(readBlocks({moved.begin(), moved.end()}), blocks), "columns mean nothing to blocks");
}

// One module behind the other: nothing of the first one is left over. Of a fault something may be: its closer
// may still come.
void checkTwice(const Texts& lines, const ModuleBlocks& blocks) {
    if (!blocks.faults.empty() || blocks.lines.back().joinsNext || blocks.lines.back().off) return;
    Texts both = lines;
    both.push_back("x");
    if (readBlocks(both).lines.back().parent != none) return; // open under some condition
    both.pop_back();
    both.insert(both.end(), lines.begin(), lines.end());
    const ModuleBlocks twice = readBlocks(both);
    require(twice.faults.empty(), "no fault once more");
    const auto count = static_cast<std::uint32_t>(lines.size());
    const auto moved = [count](std::uint32_t place) { return place == none ? none : place + count; };
    for (std::uint32_t i = 0; i < count; ++i) {
        const LineInfo &once = blocks.lines[i], &again = twice.lines[i + count];
        require(again.parent == moved(once.parent) && again.depth == once.depth && again.held == once.held,
                "the same blocks once more");
    }
}

// What a stack makes of the plain reading: nothing where the code does not balance or a directive stands in
// it. Of each line the one that opens what its first statement closes or divides, or what holds it.
struct Expected {
    std::vector<std::uint32_t> partner;
    std::vector<bool> child; // it stands deeper than its partner
};

std::optional<Expected> expectedOf(const std::vector<plain::LogicalLine>& reading, std::size_t count) {
    struct Open {
        BlockKind kind;
        std::uint32_t line;
    };
    Expected expected{std::vector<std::uint32_t>(count, none), std::vector<bool>(count)};
    std::vector<Open> open;
    const auto isOuter = [](BlockKind kind) { return kind <= BlockKind::Enum && kind != BlockKind::None; };
    for (const auto& logical : reading) {
        if (logical.directive) return std::nullopt;
        bool leading = true, closing = true;
        const auto place = [&](std::uint32_t partner, bool child) {
            if (!logical.labelled) {
                expected.partner[logical.begin] = partner;
                expected.child[logical.begin] = child;
            }
            leading = false;
        };
        for (const Statement& statement : logical.statements) {
            switch (statement.kind) {
            case StatementKind::Close:
                for (std::uint32_t i = 0; i < statement.count; ++i) {
                    if (open.empty() || open.back().kind != statement.block) return std::nullopt;
                    if (leading || closing) place(open.back().line, false);
                    open.pop_back();
                }
                continue;
            case StatementKind::Divide:
                if (open.empty() || open.back().kind != statement.block) return std::nullopt;
                if (leading) place(open.back().line, statement.block == BlockKind::Select);
                break;
            case StatementKind::Open:
                if (isOuter(statement.block) != open.empty()) return std::nullopt;
                if (leading && !open.empty() && open.back().kind != BlockKind::Select)
                    place(open.back().line, true);
                leading = false;
                open.push_back({statement.block, logical.begin});
                break;
            case StatementKind::Unclear:
                return std::nullopt;
            default:
                if (leading && !open.empty() && open.back().kind != BlockKind::Select)
                    place(open.back().line, true);
                leading = false;
            }
            closing = false;
        }
    }
    return open.empty() ? std::optional(expected) : std::nullopt;
}

void checkBalanced(const Texts& lines, const ModuleBlocks& blocks) {
    const auto reading = plain::read(lines);
    if (!reading) return;
    const auto expected = expectedOf(*reading, lines.size());
    if (!expected) return;
    require(blocks.faults.empty(), "no fault in what balances");
    StructuredOptions options;
    options.style.tabs = false;
    options.style.unit = 3;
    options.style.tabWidth = 4;
    options.style.procedure = options.style.declarations = options.style.onError = options.style.type =
        options.style.caseBody = options.style.withBody = Body::Indent;
    const auto result = formatStructured(lines, options);
    const auto column = [&](std::uint32_t i) {
        std::string text;
        result.lines[i].appendTo(text, lines[i], result.style);
        return columnAfter(text, pastBlanks(text, 0), 4);
    };
    for (std::uint32_t i = 0; i < lines.size(); ++i) {
        const std::uint32_t partner = expected->partner[i];
        if (partner == none || blocks.lines[i].off || blocks.lines[partner].off) continue;
        if (blocks.lines[partner].kind == LineKind::Numbered) continue;
        if (!result.notices.empty()) return; // lines without room
        const bool lone = [&] {
            const std::string_view text = lines[i].substr(blocks.lines[i].start);
            return text.substr(0, lengthWithoutBlanks(text)) == "_";
        }();
        if (lone) continue;
        const bool right = expected->child[i] ? column(i) > column(partner) : column(i) == column(partner);
        if (!right) std::fprintf(stderr, "line %u by line %u\n", i + 1, partner + 1);
        require(right, "a line stands by its block");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Texts lines = linesOf({reinterpret_cast<const char*>(data), size});
    const ModuleBlocks blocks = readBlocks(lines);
    require(blocks.lines.size() == lines.size(), "a place for each line");
    require(same(readBlocks(lines), blocks), "the same again");
    checkLines(blocks);
    checkOtherColumns(lines, blocks);
    checkTwice(lines, blocks);
    checkBalanced(lines, blocks);
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    static const Phrases phrases = vocabulary::structured();
    return mutateLines(data, size, maxSize, seed, phrases);
}
