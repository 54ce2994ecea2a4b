#pragma once

#include "indexer/analysis_captions.h"
#include "indexer/index_options.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvelle::indexer {

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

} // namespace corvelle::indexer
