#include "ide/workspace/component.h"

#include "base/path_text.h"
#include "ide/workspace/part_of.h"

#include <utility>

namespace corvelle::workspace {

namespace {

using base::ErrorNumber;
using base::RunTimeError;

std::string nameOf(const ModuleFile& file, std::string_view lineName, const std::filesystem::path& path) {
    if (file.hasNameAttribute()) return file.name();
    if (!lineName.empty()) return std::string(lineName);
    return file.name().empty() ? base::textOf(path.stem()) : file.name();
}

} // namespace

Component::Component(std::weak_ptr<void> whole, std::filesystem::path path, std::string_view lineName,
                     ModuleFile file, const base::FileStamp& stamp)
    : whole_(std::move(whole)), path_(std::move(path)), name_(nameOf(file, lineName, path_)),
      module_(std::move(file)), stamp_(stamp) {}

std::shared_ptr<ide::CodeModule> Component::CodeModule() {
    return partOf<ide::CodeModule>(whole_, code_);
}

std::shared_ptr<ide::CodePane> Component::CodePane() {
    return partOf<ide::CodePane>(whole_, pane_);
}

std::string Component::FileNames(std::int32_t index) {
    if (index != 1) throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    return base::textOf(path_);
}

void Component::Save() {
    if (!dirty_) return;
    const std::string bytes = module_.bytes();
    if (written_ || bytes != module_.file().bytes()) {
        base::replaceFile(
            path_, [&](base::FileWriter& writer) { writer.write(bytes); }, stamp_);
        written_ = true;
        base::stampOf(path_, stamp_);
    }
    dirty_ = false;
}

void Component::setName(std::string_view) {
    throw RunTimeError(ErrorNumber::MemberNotSupported);
}

std::shared_ptr<ide::VBForm> Component::Designer() {
    // What has no designer need not be supported.
    const auto type = Type();
    if (type == ide::ComponentType::StdModule || type == ide::ComponentType::ClassModule) return nullptr;
    throw RunTimeError(ErrorNumber::MemberNotSupported);
}

std::shared_ptr<ide::Window> Component::DesignerWindow() {
    throw RunTimeError(ErrorNumber::MemberNotSupported);
}

void Component::Activate() {
    throw RunTimeError(ErrorNumber::MemberNotSupported);
}

void Component::SaveAs(std::string_view) {
    throw RunTimeError(ErrorNumber::MemberNotSupported);
}

std::shared_ptr<ide::VBComponent> Component::Code::Parent() {
    return partOf<ide::VBComponent>(component_.whole_, component_);
}

std::int32_t Component::Code::CountOfLines() {
    return static_cast<std::int32_t>(component_.module_.lineCount());
}

void Component::Code::requireLines(std::int32_t start, std::int32_t count) {
    if (count < 0) throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    const std::int64_t behindLast = std::int64_t{CountOfLines()} + 1;
    if (start < 1 || start + std::int64_t{count} > behindLast)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
}

std::string Component::Code::Lines(std::int32_t start, std::int32_t count) {
    requireLines(start, count);
    std::string text;
    for (std::int32_t i = 0; i < count; ++i) {
        if (i > 0) text += "\r\n";
        text += component_.module_.line(static_cast<std::uint32_t>(start - 1 + i));
    }
    return text;
}

void Component::Code::DeleteLines(std::int32_t start, std::int32_t count) {
    requireLines(start, count);
    component_.module_.deleteLines(static_cast<std::uint32_t>(start - 1), static_cast<std::uint32_t>(count));
    if (count > 0) component_.dirty_ = true;
}

void Component::Code::InsertLines(std::int32_t line, std::string_view text) {
    if (line < 1) throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    auto& module = component_.module_;
    auto index = std::min(static_cast<std::uint32_t>(line - 1), module.lineCount());
    while (true) {
        const auto end = text.find('\n');
        auto piece = text.substr(0, end);
        // A CR belongs to a line break only in front of an LF, as in the file.
        if (end != std::string_view::npos && !piece.empty() && piece.back() == '\r') piece.remove_suffix(1);
        module.insertLine(index++, piece);
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    component_.dirty_ = true;
}

} // namespace corvelle::workspace
