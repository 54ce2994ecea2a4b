#pragma once

#include "base/file.h"
#include "base/file_properties.h"
#include "base/temporary_file.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace corvelle::base {

/// Gives the whole temporary file the target's place, where a file may stand or not, in one step. With a
/// stamp, a file that somebody has written since, up to that very step, is put back: error 70. Throws
/// FileError about the path.
void putInPlace(TemporaryFile& temporary, const std::filesystem::path& target,
                const std::filesystem::path& path, const ReplaceOptions& options);

/// The error for a file that is not what was read.
FileError changedMeanwhile();

/// The file that is to take another's place, or a new one's, while it is not there yet. It grows beside its
/// place under a name of its own, and goes with the object unless it has been committed. Whoever replaces
/// several files finishes all of them before the first is committed. Every function but the destructor throws
/// FileError, and then the old file is as it was.
class PendingFile {
  public:
    /// Refuses what may not be replaced: what is no file (75), has other hard links (75), nobody may write
    /// (75) or this user may not write (70). A symbolic link stands for the file that it points to.
    explicit PendingFile(const std::filesystem::path& path, const ReplaceOptions& options = {});
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;

    /// What the new file's bytes are written to.
    FileWriter& writer() { return writer_; }
    /// Makes the new file whole: its bytes are on the disk, and it has the old one's permissions, access
    /// list, extended attributes and, where allowed, owner. Nothing can be written afterwards.
    void finish();
    /// Puts the file, which is finished first if it is not yet, in its place, unless the old one is not in
    /// the state of the stamp any more (70).
    void commit();

    const std::filesystem::path& path() const { return path_; }
    /// The file that is replaced: where links lead.
    const std::filesystem::path& target() const { return target_; }
    /// What the new file is called until it is committed.
    const std::filesystem::path& temporary() const { return temporary_.path(); }
    /// Leaves the new file, which is finished, beside its place, unless a commit that failed has taken it
    /// from under the name that others were told.
    void keep() {
        if (temporary_.hasFirstName()) temporary_.letGo();
    }
    /// A signal that ends the process does not remove the file from here on: somebody is told of it who puts
    /// things right.
    void surviveSignals() { temporary_.surviveSignals(); }

  private:
    std::filesystem::path path_;   // as given, for messages
    std::filesystem::path target_; // where links lead
    ReplaceOptions options_;
    FileProperties properties_;
    TemporaryFile temporary_;
    FileWriter writer_;
    bool finished_ = false;
};

/// Writes a file that was not there before and that nobody may read or change who may not do so with the file
/// `like`; on Windows its rights are those of its folder. False, and nothing is done, if anything has the
/// name already, be it a link that leads nowhere. Throws FileError, and then nothing is left.
bool writeNewFile(const std::filesystem::path& path, std::string_view bytes,
                  const std::filesystem::path& like);

} // namespace corvelle::base
