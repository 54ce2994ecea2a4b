#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>

namespace corvelle::cli {

/// Makes a unified diff (three lines of context) from a walk over the old file that tells what becomes of
/// each line. Lines carry their line ends; an old last line may lack one. Nothing is made up to the first
/// difference.
class UnifiedDiff {
  public:
    using Sink = std::function<void(std::string_view)>;

    /// `path` names both sides in the diff's head.
    UnifiedDiff(std::string path, Sink sink) : path_(std::move(path)), sink_(std::move(sink)) {}

    void same(std::string_view line);
    void replaced(std::string_view oldLine, std::string_view newLine);
    void removed(std::string_view oldLine);
    void added(std::string_view newLine);
    /// Ends the diff; call once, last.
    void finish();

  private:
    static constexpr std::size_t context = 3;

    void openHunk();
    void closeHunk();
    void endRun();
    static void put(std::string& to, char mark, std::string_view line);

    std::string path_;
    Sink sink_;
    bool headWritten_ = false;
    std::size_t oldLine_ = 0, newLine_ = 0; // lines passed so far
    std::deque<std::string_view> passed_;   // the last equal lines, not in any hunk yet
    bool isOpen_ = false;                   // whether there is an open hunk
    std::string hunk_;                      // its lines
    std::string added_;                     // new lines of the current run, which follow its old lines
    std::size_t hunkOld_ = 0, hunkNew_ = 0; // where the hunk begins, 0-based
    std::size_t oldCount_ = 0, newCount_ = 0;
    std::size_t trailing_ = 0; // equal lines since the last difference
};

/// The diff of two whole texts that differ here and there by a few lines: not always the shortest one where
/// they differ by more. Nothing for equal ones.
void writeDiff(const std::string& path, std::string_view before, std::string_view after,
               const UnifiedDiff::Sink& sink);

} // namespace corvelle::cli
