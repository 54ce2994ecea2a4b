#pragma once

#include "base/file.h"
#include "base/file_batch.h"
#include "cli/exit_status.h"

#include <string>
#include <string_view>

// The files of an index that `corvelle text` reads and writes.
namespace corvelle::cli {

/// Ends the command.
struct Refusal {
    ExitStatus status;
    std::string message;
};

/// What is said behind a reason for which no file is written.
inline constexpr const char* nothingWritten = "; nothing was changed";

/// A file's text. Throws Refusal for one that cannot be read or is none.
std::string readText(const std::string& path, base::FileStamp* stamp = nullptr);

/// One of an index's files as it was read, and as it is to be.
struct EditedFile {
    std::string path, before, after;
    base::FileStamp stamp;

    /// Throws Refusal.
    void read(const std::string& from) {
        path = from;
        before = after = readText(path, &stamp);
    }
    bool isChanged() const { return after != before; }
};

/// Refuses to change a file that is not what an index's project file says it is.
void requireOfOurs(const EditedFile& file, bool (*isOurs)(std::string_view), const char* words);

/// Writes both files, if they have changed, or none. Throws Refusal.
void saveTogether(const EditedFile& configuration, const EditedFile& texts);

/// The text on one line without a tab, which would begin another column.
std::string onOneLine(std::string_view text);

} // namespace corvelle::cli
