#include "ide/workspace/project.h"

#include "base/path_text.h"
#include "base/text.h"
#include "ide/workspace/part_of.h"

#include <utility>

namespace corvelle::workspace {

using base::ErrorNumber;
using base::RunTimeError;

Project::Project(std::weak_ptr<void> whole, std::filesystem::path path, std::string name,
                 ide::ProjectType type)
    : whole_(std::move(whole)), path_(std::move(path)), name_(std::move(name)), type_(type) {}

std::string Project::FileName() {
    return base::textOf(path_);
}

std::shared_ptr<ide::VBComponents> Project::VBComponents() {
    return partOf<ide::VBComponents>(whole_, collection_);
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

std::shared_ptr<ide::VBComponent> Project::Components::Add(ide::ComponentType) {
    throw RunTimeError(ErrorNumber::MemberNotSupported);
}

} // namespace corvelle::workspace
