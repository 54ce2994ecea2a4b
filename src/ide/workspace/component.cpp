#include "ide/workspace/component.h"

#include "base/paths.h"
#include "base/text.h"
#include "ide/workspace/part_of.h"
#include "ide/workspace/project.h"

#include <algorithm>
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

// The IDE's rule for names of modules.
bool isComponentName(std::string_view name) {
    constexpr std::size_t longest = 40;
    if (name.empty() || name.size() > longest || name[0] == '_' || (name[0] >= '0' && name[0] <= '9'))
        return false;
    return std::all_of(name.begin(), name.end(), base::isNameCharacter);
}

} // namespace

Component::Component(std::weak_ptr<void> whole, Project& project, std::string name)
    : whole_(std::move(whole)), project_(&project), name_(std::move(name)),
      module_(ModuleFile({}, ide::ComponentType::StdModule)), dirty_(true) {}

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
    if (isNew()) throw RunTimeError(ErrorNumber::BadFileNameOrNumber);
    const std::string bytes = module_.bytes();
    if (written_ || bytes != module_.file().bytes()) {
        base::ReplaceOptions how{.stamp = stamp_};
        if (!written_) how.content = file().bytes();
        base::replaceFile(
            path_, [&](base::FileWriter& writer) { writer.write(bytes); }, how);
        written_ = true;
        base::stampOf(path_, stamp_);
    }
    dirty_ = false;
}

std::shared_ptr<ide::VBForm> Component::Designer() {
    if (!file().hasDesigner() || !ide::hasDesigner(Type())) return nullptr;
    return partOf<ide::VBForm>(whole_, form_);
}

std::shared_ptr<ide::Window> Component::DesignerWindow() {
    if (!ide::hasDesigner(Type())) return nullptr;
    designerWindow_.open();
    return partOf<ide::Window>(whole_, designerWindow_);
}

DesignerWindow* Component::designerWindow() {
    return ide::hasDesigner(Type()) ? &designerWindow_ : nullptr;
}

void Component::Activate() {
    if (ide::hasDesigner(Type())) {
        designerWindow_.SetFocus();
    } else if (observer_) {
        observer_->codeActivated(*this);
    }
}

void Component::setName(std::string_view name) {
    if (!isNew()) throw RunTimeError(ErrorNumber::MemberNotSupported);
    if (!isComponentName(name)) throw RunTimeError(ErrorNumber::InvalidPropertyValue);
    if (project_->hasName(name, *this)) {
        constexpr std::int32_t nameConflict = 32813;
        throw RunTimeError(nameConflict, "Name conflicts with existing module, project, or object library");
    }
    name_ = name;
}

void Component::SaveAs(std::string_view fileName) {
    if (!isNew()) throw RunTimeError(ErrorNumber::MemberNotSupported);
    const auto path = base::pathOf(fileName);
    auto bytes = "Attribute VB_Name = \"" + name_ + "\"\r\n" + module_.bytes();
    project_->writeFile(path, bytes);
    project_->enter(name_, path);
    path_ = path;
    module_ = EditedModule(ModuleFile(std::move(bytes), Type()));
    base::stampOf(path_, stamp_);
    dirty_ = false;
    project_ = nullptr;
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

std::shared_ptr<ide::VBControls> Component::Form::VBControls() {
    return partOf<ide::VBControls>(component_.whole_, *this);
}

std::int32_t Component::Form::Count() {
    return static_cast<std::int32_t>(component_.file().controlCount());
}

std::shared_ptr<ide::VBControl> Component::Form::Item(std::int32_t index) {
    if (index < 1 || index > Count()) throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    if (controls_.empty()) {
        const auto count = component_.file().controlCount();
        controls_.reserve(count);
        for (std::uint32_t i = 0; i < count; ++i) controls_.emplace_back(component_, i);
    }
    return partOf<ide::VBControl>(component_.whole_, controls_[static_cast<std::size_t>(index - 1)]);
}

std::string Component::Control::ClassName() {
    return std::string(component_.file().controlClass(index_));
}

std::shared_ptr<ide::Properties> Component::Control::Properties() {
    return partOf<ide::Properties>(component_.whole_, *this);
}

std::shared_ptr<ide::Property> Component::Control::Item(std::string_view name) {
    if (!base::equalIgnoringCase(name, "Name")) throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    return partOf<ide::Property>(component_.whole_, *this);
}

std::string Component::Control::Value() {
    return std::string(component_.file().controlName(index_));
}

} // namespace corvelle::workspace
