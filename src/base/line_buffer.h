#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::base {

/// A module's lines as a formatter writes them: 0-based, each a text plus the number of spaces before it. The
/// spaces are made only when a line is written out. Most lines differ from what they were read from by their
/// blanks alone: such a line can refer to what was read. A line has at most 4 GiB - 1 bytes of text.
class LineBuffer {
  public:
    LineBuffer() { reset(); }

    /// Empties the buffer to a single empty line.
    void reset();

    /// Empties the buffer to no line, with room for that many lines.
    void beginLoading(std::size_t lines);

    /// Appends a copy of the line. Raises "Out of memory" beyond a line's limit.
    void append(std::string_view text);

    /// Appends the line itself, which must outlive the buffer's line. Raises as append does.
    void refer(std::string_view text, std::int16_t spaces = 0) {
        if (text.size() > longestLine) refuse();
        lines_.push_back({text.data(), static_cast<std::uint32_t>(text.size()), spaces});
    }

    /// Index of the last line; -1 when there is none.
    std::int32_t maxIndx() const { return static_cast<std::int32_t>(lines_.size()) - 1; }

    /// The line without the spaces before it; 0 to maxIndx().
    std::string_view text(std::int32_t index) const {
        const Line& line = lines_[static_cast<std::size_t>(index)];
        return {line.text, line.size};
    }

    /// How many spaces stand before the line, 0 to 32767.
    std::int16_t spaces(std::int32_t index) const { return lines_[static_cast<std::size_t>(index)].spaces; }
    void setSpaces(std::int32_t index, std::int16_t spaces) {
        lines_[static_cast<std::size_t>(index)].spaces = spaces;
    }

    /// The whole line, spaces included.
    std::string line(std::int32_t index) const;

  private:
    struct Line {
        const char* text;
        std::uint32_t size;
        std::int16_t spaces;
    };
    static constexpr std::size_t longestLine = 0xFFFFFFFF;

    [[noreturn]] static void refuse();
    char* roomFor(std::size_t bytes);

    std::vector<Line> lines_;
    std::vector<std::unique_ptr<char[]>> blocks_; // the copies; lines point to them, so they never move
    char* free_ = nullptr;                        // in the last block
    std::size_t freeBytes_ = 0;
};

} // namespace corvelle::base
