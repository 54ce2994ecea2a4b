#pragma once

#include "base/byte_search.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::indexer {

/// Walks over the lines of a text. A line ends at CR LF, CR or LF, as editors of every kind leave it; text
/// after the last line end is a line too.
class TextLines {
  public:
    explicit TextLines(std::string_view text) : text_(text) {}

    /// Goes to the next line; false at the end of the text.
    bool next() {
        if (next_ >= text_.size()) return false;
        ++number_;
        const auto end = base::findKind<base::AnyOf<'\r', '\n'>>(text_, next_);
        line_ = text_.substr(next_, end - next_);
        next_ = end + (text_.substr(end, 2) == "\r\n" ? 2 : 1);
        return true;
    }

    /// The line without its line end. This and what follows is of the line that the last `next` went to.
    std::string_view line() const { return line_; }
    /// Where the line begins in the text.
    std::size_t begin() const { return static_cast<std::size_t>(line_.data() - text_.data()); }
    /// Where it ends: behind its line end, if it has one.
    std::size_t end() const { return next_ < text_.size() ? next_ : text_.size(); }
    /// Its line end; empty for a last line without one.
    std::string_view lineEnd() const {
        const auto at = begin() + line_.size();
        return text_.substr(at, end() - at);
    }
    /// How many lines have been read: the line's number from 1.
    std::uint32_t number() const { return number_; }

  private:
    std::string_view text_, line_;
    std::size_t next_ = 0;
    std::uint32_t number_ = 0;
};

/// The lines, each ended by CR LF.
std::string fileOfLines(const std::vector<std::string>& lines);

/// Writes the lines, each ended by CR LF, into the file, which is created or replaced. False on any failure;
/// the old file is as it was then.
bool WriteLines(std::string_view path, const std::vector<std::string>& lines);

/// The text with every pair of spaces made one space, in one pass from left to right: three spaces in a row
/// become two.
std::string withSpacePairsJoined(std::string_view text);

} // namespace corvelle::indexer
