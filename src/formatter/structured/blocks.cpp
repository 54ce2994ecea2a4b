#include "formatter/structured/blocks.h"

#include "formatter/structured/block_matcher.h"

#include <algorithm>
#include <utility>

namespace corvelle::formatter::structured {
namespace {

// Whether a comment's text is the word that turns the formatter off or on.
bool isSwitch(std::string_view line, std::string_view wanted) {
    std::size_t at = pastBlanks(line, 0);
    if (at >= line.size() || line[at] != '\'') return false;
    at = pastBlanks(line, at + 1);
    const std::string_view text = line.substr(at, std::max(lengthWithoutBlanks(line), at) - at);
    return text.size() == wanted.size() &&
           std::equal(text.begin(), text.end(), wanted.begin(),
                      [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a | 0x20 : a) == b; });
}

} // namespace

BlockMatcher::BlockMatcher(const base::TextLines& lines) : texts_(lines) {
    result_.lines.resize(lines.size());
    blocks_.reserve(lines.size() / 8 + 1);
    result_.samples.reserve(lines.size() / 8 + 1);
    blocks_.push_back({}); // the module
}

ModuleBlocks BlockMatcher::read(const LinesRead& linesRead) {
    for (line_ = 0; line_ < texts_.size(); ++line_) {
        readLine();
        if (closed_ && top_ == module && open_.empty() && !reader_.joinsNext() &&
            !finishLines(line_ + 1, linesRead)) {
            return std::move(result_);
        }
    }
    const auto count = static_cast<std::uint32_t>(texts_.size());
    while (top_ != module) unclosed(top_, "the module's end", none, count);
    for (; !open_.empty(); open_.pop_back()) {
        const std::uint32_t line = result_.directives[open_.back().index].line;
        fault("CV202", line, none, "the #If that begins here is not closed before the module's end");
        hold(line, count);
    }
    finishLines(count, linesRead);
    return std::move(result_);
}

// Nothing that follows can change the lines before `end`. False if nothing more is to be read.
bool BlockMatcher::finishLines(std::uint32_t end, const LinesRead& linesRead) {
    holdLines(finished_, end);
    finished_ = end;
    closed_ = false;
    return !linesRead || linesRead(result_, end);
}

void BlockMatcher::readLine() {
    const std::string_view text = texts_[line_];
    LineInfo& info = result_.lines[line_];
    reader_.begin(text);
    if (reader_.lineKind() != LineKind::Continuation) {
        logical_ = line_;
        placed_ = false;
        closing_ = true;
    }
    for (;;) {
        const Statement statement = reader_.next(inMembers());
        if (statement.kind == StatementKind::None) break;
        take(statement);
    }
    info.kind = reader_.lineKind();
    info.start = static_cast<std::uint32_t>(reader_.start());
    info.comment = reader_.comment();
    // Bits that share a byte: most lines have none, and leave it alone.
    if (reader_.joinsNext()) info.joinsNext = true;
    if (reader_.leftOpen()) info.keepEnd = true;
    if (!placed_ && info.kind != LineKind::Continuation) placeUnder(top_, line_, directive());
    if (info.kind == LineKind::Comment && !info.joinsNext) readSwitch(text);
    if (off_) info.off = true;
}

// A comment may turn the formatter off or on.
void BlockMatcher::readSwitch(std::string_view comment) {
    if (off_ ? !isSwitch(comment, "corvelle:on") : !isSwitch(comment, "corvelle:off")) return;
    off_ = !off_;
    result_.lines[line_].off = true; // both lines stay too
}

// The line stands in the block; the place of comments, of lines with a label alone and of empty lines
// too.
void BlockMatcher::placeUnder(std::uint32_t block, std::uint32_t line, std::uint32_t directive) {
    LineInfo& info = result_.lines[line];
    info.parent = blocks_[block].line;
    info.depth = blocks_[block].depth;
    info.around = directive == none ? 0 : aroundOf(directive, openAround(blocks_[block].directive));
}

