#pragma once

#include "indexer/help_index.h"
#include "indexer/message.h"
#include "indexer/project_info.h"

#include <functional>
#include <string_view>

// An index that was made earlier, reached through its indexer project file.
namespace corvelle::indexer {

/// The project's values with paths that lead to its files: a relative one is taken from the current folder,
/// else, if there is no such file, from the project file's.
ProjectInfo withPathsFound(ProjectInfo info, std::string_view projectPath);

/// Whether the configuration file and the text file are there.
bool indexFilesExist(const ProjectInfo& info);

/// What is said when they are not.
Message indexFilesMissing();

/// What is said of a project file that cannot be used.
inline constexpr std::string_view invalidProjectFile = "Invalid project file..";

/// How a saving ended, and what is said of it.
struct SavedIndex {
    bool indexFiles = true; ///< false: the configuration file could not be saved, and is as it was
    bool texts = false;     ///< false: the text file could not be saved, and holds the texts that it held
    Message message;
    std::string_view status; ///< the status text after the message
};

/// Saves the text file and before it, if the index files need updating, the configuration file. The header
/// file stays as it is. Each of the two holds at every moment its old lines or its new ones. Tells a status
/// text before each step.
SavedIndex saveExistingIndex(const ProjectInfo& info, const HelpIndex& index, bool bFilesPrompted,
                             const std::function<void(std::string_view)>& setStatus);

} // namespace corvelle::indexer
