#pragma once

#include "ide/workspace/workspace.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvelle::workbench {

/// The open project or projects, and what the user has not saved of them yet.
class ProjectSession {
  public:
    /// Where a new component is to be saved; nothing if the user changes his mind.
    using ChooseFile = std::function<std::optional<std::filesystem::path>(workspace::Component&)>;

    /// Nothing while none is open.
    const std::shared_ptr<workspace::Workspace>& ide() const { return ide_; }
    /// Opens a project, group or module in place of what is open; returns what had to be left out, a line
    /// each. Throws base::RunTimeError, and then what is open stays.
    std::vector<std::string> open(const std::filesystem::path& path);
    /// The active project's name; empty while none is open.
    std::string title() const;
    /// Makes the component's project the active one.
    void setActive(const workspace::Component& component);
    /// The components with changes that are not saved.
    std::vector<workspace::Component*> unsaved() const;
    /// Saves them all; returns what went wrong, a line each. The ones that could not be saved stay unsaved.
    std::vector<std::string> save(const ChooseFile& choose);

  private:
    std::shared_ptr<workspace::Workspace> ide_;
};

/// What the user calls the component: its name, and its file's where it has one.
std::string describe(workspace::Component& component);

} // namespace corvelle::workbench