std::uint32_t BlockMatcher::aroundOf(std::uint32_t directive, std::uint32_t within) {
    const Around& last = result_.arounds.back();
    if (last.directive != directive || last.within != within) result_.arounds.push_back({directive, within});
    return static_cast<std::uint32_t>(result_.arounds.size() - 1);
}

void BlockMatcher::placeBeside(LineInfo& info, std::uint32_t other) {
    info.parent = other;
    info.depth = Depth::Same;
    info.around = 0;
}

void BlockMatcher::placeBeside(std::uint32_t block) {
    LineInfo& info = result_.lines[logical_];
    placeBeside(info, blocks_[block].line);
    info.closes = true;
    placed_ = true;
    // An #If that begins with a closer stands by what it closes, or by the #If that opened that.
    if (open_.empty() || !open_.back().fresh) return;
    open_.back().fresh = false;
    if (blocks_[block].line > result_.directives[open_.back().index].line) return; // opened in it
    const std::uint32_t opened = blocks_[block].directive;
    const bool inClosed = opened != none && openAround(opened) != opened;
    result_.directives[open_.back().index].flush = true;
    placeBeside(result_.lines[result_.directives[open_.back().index].line],
                inClosed ? result_.directives[opened].line : blocks_[block].line);
}

// Of the #Ifs that are open now, the innermost one that is or holds the given one.
std::uint32_t BlockMatcher::openAround(std::uint32_t index) const {
    if (index == none || open_.empty()) return none;
    if (open_.back().index <= index) return open_.back().index;
    const auto next =
        std::upper_bound(open_.begin(), open_.end(), index,
                         [](std::uint32_t i, const OpenDirective& open) { return i < open.index; });
    return next == open_.begin() ? none : (next - 1)->index;
}

void BlockMatcher::take(const Statement& statement) {
    switch (statement.kind) {
    case StatementKind::Plain:
        if (reader_.lineKind() == LineKind::Directive) return placeDirective(none);
        placeChild(depthOf(statement));
        break;
    case StatementKind::Open:
        if (statement.block == BlockKind::Directive) return openDirective(statement);
        open(statement.block);
        break;
    case StatementKind::Divide:
        if (statement.block == BlockKind::Directive) return divideDirective(statement);
        divide(statement);
        break;
    case StatementKind::Close:
        if (statement.block == BlockKind::Directive) return closeDirective();
        for (std::uint32_t i = 0; i < statement.count; ++i) {
            if (!close(statement.block)) break;
        }
        return;
    case StatementKind::Unclear:
        placeChild();
        unclear(statement.remark);
        break;
    case StatementKind::None:
        break;
    }
    closing_ = false;
}

// A statement that stands directly in the innermost block.
void BlockMatcher::placeChild() {
    placeChild(top().depth);
}

void BlockMatcher::placeChild(Depth depth) {
    if (placed_) {
        top().sampled = true;
        return;
    }
    placed_ = true;
    placeUnder(top_, logical_, directive());
    result_.lines[logical_].depth = depth;
    if (!open_.empty()) {
        open_.back().fresh = false;
    } else if (top().sampled && depth == top().depth) {
        return; // as most statements do: the block has its sample
    }
    if (!beginsLine()) return;
    sample(depth);
    if (!open_.empty()) {
        DirectiveBlock& inner = result_.directives[open_.back().index];
        if (inner.child == none && top_ == open_.back().entry) inner.child = logical_;
    }
}

// Whether the statement begins its line and the line has no label.
bool BlockMatcher::beginsLine() const {
    const bool here = logical_ == line_;
    const LineKind kind = here ? reader_.lineKind() : result_.lines[logical_].kind;
    const std::size_t start = here ? reader_.start() : result_.lines[logical_].start;
    return kind == LineKind::Code && !off_ &&
           texts_[logical_][start] != '_'; // a lone joining mark is no beginning
}

// Declarations and On Error many authors leave in the header's column: of the body they tell nothing.
Depth BlockMatcher::depthOf(const Statement& statement) {
    const bool inProcedure = top().depth == Depth::Procedure;
    if (inProcedure && statement.declares) return Depth::Declaration;
    if (inProcedure && statement.handles) return Depth::OnError;
    return top().depth;
}

