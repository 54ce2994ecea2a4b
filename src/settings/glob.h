#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace corvelle::settings {

/// The name of a section of an .editorconfig: * is any text without a slash, ** any text, ? one character but
/// the slash, [ab] [a-c] [!ab] one character, {a,b} one of several patterns, {1..3} a whole number; a
/// backslash takes a character's meaning away. Upper and lower case differ. A pattern with a slash is for
/// paths from the file's folder, another one for names at any depth.
class Glob {
  public:
    /// Any text is a pattern: braces that do not pair, or that hold no comma, stand for themselves; what has
    /// a bracket that never closes matches nothing.
    explicit Glob(std::string_view pattern);

    /// Whether the path, which is relative to the file's folder and has slashes, matches. Takes at most as
    /// many steps as the pattern's length times the path's.
    bool matches(std::string_view path) const;

  private:
    struct Token;
    enum class Kind : std::uint8_t {
        Character,
        AnyCharacter,
        Set,
        Name,
        Anything,
        Choice,
        Jump,
        Number,
        End
    };
    struct Node {
        Kind kind;
        char character = 0;
        std::uint32_t index = 0; // of the set, the choice, the number; where a jump goes
    };
    struct Set {
        bool without = false;
        std::vector<std::pair<std::uint32_t, std::uint32_t>> ranges;
    };
    struct Number {
        std::int64_t from, to;
    };

    std::vector<Token> read(std::string_view pattern);
    std::size_t readSet(std::string_view pattern, std::size_t at);
    std::size_t readNumber(std::string_view pattern, std::size_t at);
    static void pairBraces(std::vector<Token>& tokens);
    void compile(const std::vector<Token>& tokens);
    void add(Kind kind, char character = 0, std::size_t index = 0);
    void addOptionalFolders();
    bool contains(const Set& set, std::uint32_t character) const;

    std::vector<Node> nodes_;
    std::vector<Set> sets_;
    std::vector<Number> numbers_;
    std::vector<std::vector<std::uint32_t>> choices_; // where each begins
    bool forName_ = false;                            // only the last part of a path can match
    bool never_ = false;
};

} // namespace corvelle::settings
