#pragma once

#include "base/byte_search.h"
#include "formatter/vb_lexer.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace corvelle::formatter {

struct TokenCheckOptions {
    bool commentsMayGo = false; ///< an option that removes comments is on
};

/// Tells whether the formatted text of a module still means what the old one meant. Both are read side by
/// side, line by line, so that memory does not grow with the module. Hand over every code line in order:
/// with what becomes of it, or as dropped.
class TokenCheck {
  public:
    /// The bytes that a line may have in the IDE, its end not counted.
    static constexpr std::size_t longestLine = 1023;

    explicit TokenCheck(TokenCheckOptions options) : options_(options) {}

    /// One old line, as it is but for its line end, and what becomes of it: `spaces` spaces, then the text.
    /// Nothing if no token is lost, changed, joined or added and the line has not newly become too long;
    /// else what would be lost, on one line.
    std::optional<std::string> kept(std::string_view oldLine, std::string_view newText, std::int32_t spaces) {
        if (was_ == is_ && fits(oldLine, newText, spaces) && onlyTrimmed(oldLine, newText)) {
            was_ = is_ = VbLineState::Fresh;
            return std::nullopt;
        }
        return keptWithChanges(oldLine, newText, spaces);
    }

    /// One old line that is left out: nothing if it held nothing that must stay, else what would be lost.
    std::optional<std::string> dropped(std::string_view oldLine) {
        const bool fresh = was_ == VbLineState::Fresh && is_ == VbLineState::Fresh;
        if (fresh && skipBlanks(oldLine) == oldLine.size()) return std::nullopt;
        return droppedWithText(oldLine);
    }

  private:
    static std::size_t skipBlanks(std::string_view line) { return base::pastBlanks(line, 0); }

    static bool fits(std::string_view oldLine, std::string_view newText, std::int32_t spaces) {
        const auto length = static_cast<std::int64_t>(newText.size()) + spaces;
        return length <= static_cast<std::int64_t>(longestLine) || oldLine.size() > longestLine;
    }

    // Whether a line lost nothing but blanks at its ends that mean nothing, and is surely not joined to the
    // next one. This answers for almost every line there is.
    static bool onlyTrimmed(std::string_view oldLine, std::string_view newText) {
        const std::string_view code = oldLine.substr(skipBlanks(oldLine));
        const std::string_view text = newText.substr(skipBlanks(newText));
        if (text.empty()) return code.empty();
        if (code.size() < text.size()) return false;
        // Most often the new text is a part of the old one's bytes.
        if (code.data() != text.data() && std::memcmp(code.data(), text.data(), text.size()) != 0)
            return false;
        std::size_t end = text.size();
        while (isVbBlank(text[end - 1])) --end;
        if (text[end - 1] == '_') return false;
        return code.size() == text.size() || (end == text.size() && endMayGo(code.substr(text.size()), text));
    }

    static bool endMayGo(std::string_view end, std::string_view newText);
    std::optional<std::string> keptWithChanges(std::string_view oldLine, std::string_view newText,
                                               std::int32_t spaces);
    std::optional<std::string> droppedWithText(std::string_view oldLine);
    VbToken nextThatCounts(VbLexer& lexer) const;
    void settle(VbLineState was, VbLineState is, std::optional<std::string>& loss);

    TokenCheckOptions options_;
    VbLineState was_ = VbLineState::Fresh; // at the end of the old text read so far
    VbLineState is_ = VbLineState::Fresh;  // at the end of the new text; differs from the old one only
                                           // while a removed comment goes on in the old text
};

} // namespace corvelle::formatter
