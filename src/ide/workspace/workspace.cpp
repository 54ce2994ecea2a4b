#include "ide/workspace/workspace.h"

#include "base/paths.h"
#include "ide/workspace/file_kind.h"
#include "ide/workspace/part_of.h"
#include "ide/workspace/project_file.h"

#include <utility>

namespace corvelle::workspace {

using base::ErrorNumber;
using base::FileError;
using base::RunTimeError;

std::shared_ptr<Workspace> Workspace::open(const std::filesystem::path& path) {
    auto workspace = std::make_shared<Workspace>();
    if (isGroupPath(path)) {
        workspace->openGroup(path);
    } else if (isProjectPath(path)) {
        workspace->openProject(path);
    } else if (const auto type = moduleTypeOfPath(path)) {
        auto project = std::make_unique<Project>(workspace, std::filesystem::path(), "Project1",
                                                 ide::ProjectType::StandardExe);
        workspace->openModule(*project, path, *type, {});
        workspace->projects_.push_back(std::move(project));
    } else {
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    }
    if (!workspace->activeProject_ && !workspace->projects_.empty())
        workspace->activeProject_ = workspace->projects_.front().get();
    return workspace;
}

void Workspace::openGroup(const std::filesystem::path& path) {
    const GroupFile file(base::readFile(path));
    const auto folder = path.parent_path();
    for (std::size_t i = 0; i < file.projects().size(); ++i) {
        const auto& written = file.projects()[i];
        const auto found = resolver_.resolve(folder, written);
        const auto projectPath = found.value_or(pathInProject(folder, written));
        try {
            if (!found) throw FileError(ErrorNumber::FileNotFound);
            openProject(projectPath);
            if (i == file.startup()) activeProject_ = projects_.back().get();
        } catch (const FileError& error) {
            problems_.push_back({projectPath, error.description(), 0, {}});
        }
    }
}

void Workspace::openProject(const std::filesystem::path& path) {
    base::FileStamp stamp;
    auto bytes = base::readFile(path, &stamp);
    const ProjectFile file(bytes);
    auto project = std::make_unique<Project>(
        weak_from_this(), path, file.name().empty() ? base::textOf(path.stem()) : file.name(), file.type());
    project->setFile(std::move(bytes), stamp);
    for (const auto& member : file.members()) openMember(*project, member, path.parent_path());
    projects_.push_back(std::move(project));
}

void Workspace::openMember(Project& project, const ProjectMember& member,
                           const std::filesystem::path& folder) {
    const auto found = resolver_.resolve(folder, member.path);
    const auto path = found.value_or(pathInProject(folder, member.path));
    const auto problemsBefore = problems_.size();
    try {
        if (!found) throw FileError(ErrorNumber::FileNotFound);
        openModule(project, path, member.type, member.name);
    } catch (const FileError& error) {
        problems_.push_back({path, error.description(), 0, member.type});
    }
    if (problems_.size() > problemsBefore) project.addUnread(member.name, path);
}

void Workspace::openModule(Project& project, const std::filesystem::path& path, ide::ComponentType type,
                           std::string_view lineName) {
    base::FileStamp stamp;
    auto bytes = base::readFile(path, &stamp);
    try {
        project.add(std::make_unique<Component>(weak_from_this(), path, lineName,
                                                ModuleFile(std::move(bytes), type), stamp));
    } catch (const HeaderNeverEnds& error) {
        problems_.push_back({path, error.what(), error.line(), type});
    }
}

std::shared_ptr<ide::VBProject> Workspace::ActiveVBProject() {
    if (!activeProject_) return nullptr;
    return partOf<ide::VBProject>(weak_from_this(), *activeProject_);
}

std::shared_ptr<ide::CodePane> Workspace::ActiveCodePane() {
    return shown_ ? shown_->CodePane() : nullptr;
}

void Workspace::setObserver(WorkspaceObserver* observer) {
    for (const auto& project : projects_) project->setObserver(observer);
}

std::shared_ptr<ide::CommandBars> Workspace::CommandBars() {
    return partOf<ide::CommandBars>(weak_from_this(), menus_);
}

std::shared_ptr<ide::Events> Workspace::Events() {
    return partOf<ide::Events>(weak_from_this(), events_);
}

} // namespace corvelle::workspace
