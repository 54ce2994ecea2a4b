#include "formatter/structured_pass.h"

#include <algorithm>
#include <utility>

namespace corvelle::formatter {

void StructuredPass::ResetAll() {
    buffer_.reset();
    formatted_ = {};
    finds_.clear();
    cancelRequested_ = false;
    observer_.SetProcInfo("No Process");
}

void StructuredPass::beginReading(std::size_t lines) {
    buffer_.beginLoading(lines, 0);
}

void StructuredPass::readLine(std::string_view raw) {
    buffer_.append(raw);
    observer_.lineKept(buffer_.maxIndx() + 1);
    observer_.doEvents();
}

std::int32_t StructuredPass::endReading(const structured::StructuredOptions& options) {
    ModuleCode code;
    code.lines.reserve(static_cast<std::size_t>(buffer_.maxIndx() + 1));
    for (std::int32_t i = 0; i <= buffer_.maxIndx(); ++i) code.lines.push_back(buffer_.text(i));
    formatted_ = layOut_(code, options);
    return formatted_.lines.maxIndx();
}

std::int32_t StructuredPass::run() {
    const std::vector<Wrong> wrong = everythingWrong();
    auto next = wrong.begin();
    const auto tell = [&](std::int32_t i) {
        for (; next != wrong.end() && next->position == i; ++next) {
            const StructuralError error{StructuralError::Kind::Tab, i};
            observer_.addError(error);
            if (!next->find.empty()) finds_.push_back(error.text() + ": " + next->find);
        }
    };
    if (!passOverLines(observer_, formatted_.lines.maxIndx(), cancelRequested_, tell)) return -1;
    buffer_ = std::move(formatted_.lines);
    return static_cast<std::int32_t>(wrong.size());
}

// By their positions. A line that is not kept has the position of the one that follows, or of the last.
std::vector<StructuredPass::Wrong> StructuredPass::everythingWrong() const {
    std::vector<std::int32_t> positions;
    positions.reserve(formatted_.kept.size());
    std::int32_t next = 0;
    for (const bool kept : formatted_.kept) {
        positions.push_back(std::min(next, formatted_.lines.maxIndx()));
        if (kept) ++next;
    }
    std::vector<Wrong> wrong;
    for (const auto& fault : formatted_.faults) wrong.push_back({positions[fault.line], {}});
    for (const auto& find : formatted_.unsafe) wrong.push_back({positions[find.line], find.text});
    std::stable_sort(wrong.begin(), wrong.end(),
                     [](const Wrong& a, const Wrong& b) { return a.position < b.position; });
    return wrong;
}

} // namespace corvelle::formatter
