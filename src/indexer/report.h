#pragma once

#include "indexer/analysis.h"
#include "indexer/index_options.h"
#include "indexer/message.h"
#include "indexer/project_info.h"

#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::indexer {

/// "11/21/2026 2:43:10 AM"; at midnight the date alone.
std::string generalDate(const std::tm& time);

/// The current local time so written.
std::string currentDateAndTime();

/// The current local time as the system writes it: on Windows by the user's own settings, elsewhere as above.
std::string systemDateAndTime();

/// Its first line.
inline constexpr std::string_view reportHead = "Indexing initiated by ContextHElpID Indexer";

/// The results text: lines with CR LF between them, none at the end.
class Report {
  public:
    const std::string& text() const { return text_; }
    /// Appends a line break and the line.
    void append(std::string_view line);

    /// Begins the text anew with its head: what it is, the date and time, and the captions of the analysis.
    void AddInfo_Rpt(std::string_view dateAndTime, const AnalysisCaptions& captions);
    /// Appends the options.
    void AddOptions_Rpt(const IndexOptions& options);

    /// The lines that Save Report writes.
    std::vector<std::string> lines() const;

  private:
    std::string text_;
};

// Saving what a run leaves: its report and the indexer project.

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
