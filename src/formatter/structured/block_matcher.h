#pragma once

#include "formatter/structured/block_kinds.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::formatter::structured {

/// Matches a module's blocks, statement by statement: one object for one module.
class BlockMatcher {
  public:
    /// The lines must outlive the matcher.
    explicit BlockMatcher(const base::TextLines& lines);

    /// Once only.
    ModuleBlocks read(const LinesRead& linesRead);

  private:
    static constexpr std::uint32_t none = LineInfo::none;
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
        Depth depth = Depth::Same;        // of what stands in it
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

    Block& top() { return blocks_[top_]; }
    bool inMembers() { return (top().kinds & memberLists) != 0; }
    std::uint32_t directive() const { return open_.empty() ? none : open_.back().index; }

    void readLine();
    void readSwitch(std::string_view comment);
    void placeUnder(std::uint32_t block, std::uint32_t line, std::uint32_t directive);
    std::uint32_t aroundOf(std::uint32_t directive, std::uint32_t within);
    static void placeBeside(LineInfo& info, std::uint32_t other);
    void placeBeside(std::uint32_t block);
    std::uint32_t openAround(std::uint32_t index) const;
    void take(const Statement& statement);
    void placeChild();
    void placeChild(Depth depth);
    bool beginsLine() const;
    Depth depthOf(const Statement& statement);
    void sample(Depth depth);
    void open(BlockKind kind);
    void push(std::uint16_t kinds, bool first);
    void endBefore(BlockKind kind);
    void unclosed(std::uint32_t index, const std::string& before, std::uint32_t other, std::uint32_t end);
    void divide(const Statement& statement);
    void endInner(std::uint16_t wanted, std::string_view before);
    bool close(BlockKind kind);
    void stray(std::string_view what, std::string_view opener);
    void standStill();
    void unclear(bool remark);
    void fault(std::string_view code, std::uint32_t line, std::uint32_t other, std::string words);
    void hold(std::uint32_t begin, std::uint32_t end);
    bool finishLines(std::uint32_t end, const LinesRead& linesRead);
    void holdLines(std::uint32_t begin, std::uint32_t end);

    // What stands in block_directives.cpp.
    void placeDirective(std::uint32_t beside);
    void openDirective(const Statement& statement);
    void divideDirective(const Statement& statement);
    void closeDirective();
    void endBranch();
    std::uint32_t merge(std::uint32_t a, std::uint32_t b);
    void reopen(std::uint32_t top, std::uint32_t common);

    const base::TextLines& texts_;
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
    bool closed_ = false;        // something was, since lines were finished
    std::uint32_t finished_ = 0; // the lines of which everything is known
};

} // namespace corvelle::formatter::structured
