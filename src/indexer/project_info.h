#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

// The indexer project file (.icp): eight lines with a key each.
namespace corvelle::indexer {

/// What a project file begins with.
inline constexpr std::string_view projectFileKey = "Indexer project file :";

/// What a project file tells.
using ProjectInfo = std::array<std::string, 7>;

/// The slots of ProjectInfo.
namespace slot {
inline constexpr std::size_t projectName = 0;
inline constexpr std::size_t projectFile = 1;
inline constexpr std::size_t header = 2;
inline constexpr std::size_t configuration = 3;
inline constexpr std::size_t text = 4;
/// The module's two values still have the space of their keys in front.
inline constexpr std::size_t moduleName = 5;
inline constexpr std::size_t moduleFile = 6;
} // namespace slot

/// Reads a project file. False for a file that cannot be read, or of which one of the lines 1 to 6 lacks its
/// key or one of the lines 2 to 6 its value; the slots of the lines before it are filled all the same.
bool ReadProjectFile(std::string_view path, ProjectInfo& info);

/// The same, of the file's bytes.
bool readProjectInfo(std::string_view bytes, ProjectInfo& info);

/// The file's eight lines. The module's values have no space in front here.
std::vector<std::string> projectFileLines(std::string_view dateAndTime, const ProjectInfo& info);

} // namespace corvelle::indexer
