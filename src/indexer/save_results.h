#pragma once

#include "indexer/message.h"
#include "indexer/project_info.h"
#include "indexer/report.h"

#include <optional>
#include <string_view>

// Saving what a run leaves: its report and the indexer project.
namespace corvelle::indexer {

/// How a saving ended, and what is said of it.
struct SavedFile {
    bool saved = false;
    std::optional<Message> message{}; ///< none: nothing is shown
};

/// Writes the report (.log). A failure is not told.
SavedFile saveReport(std::string_view path, const Report& report);

/// Writes the indexer project (.icp); see projectFileLines.
SavedFile saveProject(std::string_view path, std::string_view dateAndTime, const ProjectInfo& info);

} // namespace corvelle::indexer
