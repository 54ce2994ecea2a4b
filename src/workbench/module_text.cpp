#include "workbench/module_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace corvelle::workbench {

namespace {

constexpr std::string_view lineBreak = "\r\n";

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    if (text.empty()) return lines;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find(lineBreak, start)) != text.npos; start = end + lineBreak.size())
        lines.push_back(text.substr(start, end - start));
    lines.push_back(text.substr(start));
    return lines;
}

} // namespace

std::string textOf(ide::CodeModule& module) {
    const auto count = module.CountOfLines();
    return count > 0 ? module.Lines(1, count) : std::string();
}

void changeText(ide::CodeModule& module, std::string_view before, std::string_view after) {
    if (before == after) return;
    auto old = linesOf(before);
    const auto now = linesOf(after);
    // An empty line and no line at all look the same.
    if (old.empty() && module.CountOfLines() == 1) old.emplace_back();

    const auto common = std::min(old.size(), now.size());
    std::size_t head = 0;
    while (head < common && old[head] == now[head]) ++head;
    std::size_t tail = 0;
    while (tail < common - head && old[old.size() - 1 - tail] == now[now.size() - 1 - tail]) ++tail;

    const auto first = static_cast<std::int32_t>(head + 1);
    const auto gone = static_cast<std::int32_t>(old.size() - head - tail);
    if (gone > 0) module.DeleteLines(first, gone);
    if (head + tail == now.size()) return;
    std::string text;
    for (std::size_t i = head; i < now.size() - tail; ++i) {
        if (i > head) text += lineBreak;
        text += now[i];
    }
    module.InsertLines(first, text);
}

} // namespace corvelle::workbench
