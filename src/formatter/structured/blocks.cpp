#include "formatter/structured/blocks.h"

#include <algorithm>
#include <string>
#include <utility>

namespace corvelle::formatter::structured {
namespace {

constexpr std::uint32_t none = LineInfo::none;

constexpr std::uint16_t bit(BlockKind kind) {
    return static_cast<std::uint16_t>(kind);
}
constexpr std::uint16_t procedures =
    bit(BlockKind::Sub) | bit(BlockKind::Function) | bit(BlockKind::Property);
constexpr std::uint16_t memberLists = bit(BlockKind::Type) | bit(BlockKind::Enum);

constexpr bool isProcedure(std::uint16_t kinds) {
    return (kinds & procedures) != 0;
}

// The name of a block and of what ends it, by the number of the kind's bit.
constexpr std::array<std::string_view, 13> blockNames{"Sub",  "Function", "Property", "Type", "Enum",
                                                      "If",   "Select",   "For",      "Do",   "While",
                                                      "With", "Case",     "#If"};
constexpr std::array<std::string_view, 13> closerNames{
    "End Sub", "End Function", "End Property", "End Type", "End Enum", "End If", "End Select",
    "Next",    "Loop",         "Wend",         "End With", "",         "#End If"};

std::size_t numberOf(std::uint16_t kinds) {
    std::size_t number = 0;
    while ((kinds >> number & 1) == 0) ++number;
    return number;
}
std::string nameOf(std::uint16_t kinds) {
    return std::string(blockNames[numberOf(kinds)]);
}
std::string closerOf(BlockKind kind) {
    return std::string(closerNames[numberOf(bit(kind))]);
}

Depth depthIn(std::uint16_t kinds) {
    if (isProcedure(kinds)) return Depth::Procedure;
    if ((kinds & memberLists) != 0) return Depth::Type;
    if ((kinds & bit(BlockKind::Select)) != 0) return Depth::Case;
    if ((kinds & bit(BlockKind::With)) != 0) return Depth::With;
    return Depth::Block;
}

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

class Matcher {
  public:
    explicit Matcher(const std::vector<std::string_view>& lines) : texts_(lines) {
        result_.lines.resize(lines.size());
        blocks_.reserve(lines.size() / 8 + 1);
        result_.samples.reserve(lines.size() / 8 + 1);
        blocks_.push_back({}); // the module
    }

    ModuleBlocks read() {
        for (line_ = 0; line_ < texts_.size(); ++line_) readLine();
        const auto count = static_cast<std::uint32_t>(texts_.size());
        while (top_ != module) unclosed(top_, "the module's end", none, count);
        for (; !open_.empty(); open_.pop_back()) {
            const std::uint32_t line = result_.directives[open_.back().index].line;
            fault("CV202", line, none, "the #If that begins here is not closed before the module's end");
            hold(line, count);
        }
        holdLines();
        return std::move(result_);
    }

  private:
    static constexpr std::uint32_t module = 0;

    // An open block, and what is below it: blocks stay where they are when they close, so that the branches
    // of an #If can begin where the first one began.
    struct Block {
        std::uint32_t below = module;
        std::uint32_t line = none;
        std::uint32_t directive = none;
        std::uint32_t procedure = module; // the block that is the procedure around it, or itself
        std::uint16_t kinds = 0;          // more than one where branches open different blocks
        std::uint16_t open = 0;           // its kinds and those below it, up to its procedure
        bool first = false;               // it begins its line, and the line has no label
        bool sampled = false;
        bool optional = false; // not every branch opened it, or some branch closed it
        bool faulty = false;   // of a procedure: it holds a fault
    };

    // An #If that is not closed yet.
    struct OpenDirective {
        std::uint32_t index;
        std::uint32_t entry;         // the innermost block when it began
        std::uint32_t merged = none; // what the branches so far leave open; none before the first one's end
        bool fresh = true;           // no statement has stood in it yet
        bool otherwise = false;      // it has had its #Else
        bool neverTrue = false;      // of the branch being read
        bool quiet = false;          // a branch around it is never true
        std::uint32_t branch = 0;    // where the branch being read begins
    };

    struct Range {
        std::uint32_t begin, end;
    };