void BlockMatcher::sample(Depth depth) {
    Block& block = top();
    if (block.directive != directive() || !block.first) return;
    const bool ofBlock = depth != Depth::Declaration && depth != Depth::OnError;
    if (ofBlock && block.sampled) return;
    block.sampled = block.sampled || ofBlock;
    result_.samples.push_back({block.line, logical_, depth});
}

void BlockMatcher::open(BlockKind kind) {
    const std::uint16_t kinds = bit(kind);
    // What only a declaration or a header can follow is not closed.
    if (isProcedure(kinds) || (kinds & memberLists) != 0) endBefore(kind);
    const bool first = !placed_ && beginsLine();
    placeChild();
    push(kinds, first);
}

void BlockMatcher::push(std::uint16_t kinds, bool first) {
    Block block;
    block.below = top_;
    block.line = logical_;
    block.directive = directive();
    block.kinds = kinds;
    block.first = first;
    block.depth = depthIn(kinds);
    const bool procedure = isProcedure(kinds);
    block.procedure = procedure ? static_cast<std::uint32_t>(blocks_.size()) : top().procedure;
    block.open = static_cast<std::uint16_t>(kinds | (procedure ? 0 : top().open));
    top_ = static_cast<std::uint32_t>(blocks_.size());
    blocks_.push_back(block);
    if (procedure) forgiven_ = {};
}

// A procedure, a Type or an Enum begins: whatever is still open should have been closed.
void BlockMatcher::endBefore(BlockKind kind) {
    while (top_ != module) unclosed(top_, "the " + nameOf(bit(kind)), logical_, logical_);
}

// The block ends without its closer. `before` is what comes instead; lines from `end` on are none of its.
void BlockMatcher::unclosed(std::uint32_t index, const std::string& before, std::uint32_t other,
                            std::uint32_t end) {
    const Block& block = blocks_[index];
    const std::uint32_t procedure = block.procedure;
    const bool closesWithIt = block.optional || (block.kinds & bit(BlockKind::Case)) != 0;
    if (!closesWithIt) {
        fault("CV202", block.line, other,
              "the " + nameOf(block.kinds) + " that begins here is not closed before " + before);
        if (procedure == module) {
            hold(block.line, end);
        } else {
            blocks_[procedure].faulty = true;
        }
    }
    if (index == procedure && index != module && blocks_[index].faulty) hold(block.line, end);
    top_ = block.below;
}

void BlockMatcher::divide(const Statement& statement) {
    const bool isCase = statement.block == BlockKind::Select;
    const std::uint16_t wanted = bit(statement.block);
    if ((top().open & wanted) == 0) {
        stray(isCase ? "Case" : statement.elseIf ? "ElseIf" : "Else", isCase ? "Select" : "If");
        return placeChild();
    }
    endInner(wanted, isCase ? "Case" : statement.elseIf ? "ElseIf" : "Else");
    const bool first = !placed_ && beginsLine();
    if (isCase) {
        if (!placed_) {
            placeUnder(top_, logical_, directive());
            // An #If that begins with a Case stands where that does, not in the body of the Case above.
            for (auto i = open_.rbegin(); i != open_.rend() && i->fresh; ++i) {
                const DirectiveBlock& fresh = result_.directives[i->index];
                placeUnder(top_, fresh.line, fresh.outer);
                i->fresh = false;
            }
            if (first) sample(Depth::Case);
        }
    } else if (!placed_) {
        placeBeside(top_);
    }
    result_.lines[logical_].closes = result_.lines[logical_].closes || !placed_;
    placed_ = true;
    if (isCase) push(bit(BlockKind::Case), first);
}

// Takes away what stands open above the innermost block of the wanted kinds, which there is.
void BlockMatcher::endInner(std::uint16_t wanted, std::string_view before) {
    while ((top().kinds & wanted) == 0) {
        const Block& block = top();
        if (!block.optional && (block.kinds & bit(BlockKind::Case)) == 0) ++forgiven_[numberOf(block.kinds)];
        unclosed(top_, std::string(before), logical_, line_ + 1);
    }
}

