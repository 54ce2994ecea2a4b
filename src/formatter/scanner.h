#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::formatter {

/// What CheckKey finds a line to be.
enum Key : std::uint8_t { KeyNone = 0, KeyStart = 1, KeyEnd = 2 };

/// Classifies single lines of Visual Basic text by the keyword tables. Character positions are 1-based;
/// searches ignore letter case. No function fails on any text. Views that are returned point into the
/// argument.
class Scanner {
  public:
    Scanner() { LoadKeys_VB(); }

    /// Makes the keyword tables ready for searching.
    void LoadKeys_VB();

    /// What the line is. Sets startKeyIndex or endKeyIndex when it finds a key of that kind.
    Key CheckKey(std::string_view mStr);

    /// Index in StartKeys of the block start found last (27 for a block If).
    std::int16_t startKeyIndex = 0;
    /// Index in EndKeys of the block end found last.
    std::int16_t endKeyIndex = 0;

    /// The text without any tab and without leading and trailing spaces. `room` takes the result where a tab
    /// stood between other characters; otherwise the result is a slice of the argument.
    static std::string_view myTrim(std::string_view mStr, std::string& room);

    /// Whether every character is a space; true for the empty text.
    static bool isOnlySpace(std::string_view mTxt);

    /// Whether the character at `pos` (1-based) has the code `mCh`; beyond the end the answer is `not bMust`.
    static bool CheckChar(std::string_view mStr, std::int32_t pos, std::int16_t mCh, bool bMust = false);

    /// Whether the trimmed line is only a comment. A Rem line with an apostrophe anywhere is not.
    static bool isCommentLine(std::string_view mStr);

    /// The line without its trailing comment, by pairing the double quotes around each apostrophe; empty for
    /// a comment line. Spaces before the comment stay. A heuristic: with several literals before an
    /// apostrophe inside a literal, the cut falls inside that literal.
    static std::string_view SafeUncomment(std::string_view mStr);

    /// Whether what follows the keyword `mKey`, with which the text begins, is a single plain word.
    static bool Check_Enum_Type(std::string_view tStr, std::string_view mKey);

    /// 0: no usable " Then"; 1: a block If; 2: the code ends in the continuation character; 3: a one-line If.
    static std::int16_t Check_IF_THEN_(std::string_view mStr);

    /// Whether the line marks the start of the module's declarations.
    static bool codeStarted(std::string_view mStr);

    /// Bytes that the lines take when written out: their lengths and two for each line end; 2^31 - 1 at most.
    static std::int32_t getArrByteCount(const std::vector<std::string>& mArr);

  private:
    // Which keys begin with a letter, as bits by index: a line is compared with those alone.
    std::array<std::uint32_t, 256> startKeysByLetter_{};
    std::array<std::uint32_t, 256> endKeysByLetter_{};
};

} // namespace corvelle::formatter
