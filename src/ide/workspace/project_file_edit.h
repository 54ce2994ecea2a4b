#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace corvelle::workspace {

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
