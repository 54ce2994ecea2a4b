#pragma once

#include "ide/vbe.h"
#include "ide/workspace/menus.h"
#include "ide/workspace/path_resolver.h"
#include "ide/workspace/project.h"
#include "ide/workspace/project_file.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::workspace {

/// The embedded IDE: projects on disk behind the IDE's object model. For one thread. Every object of its
/// projects keeps it alive.
class Workspace : public ide::VBE, public std::enable_shared_from_this<Workspace> {
  public:
    /// Something that was left out, and why; the line is 0 where none is meant.
    struct Problem {
        std::filesystem::path path;
        std::string reason;
        std::uint32_t line = 0;
        ide::ComponentType type{}; ///< of the member; zero for a project
    };

    /// Opens a project group, a project or a single module, told apart by the path's ending. Members that
    /// cannot be read are left out and reported in `problems`. Throws base::FileError when the path itself
    /// cannot be read, RunTimeError 5 for another kind of file.
    static std::shared_ptr<Workspace> open(const std::filesystem::path& path);

    /// The startup project of a group, the first one otherwise.
    std::shared_ptr<ide::VBProject> ActiveVBProject() override;
    void setActiveVBProject(Project& project) { activeProject_ = &project; }
    /// Nothing until a component's code is shown.
    std::shared_ptr<ide::CodePane> ActiveCodePane() override;
    /// Shows the code of one of its components; of none with a null pointer.
    void setActiveCodePane(Component* component) { shown_ = component; }
    /// Who shows what the workspace has no windows for; nobody with a null pointer. It must outlive the
    /// workspace or be taken away.
    void setObserver(WorkspaceObserver* observer);
    std::shared_ptr<ide::CommandBars> CommandBars() override;
    std::shared_ptr<ide::Events> Events() override;

    const std::vector<std::unique_ptr<Project>>& projects() const { return projects_; }
    const std::vector<Problem>& problems() const { return problems_; }
    Menus& menus() { return menus_; }

  private:
    void openGroup(const std::filesystem::path& path);
    void openProject(const std::filesystem::path& path);
    void openMember(Project& project, const ProjectMember& member, const std::filesystem::path& folder);
    void openModule(Project& project, const std::filesystem::path& path, ide::ComponentType type,
                    std::string_view lineName);

    std::vector<std::unique_ptr<Project>> projects_;
    std::vector<Problem> problems_;
    PathResolver resolver_;
    Project* activeProject_ = nullptr;
    Component* shown_ = nullptr;
    Menus menus_;
    MenuEvents events_;
};

} // namespace corvelle::workspace
