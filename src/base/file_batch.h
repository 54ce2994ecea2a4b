#pragma once

#include "base/batch_journal.h"
#include "base/pending_file.h"

#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

namespace corvelle::base {

/// Files that are replaced together: all of them or none. Each new file is written whole beside its place
/// first; then they are renamed, one after the other. If one of them cannot be, those before it get their old
/// bytes back. A run that is killed in between leaves a journal, by which `completeBatches` puts the files
/// right. Whoever commits a batch has the FolderLock of its files. The functions throw FileError.
class FileBatch {
  public:
    FileBatch() = default;
    FileBatch(const FileBatch&) = delete;
    FileBatch& operator=(const FileBatch&) = delete;

    /// Writes the new file, whole, beside its place; PendingFile tells what is refused. No two paths may be
    /// of one file.
    void add(const std::filesystem::path& path, std::string_view bytes, const ReplaceOptions& options = {});
    /// Puts all files in their places, in the order of their adding. After an error each of them is as it
    /// was; where the disk refuses even that, the error says so and the next run does it.
    void commit();
    /// The file, as its path was given, that a commit failed for.
    const std::filesystem::path& failedFile() const { return failedFile_; }

  private:
    struct Member {
        std::unique_ptr<PendingFile> fresh;
        std::unique_ptr<PendingFile> old; // what the file is given back; nullptr where there was none
        BatchFile file;
    };
    class Journal;

    void copyOldFile(Member& member);
    bool takeBack(Journal& journal, std::size_t renamed);

    std::vector<Member> members_;
    std::filesystem::path failedFile_;
};

/// A batch that a run which was killed had left, and what has become of it.
struct CompletedBatch {
    bool isTakenBack = false;                 ///< the files are as they were before it, not as it wrote them
    std::vector<std::filesystem::path> files; ///< those that are right now
    std::vector<std::filesystem::path> left; ///< those that somebody has changed since: they stay as they are
};

/// Puts right what killed runs have left of batches with files in the same folders as these: a batch is
/// completed where that can be done, else taken back. The caller has the FolderLock of the files. A journal
/// that is not such as a batch writes is left alone; so is one that belongs neither to this user nor to its
/// folder's owner. Throws FileError.
std::vector<CompletedBatch> completeBatches(const std::vector<std::filesystem::path>& files);

} // namespace corvelle::base
