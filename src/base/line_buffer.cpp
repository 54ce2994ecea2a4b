#include "base/line_buffer.h"

#include "base/run_time_error.h"

#include <algorithm>

namespace corvelle::base {

namespace {

constexpr std::size_t block = std::size_t{1} << 16;

} // namespace

void LineBuffer::reset() {
    beginLoading(0);
    lines_.push_back({nullptr, 0, 0});
}

void LineBuffer::beginLoading(std::size_t lines) {
    // Swapped, not cleared: a large module's memory goes back when its run is over.
    std::vector<Line>().swap(lines_);
    blocks_.clear();
    free_ = nullptr;
    freeBytes_ = 0;
    lines_.reserve(lines);
}

void LineBuffer::append(std::string_view text) {
    if (text.size() > longestLine) refuse();
    char* const copy = roomFor(text.size());
    std::copy(text.begin(), text.end(), copy);
    refer({copy, text.size()});
}

char* LineBuffer::roomFor(std::size_t bytes) {
    if (bytes > freeBytes_) {
        freeBytes_ = std::max(bytes, block);
        blocks_.push_back(std::make_unique_for_overwrite<char[]>(freeBytes_));
        free_ = blocks_.back().get();
    }
    char* const room = free_;
    free_ += bytes;
    freeBytes_ -= bytes;
    return room;
}

void LineBuffer::refuse() {
    throw RunTimeError(ErrorNumber::OutOfMemory);
}

std::string LineBuffer::line(std::int32_t index) const {
    std::string result(static_cast<std::size_t>(spaces(index)), ' ');
    result += text(index);
    return result;
}

} // namespace corvelle::base
