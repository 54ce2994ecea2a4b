#include "formatter/structured/block_matcher.h"

// The #Ifs: each branch begins with the blocks that were open before the first one.
namespace corvelle::formatter::structured {

void BlockMatcher::placeDirective(std::uint32_t beside) {
    LineInfo& info = result_.lines[logical_];
    placed_ = true;
    if (beside == none) return placeUnder(top_, logical_, directive());
    placeBeside(info, result_.directives[beside].line);
}

void BlockMatcher::openDirective(const Statement& statement) {
    placeDirective(none);
    DirectiveBlock block{logical_};
    block.outer = directive();
    OpenDirective open{};
    open.index = static_cast<std::uint32_t>(result_.directives.size());
    open.entry = top_;
    open.neverTrue = statement.neverTrue;
    open.quiet = !open_.empty() && (open_.back().quiet || open_.back().neverTrue);
    open.branch = line_ + 1;
    result_.directives.push_back(block);
    open_.push_back(open);
}

void BlockMatcher::divideDirective(const Statement& statement) {
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

void BlockMatcher::closeDirective() {
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
    closed_ = true;
    open_.pop_back();
}

void BlockMatcher::endBranch() {
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
std::uint32_t BlockMatcher::merge(std::uint32_t a, std::uint32_t b) {
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
            blocks_[i].depth = depthIn(blocks_[i].kinds);
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
void BlockMatcher::reopen(std::uint32_t top, std::uint32_t common) {
    std::vector<std::uint32_t> changed;
    for (std::uint32_t i = top; i != common; i = blocks_[i].below) changed.push_back(i);
    for (auto i = changed.rbegin(); i != changed.rend(); ++i) {
        Block& block = blocks_[*i];
        const bool procedure = isProcedure(block.kinds);
        block.open = static_cast<std::uint16_t>(block.kinds | (procedure ? 0 : blocks_[block.below].open));
    }
}

} // namespace corvelle::formatter::structured
