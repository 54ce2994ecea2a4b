#pragma once

#include "cli/exit_status.h"
#include "cli/property_settings.h"
#include "ide/workspace/designer_properties.h"
#include "ide/workspace/project.h"
#include "indexer/stable/memory.h"
#include "indexer/stable/numbering.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::cli {

/// The new bytes of a designer's file.
struct ChangedFile {
    workspace::Component* component;
    std::string bytes;
};

/// What a run changes in the designers of a project. Nothing is written here.
class DesignerChanges {
  public:
    /// Composes the files of all designers of the numbering, or, to remove, of all that the memory knows of.
    /// The memory's written properties become those that will stand there as ours.
    DesignerChanges(const workspace::Project& project, const PropertySettings& settings,
                    const indexer::stable::Numbering& numbering, indexer::stable::Memory& memory);

    /// The files that change, in the order of the project.
    const std::vector<ChangedFile>& files() const { return files_; }
    /// What is to be told, one line each, ready for a terminal.
    const std::vector<std::string>& messages() const { return messages_; }
    /// exitFailed: nothing may be written.
    ExitStatus status() const { return status_; }

  private:
    using Wishes = std::vector<workspace::HelpPropertyWish>;

    void write(const indexer::stable::Numbering& numbering, indexer::stable::Memory& memory);
    void remove(indexer::stable::Memory& memory);
    Wishes wishesOf(const indexer::stable::NumberedDesigner& designer, workspace::Component& component,
                    const Wishes& old) const;
    /// None if the designer cannot be read as one: told.
    std::optional<workspace::ChangedDesigner> change(workspace::Component& component, const Wishes& wishes,
                                                     bool removes);
    /// Whether the file is one that an IDE keeps a designer in, and no other line of the project names it.
    bool mayChange(workspace::Component& component);
    void tell(workspace::Component& component, const workspace::HelpPropertyWish& wish,
              const workspace::HelpPropertyOutcome& outcome, bool removes);
    void say(ExitStatus status, workspace::Component& component, std::uint32_t line, std::string_view text);

    const workspace::Project& project_;
    const PropertySettings& settings_;
    std::map<std::string, int> names_, fileNames_; // how many of the project's designers have each
    std::vector<ChangedFile> files_;
    std::vector<std::string> messages_;
    ExitStatus status_ = exitDone;
};

/// The files that a project's designers have, as far as they can be found: what a run that changes designers
/// must lock besides its own. Empty for what is no project.
std::vector<std::filesystem::path> designerFiles(const std::filesystem::path& project);

} // namespace corvelle::cli
