#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace corvelle::base {

/// Walks over the lines of a file. A line ends at LF; one CR before it belongs to the line end; a CR
/// elsewhere is an ordinary character. Text after the last line end is a line too.
class LineReader {
  public:
    explicit LineReader(std::string_view bytes, std::size_t start = 0) : bytes_(bytes), next_(start) {}

    /// Goes to the next line; false at the end of the file.
    bool next() {
        if (next_ >= bytes_.size()) return false;
        begin_ = next_;
        ++number_;
        const void* found = std::memchr(bytes_.data() + begin_, '\n', bytes_.size() - begin_);
        if (!found) {
            end_ = next_ = bytes_.size();
            return true;
        }
        end_ = static_cast<std::size_t>(static_cast<const char*>(found) - bytes_.data());
        next_ = end_ + 1;
        if (end_ > begin_ && bytes_[end_ - 1] == '\r') {
            --end_;
            metCarriageReturn_ = true;
        }
        return true;
    }

    /// The line without its line end.
    std::string_view line() const { return bytes_.substr(begin_, end_ - begin_); }
    std::size_t begin() const { return begin_; }
    std::size_t end() const { return end_; }
    /// Where the next line begins.
    std::size_t position() const { return next_; }
    /// How many lines have been read: the line's number from 1.
    std::uint32_t number() const { return number_; }
    /// Whether some line read so far ends in CR LF.
    bool metCarriageReturn() const { return metCarriageReturn_; }

  private:
    std::string_view bytes_;
    std::size_t begin_ = 0, end_ = 0, next_;
    std::uint32_t number_ = 0;
    bool metCarriageReturn_ = false;
};

/// The file's lines, behind the UTF-8 byte order mark that it may begin with.
inline LineReader linesOf(std::string_view bytes) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    return LineReader(bytes, bytes.substr(0, mark.size()) == mark ? mark.size() : 0);
}

} // namespace corvelle::base
