#include "ide/workspace/module_file.h"

#include "base/text.h"
#include "ide/workspace/declarations.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace corvelle::workspace {

HeaderNeverEnds::HeaderNeverEnds(std::uint32_t line)
    : std::runtime_error("The header never ends"), line_(line) {}

ModuleFile::ModuleFile(std::string bytes, ide::ComponentType type) : bytes_(std::move(bytes)), type_(type) {
    if (bytes_.size() > std::numeric_limits<std::uint32_t>::max())
        throw std::length_error("The file is larger than 4 GiB");
    auto header = readModuleHeader(bytes_, type);
    if (header.isMdiForm) type_ = ide::ComponentType::VBMDIForm;
    hasNameAttribute_ = !header.attributeName.empty();
    name_ = std::move(hasNameAttribute_ ? header.attributeName : header.designerName);
    hasDesigner_ = header.hasDesigner;
    controls_ = std::move(header.controls);
    headerEnd_ = static_cast<std::uint32_t>(header.lines.position());
    headerLines_ = header.lines.number();
    readCode(header.lines);
}

void ModuleFile::readCode(base::LineReader lines) {
    // Counted first, so that none of them moves when they are stored.
    const auto code = std::string_view(bytes_).substr(lines.position());
    lines_.reserve(base::countBytes(code, [](char c) { return c == '\n'; }) + 1);
    std::uint32_t hiddenLines = 0;
    while (lines.next()) {
        const auto begin = static_cast<std::uint32_t>(lines.begin());
        if (!mayBeAttributeLine(lines.line()) || !readAttributeLine(lines.line()).found) {
            lines_.push_back({begin, static_cast<std::uint32_t>(lines.end())});
            continue;
        }
        if (hidden_.empty() || hidden_.back().end != begin)
            hidden_.push_back({codeLineCount(), 0, begin, begin, 0});
        auto& run = hidden_.back();
        ++run.lines;
        run.end = static_cast<std::uint32_t>(lines.position());
        run.hiddenLinesThrough = ++hiddenLines;
    }
    const bool anyLineEnd = bytes_.find('\n') != std::string::npos;
    if (anyLineEnd && !lines.metCarriageReturn()) newLine_ = "\n";
}

std::string_view ModuleFile::controlClass(std::uint32_t index) const {
    const auto& block = controls_[index];
    return std::string_view(bytes_).substr(block.classBegin, block.classSize);
}

std::string_view ModuleFile::controlName(std::uint32_t index) const {
    const auto& block = controls_[index];
    return std::string_view(bytes_).substr(block.nameBegin, block.nameSize);
}

std::uint32_t ModuleFile::fileLine(std::uint32_t index) const {
    const auto after =
        std::upper_bound(hidden_.begin(), hidden_.end(), index,
                         [](std::uint32_t line, const HiddenRun& run) { return line < run.codeLinesBefore; });
    const auto hiddenBefore = after == hidden_.begin() ? 0 : std::prev(after)->hiddenLinesThrough;
    return headerLines_ + hiddenBefore + index + 1;
}

std::string_view ModuleFile::hidden(const HiddenRun& run) const {
    return std::string_view(bytes_).substr(run.begin, run.end - run.begin);
}

} // namespace corvelle::workspace
