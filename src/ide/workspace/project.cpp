#include "ide/workspace/project.h"

#include "base/paths.h"
#include "base/text.h"
#include "ide/workspace/part_of.h"
#include "ide/workspace/project_file.h"

#include <algorithm>
#include <utility>

namespace corvelle::workspace {

using base::ErrorNumber;
using base::RunTimeError;

namespace {

void replaceAtOnce(const std::filesystem::path& path, std::string_view bytes,
                   const base::ReplaceOptions& how) {
    base::replaceFile(
        path, [&](base::FileWriter& writer) { writer.write(bytes); }, how);
}

} // namespace

Project::Project(std::weak_ptr<void> whole, std::filesystem::path path, std::string name,
                 ide::ProjectType type)
    : whole_(std::move(whole)), path_(std::move(path)), name_(std::move(name)), type_(type),
      write_(replaceAtOnce) {}

std::string Project::FileName() {
    return base::textOf(path_);
}

std::shared_ptr<ide::VBComponents> Project::VBComponents() {
    return partOf<ide::VBComponents>(whole_, collection_);
}

void Project::add(std::unique_ptr<Component> component) {
    component->setObserver(observer_);
    components_.push_back(std::move(component));
}

void Project::setObserver(WorkspaceObserver* observer) {
    observer_ = observer;
    for (const auto& component : components_) component->setObserver(observer);
}

void Project::setFile(std::string bytes, const base::FileStamp& stamp) {
    bytes_ = std::move(bytes);
    stamp_ = stamp;
}

void Project::addUnread(std::string name, std::filesystem::path path) {
    unread_.push_back({std::move(name), std::move(path)});
}

bool Project::isUnread(const std::filesystem::path& path) const {
    return std::any_of(unread_.begin(), unread_.end(),
                       [&](const Unread& member) { return base::isSamePath(member.path, path); });
}

bool Project::removeModule(std::string_view name, const std::filesystem::path& path) {
    const auto isUnread = [&](const Unread& member) {
        return base::equalIgnoringCase(member.name, name) && base::isSamePath(member.path, path);
    };
    const auto isComponent = [&](const std::unique_ptr<Component>& component) {
        return component->Type() == ide::ComponentType::StdModule && !component->isNew() &&
               base::equalIgnoringCase(component->Name(), name) && base::isSamePath(component->path(), path);
    };
    return std::erase_if(unread_, isUnread) + std::erase_if(components_, isComponent) > 0;
}

bool Project::hasName(std::string_view name, const Component& except) const {
    const auto isIt = [&](std::string_view other) { return base::equalIgnoringCase(other, name); };
    return isIt(name_) ||
           std::any_of(unread_.begin(), unread_.end(),
                       [&](const Unread& member) { return isIt(member.name); }) ||
           std::any_of(components_.begin(), components_.end(), [&](const auto& component) {
               return component.get() != &except && isIt(component->Name());
           });
}

void Project::enter(std::string_view name, const std::filesystem::path& path) {
    if (path_.empty()) return;
    rewrite(withModule(bytes_, path_.parent_path(), name, path));
}

void Project::setHelpFile(std::string_view name) {
    if (!path_.empty()) rewrite(withHelpFile(bytes_, name));
}

void Project::rewrite(std::string bytes) {
    if (bytes == bytes_) return;
    write_(path_, bytes, {.stamp = stamp_});
    bytes_ = std::move(bytes);
    base::stampOf(path_, stamp_);
}

std::int32_t Project::Components::Count() {
    return static_cast<std::int32_t>(project_.components_.size());
}

std::shared_ptr<ide::VBComponent> Project::Components::Item(std::int32_t index) {
    if (index < 1 || index > Count()) throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    return partOf<ide::VBComponent>(project_.whole_,
                                    *project_.components_[static_cast<std::size_t>(index - 1)]);
}

std::shared_ptr<ide::VBComponent> Project::Components::Item(std::string_view name) {
    for (const auto& component : project_.components_) {
        if (base::equalIgnoringCase(component->Name(), name))
            return partOf<ide::VBComponent>(project_.whole_, *component);
    }
    throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
}

std::shared_ptr<ide::VBComponent> Project::Components::Add(ide::ComponentType type) {
    if (type != ide::ComponentType::StdModule) throw RunTimeError(ErrorNumber::MemberNotSupported);
    auto component = std::make_unique<Component>(project_.whole_, project_, std::string());
    for (int number = 1; component->Name().empty(); ++number) {
        const auto name = "Module" + std::to_string(number);
        if (!project_.hasName(name, *component)) component->setName(name);
    }
    project_.add(std::move(component));
    return Item(Count());
}

} // namespace corvelle::workspace
