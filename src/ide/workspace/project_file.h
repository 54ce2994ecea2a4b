#pragma once

#include "ide/component_type.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::workspace {

/// Calls `take` with key and value of each `key=value` line before the first `[section]`, without the blanks
/// around them. Lines of another form are passed over, a byte order mark too.
void readKeyValues(std::string_view bytes,
                   const std::function<void(std::string_view key, std::string_view value)>& take);

/// The value without the quotes around it, if it has them.
std::string_view withoutQuotes(std::string_view value);

/// A project group's file (.vbg): `StartupProject=` and `Project=` lines, of which each project counts once.
class GroupFile {
  public:
    explicit GroupFile(std::string_view bytes);

    /// The projects' paths as written (relative to the group's file, with backslashes), in the order of the
    /// lines.
    const std::vector<std::string>& projects() const { return projects_; }
    /// Which of them is the startup project: the first one when the file does not say.
    std::size_t startup() const { return startup_; }

  private:
    std::vector<std::string> projects_;
    std::size_t startup_ = 0;
};

/// One module of a project, as its line in the project file has it.
struct ProjectMember {
    ide::ComponentType type; ///< by the line's key; a form may turn out to be an MDI form
    std::string name;        ///< empty where the line has only a path
    std::string path;        ///< as written: relative to the project file, with backslashes
    std::size_t offset = 0;  ///< a place in its line, from the file's start
};

/// A project file (.vbp): `key=value` lines, of which the ones of interest here are kept. Anything may stand
/// between them, in any order; what follows a `[section]` belongs to somebody else.
class ProjectFile {
  public:
    explicit ProjectFile(std::string_view bytes);

    ide::ProjectType type() const { return type_; }
    /// Each is empty when the file does not say.
    const std::string& name() const { return name_; }
    const std::string& title() const { return title_; }
    const std::string& startup() const { return startup_; }
    /// The modules with code, in the order of the lines.
    const std::vector<ProjectMember>& members() const { return members_; }
    /// Where the line behind the last one of the type, the references and the objects begins; 0, or behind a
    /// byte order mark, when there is none of them.
    std::size_t behindReferences() const { return behindReferences_; }

  private:
    void readLine(std::string_view bytes, std::string_view key, std::string_view value);

    ide::ProjectType type_ = ide::ProjectType::StandardExe;
    std::string name_, title_, startup_;
    std::vector<ProjectMember> members_;
    std::size_t behindReferences_ = 0;
};

/// A file's path as a project in the folder writes it: relative, with backslashes; absolute where there is no
/// way from the one to the other.
std::string writtenPath(const std::filesystem::path& folder, const std::filesystem::path& file);

/// The project file with the line of a standard module, `Module=Name; path`. Where a Module line for the same
/// file is there already it is that line; else it stands behind the last Module line, behind the last line of
/// another member where there is none, then behind the project's type, references and objects, then first.
/// The other bytes are kept; the last line is ended.
std::string withModule(std::string_view bytes, const std::filesystem::path& folder, std::string_view name,
                       const std::filesystem::path& file);

/// The project file with the name of the application's help file, `HelpFile="name"`, in the line that it has
/// for it; else in a new one, behind the start-up object's or behind the last line before the first section.
/// The other bytes are kept. The name has no quotes and no line end in it.
std::string withHelpFile(std::string_view bytes, std::string_view name);

} // namespace corvelle::workspace
