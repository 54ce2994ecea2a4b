#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::base {

/// A module's lines as a formatter writes them: 0-based, kept as slices of one text plus the number of spaces
/// before each. The spaces are made only when a line is written out. At most 4 GiB - 1 bytes of text.
class LineBuffer {
  public:
    LineBuffer() { reset(); }

    /// Empties the buffer to a single empty line.
    void reset();

    /// Empties the buffer to no line, with room for that many lines and bytes.
    void beginLoading(std::size_t lines, std::size_t bytes);

    /// Appends a line. Raises "Out of memory" beyond the buffer's limit.
    void append(std::string_view text);

    /// Index of the last line; -1 when there is none.
    std::int32_t maxIndx() const { return static_cast<std::int32_t>(ends_.size()) - 1; }

    /// The line without the spaces before it; 0 to maxIndx().
    std::string_view text(std::int32_t index) const {
        const auto i = static_cast<std::size_t>(index);
        const std::size_t begin = i == 0 ? 0 : ends_[i - 1];
        return {text_.data() + begin, ends_[i] - begin};
    }

    /// How many spaces stand before the line, 0 to 32767.
    std::int16_t spaces(std::int32_t index) const { return spaces_[static_cast<std::size_t>(index)]; }
    void setSpaces(std::int32_t index, std::int16_t spaces) {
        spaces_[static_cast<std::size_t>(index)] = spaces;
    }

    /// The whole line, spaces included.
    std::string line(std::int32_t index) const;

  private:
    std::string text_;
    // Apart, because together they would fill eight bytes a line.
    std::vector<std::uint32_t> ends_; // in text_; a line begins where the one before it ends
    std::vector<std::int16_t> spaces_;
};

} // namespace corvelle::base
