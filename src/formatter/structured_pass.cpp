#include "formatter/structured_pass.h"

#include <algorithm>
#include <utility>

namespace corvelle::formatter {

void StructuredPass::ResetAll() {
    buffer_.reset();
    formatted_ = {};
    remarks_.clear();
    cancelRequested_ = false;
    observer_.SetProcInfo("No Process");
}

void StructuredPass::beginReading(std::size_t lines) {
    buffer_.beginLoading(lines);
}

void StructuredPass::readLine(std::string_view raw) {
    buffer_.append(raw);
    observer_.lineKept(buffer_.maxIndx() + 1);
    observer_.doEvents();
}

std::int32_t StructuredPass::endReading(const structured::StructuredOptions& options) {
    std::vector<std::string_view> lines;
    lines.reserve(static_cast<std::size_t>(buffer_.maxIndx()) + 1);
    for (std::int32_t i = 0; i <= buffer_.maxIndx(); ++i) lines.push_back(buffer_.text(i));
    formatted_ = layOut_({.lines = std::move(lines)}, options);
    return formatted_.lines.maxIndx();
}

std::int32_t StructuredPass::run() {
    const std::vector<Entry> entries = everythingToTell();
    auto next = entries.begin();
    std::int32_t errors = 0;
    const auto tell = [&](std::int32_t i) {
        for (; next != entries.end() && next->position == i; ++next) {
            const StructuralError place{StructuralError::Kind::Tab, i};
            if (next->error) {
                observer_.addError(place);
                ++errors;
            }
            if (!next->remark.empty()) remarks_.push_back(place.text() + ": " + next->remark);
        }
    };
    if (!passOverLines(observer_, formatted_.lines.maxIndx(), cancelRequested_, tell)) return -1;
    std::swap(buffer_, formatted_.lines); // the new lines refer to the old ones, which live on
    return errors;
}

// By their positions. A line that is not kept has the position of the one that follows, or of the last.
std::vector<StructuredPass::Entry> StructuredPass::everythingToTell() const {
    std::vector<std::int32_t> positions;
    positions.reserve(formatted_.kept.size());
    std::int32_t next = 0;
    for (const bool kept : formatted_.kept) {
        positions.push_back(std::min(next, formatted_.lines.maxIndx()));
        if (kept) ++next;
    }
    std::vector<Entry> entries;
    for (const auto& fault : formatted_.faults) entries.push_back({positions[fault.line], {}, true});
    for (const auto& find : formatted_.unsafe) entries.push_back({positions[find.line], find.text, true});
    for (const auto& notice : formatted_.notices)
        entries.push_back({positions[notice.line], notice.text, false});
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& a, const Entry& b) { return a.position < b.position; });
    return entries;
}

} // namespace corvelle::formatter
