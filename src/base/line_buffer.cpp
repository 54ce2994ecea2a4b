#include "base/line_buffer.h"

#include "base/run_time_error.h"

#include <limits>

namespace corvelle::base {

void LineBuffer::reset() {
    // Swapped, not cleared: a large module's memory goes back when its run is over.
    std::string().swap(text_);
    std::vector<std::uint32_t>{0}.swap(ends_);
    std::vector<std::int16_t>{0}.swap(spaces_);
}

void LineBuffer::beginLoading(std::size_t lines, std::size_t bytes) {
    text_.clear();
    ends_.clear();
    spaces_.clear();
    text_.reserve(bytes);
    ends_.reserve(lines);
    spaces_.reserve(lines);
}

void LineBuffer::append(std::string_view text) {
    if (text.size() > std::numeric_limits<std::uint32_t>::max() - text_.size()) {
        throw RunTimeError(ErrorNumber::OutOfMemory);
    }
    text_.append(text);
    ends_.push_back(static_cast<std::uint32_t>(text_.size()));
    spaces_.push_back(0);
}

std::string LineBuffer::line(std::int32_t index) const {
    std::string result(static_cast<std::size_t>(spaces(index)), ' ');
    result += text(index);
    return result;
}

} // namespace corvelle::base
