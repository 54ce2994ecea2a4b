#include "workbench/project_session.h"

#include "base/paths.h"

namespace corvelle::workbench {

std::vector<std::string> ProjectSession::open(const std::filesystem::path& path) {
    ide_ = workspace::Workspace::open(std::filesystem::absolute(path));
    std::vector<std::string> leftOut;
    for (const auto& problem : ide_->problems())
        leftOut.push_back(base::textOf(problem.path.filename()) + ": " + problem.reason);
    return leftOut;
}

std::string ProjectSession::title() const {
    const auto project = ide_ ? ide_->ActiveVBProject() : nullptr;
    return project ? project->Name() : std::string();
}

void ProjectSession::setActive(const workspace::Component& component) {
    for (const auto& project : ide_->projects()) {
        for (const auto& one : project->components()) {
            if (one.get() == &component) ide_->setActiveVBProject(*project);
        }
    }
}

std::vector<workspace::Component*> ProjectSession::unsaved() const {
    std::vector<workspace::Component*> components;
    if (!ide_) return components;
    for (const auto& project : ide_->projects()) {
        for (const auto& component : project->components()) {
            if (component->IsDirty()) components.push_back(component.get());
        }
    }
    return components;
}

std::vector<std::string> ProjectSession::save(const ChooseFile& choose) {
    std::vector<std::string> failures;
    for (auto* const component : unsaved()) {
        try {
            if (component->isNew()) {
                if (const auto path = choose(*component)) component->SaveAs(base::textOf(*path));
            } else {
                component->Save();
            }
        } catch (const std::exception& error) {
            failures.push_back(describe(*component) + ": " + error.what());
        }
    }
    return failures;
}

std::string describe(workspace::Component& component) {
    if (component.path().empty()) return component.Name();
    return component.Name() + " (" + base::textOf(component.path().filename()) + ")";
}

} // namespace corvelle::workbench
