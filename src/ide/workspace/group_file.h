#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::workspace {

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

} // namespace corvelle::workspace
