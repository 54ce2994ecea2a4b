#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// Visual Basic source, read one physical line at a time by the language's own rules. Only the safety check
// reads code this way, and nothing here is shared with the formatter's scanner: a mistake there must not
// repeat itself in the check.
namespace corvelle::formatter {

/// Whether the byte is a space or a tab.
constexpr bool isVbBlank(char c) {
    return c == ' ' || c == '\t';
}

/// The text without the blanks at both ends.
std::string_view trimVbBlanks(std::string_view text);

/// What the end of a line hands on to the next one.
enum class VbLineState : std::uint8_t {
    Fresh,     ///< nothing: the next line begins a statement
    Statement, ///< the statement goes on
    Begin,     ///< a statement is to begin, after `:`, `Then` or `Else`
    Member,    ///< the statement goes on after `.` or `!`, so that `Rem` would be a member's name
    Comment,   ///< the comment goes on
    Verbatim,  ///< a line with a lone CR goes on, so that nobody knows as what
};

enum class VbTokenKind : std::uint8_t {
    End,      ///< the line is used up
    Word,     ///< letters, digits and underscores; bytes above 127 are letters
    Mark,     ///< any other single byte
    Literal,  ///< a string with its quotes; without a closing quote everything to the line's end
    Name,     ///< a name with its brackets; without a closing one everything to the line's end
    Comment,  ///< the text after the apostrophe, or after `Rem` where a statement begins, or a line that
              ///< carries a comment on; trimmed
    Verbatim, ///< a whole line in which a CR stands, from its first byte that is no blank
};

struct VbToken {
    VbTokenKind kind;
    /// Whether the token touches the one before it, where that can matter: one of % & ! # @ $ . after the
    /// end of an operand, or a word or name after one of them. False everywhere else.
    bool glued;
    std::size_t position;  ///< 0-based offset of the first byte in the line, of a comment its mark's
    std::string_view text; ///< slice of the line
};

/// The tokens of one physical line without its line end. Takes time linear in the line's length and
/// allocates nothing. The mark that joins the next line (a blank and `_` at the end) is no token.
class VbLexer {
  public:
    /// The line must outlive the lexer and its tokens.
    VbLexer(std::string_view line, VbLineState before);

    /// The next token; of kind End, again and again, once the line is used up.
    VbToken next();

    /// Reads what is left of the line and tells what it hands on.
    VbLineState stateAfter();

  private:
    VbToken comment(std::size_t mark, std::size_t from);
    VbToken literal();
    VbToken name(bool adjacent);
    VbToken word(bool adjacent);
    VbToken mark(bool adjacent);
    VbToken operand(VbTokenKind kind, std::size_t end, bool glued);

    std::string_view line_;
    std::size_t at_ = 0;
    std::size_t bodyEnd_; // where the tokens end: before the `_` that joins the next line
    bool continued_ = false;
    bool verbatim_;
    bool inComment_;
    bool commentDue_; // the line carries a comment on and it was not handed out yet
    bool afterOperand_ = false;
    bool afterSuffix_ = false;
    bool afterMember_;
    bool numberMayCome_;   // nothing was read of a line that begins a statement
    bool statementBegins_; // where `Rem` is a comment's mark, and not a wrong name
};

} // namespace corvelle::formatter
