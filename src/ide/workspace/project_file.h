#pragma once

#include "ide/component_type.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::workspace {

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

} // namespace corvelle::workspace