    const std::vector<std::string_view>& texts_;
    ModuleBlocks result_;
    StatementReader reader_;
    std::vector<Block> blocks_;
    std::vector<OpenDirective> open_;
    std::vector<Range> held_;
    std::array<std::uint32_t, 13> forgiven_{}; // closers of blocks that another's closer has ended
    std::uint32_t line_ = 0;
    std::uint32_t top_ = module;
    std::uint32_t logical_ = 0; // the line in which the statement begins
    bool placed_ = false;       // the logical line has got its place
    bool closing_ = false;      // it has held nothing but closers so far
    bool off_ = false;

    Block& top() { return blocks_[top_]; }
    bool inMembers() { return (top().kinds & memberLists) != 0; }
    std::uint32_t directive() const { return open_.empty() ? none : open_.back().index; }

    void readLine() {
        const std::string_view text = texts_[line_];
        LineInfo& info = result_.lines[line_];
        reader_.begin(text);
        if (reader_.lineKind() != LineKind::Continuation) {
            logical_ = line_;
            placed_ = false;
            closing_ = true;
            info.directive = directive();
        }
        for (;;) {
            const Statement statement = reader_.next(inMembers());
            if (statement.kind == StatementKind::None) break;
            take(statement);
        }
        info.kind = reader_.lineKind();
        info.start = static_cast<std::uint32_t>(reader_.start());
        info.comment = reader_.comment();
        info.carriesComment = reader_.carriesComment();
        info.joinsNext = reader_.joinsNext();
        info.keepEnd = info.keepEnd || reader_.leftOpen();
        if (!placed_ && info.kind != LineKind::Continuation) placeUnder(top_, line_);
        if (info.kind == LineKind::Comment && !info.joinsNext) {
            if (!off_ && isSwitch(text, "corvelle:off")) off_ = info.off = true;
            if (off_ && isSwitch(text, "corvelle:on")) {
                off_ = false;
                info.off = true;
            }
        }
        info.off = info.off || off_;
    }