// Whether it is known what the statement closes.
bool BlockMatcher::close(BlockKind kind) {
    std::uint16_t wanted = bit(kind);
    if (isProcedure(wanted)) wanted = procedures;
    if ((top().open & wanted) == 0) {
        std::uint32_t& forgiven = forgiven_[numberOf(bit(kind))];
        const bool known = forgiven > 0;
        if (known) {
            --forgiven;
            blocks_[top().procedure].faulty = top().procedure != module;
            if (top().procedure == module) hold(logical_, line_ + 1);
        } else {
            stray(closerOf(kind), blockNames[numberOf(bit(kind))]);
        }
        if (!placed_) placeChild();
        return known;
    }
    endInner(wanted, closerOf(kind));
    Block& block = top();
    if (!placed_ || closing_) placeBeside(top_);
    // An #If that opens what is closed behind it holds it as if the #If were not there.
    const std::uint32_t opened = block.directive, around = openAround(opened);
    if (opened != around && around == directive()) result_.directives[opened].flush = true;
    if ((block.kinds & bit(kind)) == 0) {
        fault("CV203", block.line, logical_,
              "the " + nameOf(block.kinds) + " that begins here is closed by " + std::string(closerOf(kind)));
        block.faulty = true;
    }
    if (isProcedure(block.kinds) && block.faulty) hold(block.line, line_ + 1);
    top_ = block.below;
    closed_ = true;
    return true;
}

void BlockMatcher::stray(std::string_view what, std::string_view opener) {
    fault("CV201", logical_, none, std::string(what) + " without " + std::string(opener));
    standStill();
}

// What cannot be understood here keeps its procedure, or itself where there is none, as it stands.
void BlockMatcher::standStill() {
    const std::uint32_t procedure = top().procedure;
    if (procedure == module) {
        hold(logical_, line_ + 1);
    } else {
        blocks_[procedure].faulty = true;
    }
}

void BlockMatcher::unclear(bool remark) {
    fault("CV204", logical_, none,
          remark
              ? "Then Rem: only the IDE can tell whether this If opens a block"
              : "Then with a colon at the line's end: only the IDE can tell whether this If opens a block");
    standStill();
    result_.lines[line_].keepEnd = true;
    // If it does, its End If closes nothing that is known.
    ++forgiven_[numberOf(bit(BlockKind::If))];
}

void BlockMatcher::fault(std::string_view code, std::uint32_t line, std::uint32_t other, std::string words) {
    if (!open_.empty() && (open_.back().neverTrue || open_.back().quiet)) return;
    result_.faults.push_back({code, line, other, std::move(words)});
}

void BlockMatcher::hold(std::uint32_t begin, std::uint32_t end) {
    held_.push_back({begin, end});
}

// Marks those of the lines that stay as they stand.
void BlockMatcher::holdLines(std::uint32_t begin, std::uint32_t end) {
    if (held_.empty()) return;
    std::sort(held_.begin(), held_.end(), [](const Range& a, const Range& b) { return a.begin < b.begin; });
    std::uint32_t next = begin;
    for (const Range& range : held_) {
        for (next = std::max(next, range.begin); next < range.end; ++next) result_.lines[next].held = true;
    }
    held_.clear();
    // What a line goes on with stays with it.
    for (std::uint32_t i = begin + 1; i < end; ++i) {
        LineInfo& info = result_.lines[i];
        if (info.kind == LineKind::Continuation) info.held = result_.lines[i - 1].held;
    }
}

std::uint32_t ModuleBlocks::ownDirective(std::uint32_t line) const {
    // An #If has a line of its own; what divides and closes it stands under that.
    for (const std::uint32_t opener : {line, lines[line].parent}) {
        const auto at =
            std::lower_bound(directives.begin(), directives.end(), opener,
                             [](const DirectiveBlock& block, std::uint32_t i) { return block.line < i; });
        if (at != directives.end() && at->line == opener)
            return static_cast<std::uint32_t>(at - directives.begin());
    }
    return LineInfo::none;
}

ModuleBlocks readBlocks(const base::TextLines& lines, const LinesRead& linesRead) {
    return BlockMatcher(lines).read(linesRead);
}

} // namespace corvelle::formatter::structured
