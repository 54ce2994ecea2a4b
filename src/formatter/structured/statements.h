#pragma once

#include "formatter/structured/words.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace corvelle::formatter::structured {

/// What a block is. The values are bits, so that a set of kinds is their sum.
enum class BlockKind : std::uint16_t {
    None = 0,
    Sub = 1,
    Function = 2,
    Property = 4,
    Type = 8,
    Enum = 16,
    If = 32,
    Select = 64,
    For = 128,
    Do = 256,
    While = 512,
    With = 1024,
    Case = 2048,      ///< a Case with what follows it, up to the next one
    Directive = 4096, ///< #If
};

enum class StatementKind : std::uint8_t {
    None,    ///< the line holds no further statement
    Plain,   ///< any statement that opens, divides and closes nothing
    Open,    ///< begins a block
    Divide,  ///< Else, ElseIf, Case, #Else, #ElseIf: the block's name tells which
    Close,   ///< ends `count` blocks
    Unclear, ///< an If of which the text does not tell whether it opens a block: `Then:`, `Then Rem`
};

/// One statement, told as soon as it is known what it is.
struct Statement {
    StatementKind kind = StatementKind::None;
    BlockKind block = BlockKind::None;
    std::uint32_t count = 1; ///< of Close: how many blocks; more than one behind `Next j, i`
    bool elseIf = false;     ///< of Divide
    bool declares = false;   ///< of Plain: Dim, Static or Const
    bool handles = false;    ///< of Plain: On Error
    bool remark = false;     ///< of Unclear: `Then Rem`, not `Then:`
    bool neverTrue = false;  ///< of a directive: its condition is the word False or 0
};

/// What a physical line is.
enum class LineKind : std::uint8_t {
    Empty,        ///< blanks at most
    Comment,      ///< a comment alone
    Code,         ///< begins with a statement
    Numbered,     ///< begins with a label or a line number
    Directive,    ///< `#If` and its like, `#Const`
    Continuation, ///< goes on with what the line before began, a comment included
};

/// Reads the logical statements of a module, physical line by physical line: lines joined over ` _`, parted
/// by colons. Time is linear in the text, nothing is allocated.
class StatementReader {
  public:
    static constexpr std::uint32_t noComment = 0xFFFFFFFF;

    /// Begins the next line, without its line end; it must live until the one after it begins. Read all of a
    /// line's statements before the next line.
    void begin(std::string_view line);

    /// The line's next statement that is known for what it is. `inMembers`: the innermost open block is a
    /// Type or an Enum, whose members may have any name.
    Statement next(bool inMembers) {
        if (at_ < end_) return readOn(inMembers);
        return mode_ == Mode::Rest ? Statement() : endOfLine();
    }

    /// Of the line begun, complete once next() has told None:
    LineKind lineKind() const { return kind_; }
    /// Where the line's first byte that is no blank stands.
    std::size_t start() const { return start_; }
    /// Where the line's own comment begins; noComment if it has none or only carries one on.
    std::uint32_t comment() const { return comment_; }
    /// Whether the line carries on a comment that began above it.
    bool carriesComment() const { return carriesComment_; }
    /// Whether the next line belongs to this one.
    bool joinsNext() const { return joins_; }
    /// Whether a literal or a name in brackets was left open in the line.
    bool leftOpen() const { return leftOpen_; }

  private:
    // Where in a statement the reader stands.
    enum class Mode : std::uint8_t {
        Head,          // a statement may begin
        AfterModifier, // behind Public, Static, ...
        AfterProperty,
        AfterEnd,
        AfterSelect,
        AfterType, // behind Type or Enum
        AfterSub,  // behind Sub or Function in a Type
        Condition, // between If and Then
        AfterThen,
        AfterThenColon,
        OneLine, // behind the Then of a one-line If, and behind a directive's words
        Names,   // behind Next
        Directive,
        AfterDirectiveEnd,
        Rest, // nothing to learn before the next colon
    };

    Statement readOn(bool inMembers);
    bool isPlain();
    Statement readHead(bool inMembers);
    Statement headWord(Word word, std::string_view text, bool inMembers);
    Statement afterWord(Word word);
    Statement readAfterThen();
    Statement readCondition();
    Statement readDirective();
    void readOneLine();
    Statement readNames();
    bool skipRest();
    void comment(std::size_t at);
    bool skipHidden();
    template <char wanted>
    void skipTo();
    Statement endOfLine();
    bool label(std::size_t end) const;
    bool namesMember() const;
    bool neverTrue() const;
    Word readWord();
    bool wordEnded(std::size_t at) const { return at >= end_ || isBlank(line_[at]); }

    Statement open(BlockKind block, Mode then);
    Statement plain(Mode then = Mode::Rest);
    Statement declaration();
    Statement close(BlockKind block, Mode then = Mode::Rest);
    Statement divide(BlockKind block, Mode then);

    std::string_view line_;
    std::size_t at_ = 0;
    std::size_t end_ = 0; // where the line's code ends: before the mark that joins the next line
    std::size_t start_ = 0;
    std::uint32_t comment_ = noComment;
    std::uint32_t names_ = 0; // behind Next
    LineKind kind_ = LineKind::Empty;
    Mode mode_ = Mode::Head;
    BlockKind pending_ = BlockKind::None; // what the words read so far would open
    bool joins_ = false;
    bool inComment_ = false;
    bool carriesComment_ = false;
    bool leftOpen_ = false;
    bool first_ = true;        // nothing but blanks stands before in the logical line
    bool elseIf_ = false;      // the condition is an ElseIf's
    bool afterMember_ = false; // behind a `.` or `!`: a name follows, whatever word it is
    bool mayBeRemark_ = false; // in a one-line If: a statement may begin
};

// Here, since it is called for every line.
inline void StatementReader::begin(std::string_view line) {
    const bool continues = joins_;
    line_ = line;
    at_ = start_ = pastBlanks(line, 0);
    end_ = lengthWithoutBlanks(line);
    joins_ = end_ > 0 && line[end_ - 1] == '_' && (end_ == 1 || isBlank(line[end_ - 2]));
    if (joins_) --end_;
    comment_ = noComment;
    leftOpen_ = false;
    carriesComment_ = continues && inComment_;
    if (continues) {
        kind_ = LineKind::Continuation;
        if (inComment_) at_ = end_;
        return;
    }
    kind_ = start_ == line.size() ? LineKind::Empty : LineKind::Code;
    mode_ = Mode::Head;
    inComment_ = false;
    first_ = true;
    elseIf_ = false;
    afterMember_ = false;
    mayBeRemark_ = false;
}

} // namespace corvelle::formatter::structured