    // The line stands in the block; the place of comments, of lines with a label alone and of empty lines
    // too.
    void placeUnder(std::uint32_t block, std::uint32_t line) {
        LineInfo& info = result_.lines[line];
        info.parent = blocks_[block].line;
        info.depth = block == module ? Depth::Same : depthIn(blocks_[block].kinds);
        info.within = openAround(blocks_[block].directive);
    }
    static void placeBeside(LineInfo& info, std::uint32_t other) {
        info.parent = other;
        info.depth = Depth::Same;
        info.directive = info.within = none;
    }
    void placeBeside(std::uint32_t block) {
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
    std::uint32_t openAround(std::uint32_t index) const {
        if (index == none || open_.empty()) return none;
        if (open_.back().index <= index) return open_.back().index;
        const auto next =
            std::upper_bound(open_.begin(), open_.end(), index,
                             [](std::uint32_t i, const OpenDirective& open) { return i < open.index; });
        return next == open_.begin() ? none : (next - 1)->index;
    }

    void take(const Statement& statement) {
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
    void placeChild() { placeChild(depthIn(top().kinds)); }
    void placeChild(Depth depth) {
        if (placed_) {
            top().sampled = true;
            return;
        }
        placed_ = true;
        placeUnder(top_, logical_);
        if (top_ != module) result_.lines[logical_].depth = depth;
        if (!open_.empty()) open_.back().fresh = false;
        if (!beginsLine()) return;
        sample(depth);
        if (!open_.empty()) {
            DirectiveBlock& inner = result_.directives[open_.back().index];
            if (inner.child == none && top_ == open_.back().entry) inner.child = logical_;
        }
    }

    // Whether the statement begins its line and the line has no label.
    bool beginsLine() const {
        const bool here = logical_ == line_;
        const LineKind kind = here ? reader_.lineKind() : result_.lines[logical_].kind;
        const std::size_t start = here ? reader_.start() : result_.lines[logical_].start;
        return kind == LineKind::Code && !off_ &&
               texts_[logical_][start] != '_'; // a lone joining mark is no beginning
    }

    // Declarations and On Error many authors leave in the header's column: of the body they tell nothing.
    Depth depthOf(const Statement& statement) {
        const bool inProcedure = isProcedure(top().kinds);
        if (inProcedure && statement.declares) return Depth::Declaration;
        if (inProcedure && statement.handles) return Depth::OnError;
        return depthIn(top().kinds);
    }

    void sample(Depth depth) {
        Block& block = top();
        if (block.directive != directive() || !block.first) return;
        const bool ofBlock = depth != Depth::Declaration && depth != Depth::OnError;
        if (ofBlock && block.sampled) return;
        block.sampled = block.sampled || ofBlock;
        result_.samples.push_back({block.line, logical_, depth});
    }

    void open(BlockKind kind) {
        const std::uint16_t kinds = bit(kind);
        // What only a declaration or a header can follow is not closed.
        if (isProcedure(kinds) || (kinds & memberLists) != 0) endBefore(kind);
        const bool first = !placed_ && beginsLine();
        placeChild();
        push(kinds, first);
    }

    void push(std::uint16_t kinds, bool first) {
        Block block;
        block.below = top_;
        block.line = logical_;
        block.directive = directive();
        block.kinds = kinds;
        block.first = first;
        const bool procedure = isProcedure(kinds);
        block.procedure = procedure ? static_cast<std::uint32_t>(blocks_.size()) : top().procedure;
        block.open = static_cast<std::uint16_t>(kinds | (procedure ? 0 : top().open));
        top_ = static_cast<std::uint32_t>(blocks_.size());
        blocks_.push_back(block);
        if (procedure) forgiven_ = {};
    }

    // A procedure, a Type or an Enum begins: whatever is still open should have been closed.
    void endBefore(BlockKind kind) {
        while (top_ != module) unclosed(top_, "the " + nameOf(bit(kind)), logical_, logical_);
    }

    // The block ends without its closer. `before` is what comes instead; lines from `end` on are none of its.
    void unclosed(std::uint32_t index, const std::string& before, std::uint32_t other, std::uint32_t end) {
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

    void divide(const Statement& statement) {
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
                placeUnder(top_, logical_);
                // An #If that begins with a Case stands where that does, not in the body of the Case above.
                for (auto i = open_.rbegin(); i != open_.rend() && i->fresh; ++i) {
                    placeUnder(top_, result_.directives[i->index].line);
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
    void endInner(std::uint16_t wanted, std::string_view before) {
        while ((top().kinds & wanted) == 0) {
            const Block& block = top();
            if (!block.optional && (block.kinds & bit(BlockKind::Case)) == 0)
                ++forgiven_[numberOf(block.kinds)];
            unclosed(top_, std::string(before), logical_, line_ + 1);
        }
    }

    // Whether it is known what the statement closes.
    bool close(BlockKind kind) {
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
                  "the " + nameOf(block.kinds) + " that begins here is closed by " + closerOf(kind));
            block.faulty = true;
        }
        if (isProcedure(block.kinds) && block.faulty) hold(block.line, line_ + 1);
        top_ = block.below;
        return true;
    }

    void stray(const std::string& what, std::string_view opener) {
        fault("CV201", logical_, none, what + " without " + std::string(opener));
        standStill();
    }

    // What cannot be understood here keeps its procedure, or itself where there is none, as it stands.
    void standStill() {
        const std::uint32_t procedure = top().procedure;
        if (procedure == module) {
            hold(logical_, line_ + 1);
        } else {
            blocks_[procedure].faulty = true;
        }
    }

    void unclear(bool remark) {
        fault(
            "CV204", logical_, none,
            remark
                ? "Then Rem: only the IDE can tell whether this If opens a block"
                : "Then with a colon at the line's end: only the IDE can tell whether this If opens a block");
        standStill();
        result_.lines[line_].keepEnd = true;
        // If it does, its End If closes nothing that is known.
        ++forgiven_[numberOf(bit(BlockKind::If))];
    }

    void placeDirective(std::uint32_t beside) {
        LineInfo& info = result_.lines[logical_];
        placed_ = true;
        if (beside == none) return placeUnder(top_, logical_);
        placeBeside(info, result_.directives[beside].line);
        info.own = beside;
    }

    void openDirective(const Statement& statement) {
        placeDirective(none);
        DirectiveBlock block{logical_};
        block.outer = directive();
        OpenDirective open{};
        open.index = static_cast<std::uint32_t>(result_.directives.size());
        open.entry = top_;
        result_.lines[logical_].own = open.index;
        open.neverTrue = statement.neverTrue;
        open.quiet = !open_.empty() && (open_.back().quiet || open_.back().neverTrue);
        open.branch = line_ + 1;
        result_.directives.push_back(block);
        open_.push_back(open);
    }

    void divideDirective(const Statement& statement) {
        if (open_.empty()) {
            fault("CV201", logical_, none, statement.elseIf ? "#ElseIf without #If" : "#Else without #If");
            hold(logical_, line_ + 1);
            return placeDirective(none);
        }
        endBranch();
        OpenDirective& open = open_.back();
        placeDirective(open.index);
        top_ = open.entry;
        open.otherwise = open.otherwise || !statement.elseIf;
        open.neverTrue = statement.neverTrue;
        open.branch = line_ + 1;
    }

    void closeDirective() {
        if (open_.empty()) {
            fault("CV201", logical_, none, "#End If without #If");
            hold(logical_, line_ + 1);
            return placeDirective(none);
        }
        endBranch();
        OpenDirective& open = open_.back();
        if (!open.otherwise) open.merged = merge(open.merged, open.entry);
        placeDirective(open.index);
        top_ = open.merged;
        open_.pop_back();
    }

    void endBranch() {
        OpenDirective& open = open_.back();
        std::uint32_t end = top_;
        if (end != open.entry) {
            if (open.neverTrue) {
                end = open.entry; // it need not be code
                hold(open.branch, logical_);
            } else {
                const bool headers = blocks_[end].procedure != blocks_[open.entry].procedure;
                if (headers) result_.directives[open.index].flush = true;
            }
        }
        open.merged = open.merged == none ? end : merge(open.merged, end);
    }

    // What is open behind two branches, one of which leaves `a` and the other one `b` open.
    std::uint32_t merge(std::uint32_t a, std::uint32_t b) {
        if (a == b) return a;
        // Blocks lie in the order in which they were opened, so that the later one cannot be below the other.
        std::uint32_t common = a, other = b;
        std::size_t onlyA = 0, onlyB = 0;
        while (common != other) {
            if (common > other) {
                common = blocks_[common].below;
                ++onlyA;
            } else {
                other = blocks_[other].below;
                ++onlyB;
            }
        }
        if (onlyA == onlyB) { // each opens as many: they are the same blocks under different conditions
            for (std::uint32_t i = a, j = b; i != common; i = blocks_[i].below, j = blocks_[j].below) {
                blocks_[i].kinds |= blocks_[j].kinds;
                blocks_[i].faulty = blocks_[i].faulty || blocks_[j].faulty;
                blocks_[i].optional = blocks_[i].optional || blocks_[j].optional;
            }
            reopen(a, common);
            return a;
        }
        if (onlyA < onlyB) std::swap(a, b);
        // `a` holds more. Where these blocks were uncertain already, the other branch has closed them now.
        bool wasOptional = true;
        for (std::uint32_t i = a; i != common; i = blocks_[i].below)
            wasOptional = wasOptional && blocks_[i].optional;
        if (wasOptional) return b;
        for (std::uint32_t i = a; i != common; i = blocks_[i].below) blocks_[i].optional = true;
        return a;
    }

    // Tells again which kinds are open in the blocks above `common`.
    void reopen(std::uint32_t top, std::uint32_t common) {
        std::vector<std::uint32_t> changed;
        for (std::uint32_t i = top; i != common; i = blocks_[i].below) changed.push_back(i);
        for (auto i = changed.rbegin(); i != changed.rend(); ++i) {
            Block& block = blocks_[*i];
            const bool procedure = isProcedure(block.kinds);
            block.open =
                static_cast<std::uint16_t>(block.kinds | (procedure ? 0 : blocks_[block.below].open));
        }
    }

    void fault(std::string_view code, std::uint32_t line, std::uint32_t other, std::string words) {
        if (!open_.empty() && (open_.back().neverTrue || open_.back().quiet)) return;
        result_.faults.push_back({code, line, other, std::move(words)});
    }

    void hold(std::uint32_t begin, std::uint32_t end) { held_.push_back({begin, end}); }

    void holdLines() {
        std::sort(held_.begin(), held_.end(),
                  [](const Range& a, const Range& b) { return a.begin < b.begin; });
        std::uint32_t next = 0;
        for (const Range& range : held_) {
            for (next = std::max(next, range.begin); next < range.end; ++next)
                result_.lines[next].held = true;
        }
        // What a line goes on with stays with it.
        for (std::size_t i = 1; i < result_.lines.size(); ++i) {
            LineInfo& info = result_.lines[i];
            if (info.kind == LineKind::Continuation) info.held = result_.lines[i - 1].held;
        }
    }
};

} // namespace

ModuleBlocks readBlocks(const std::vector<std::string_view>& lines) {
    return Matcher(lines).read();
}

} // namespace corvelle::formatter::structured
