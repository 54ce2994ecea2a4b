#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::base {

/// What tells the bytes of one file from those of another.
struct FileSum {
    std::uint64_t size = 0, hash = 0;

    bool operator==(const FileSum&) const = default;
};

FileSum sumOf(std::string_view bytes);

/// One of the files that are replaced together. All its paths are of one folder.
struct BatchFile {
    std::filesystem::path target; ///< the file to be replaced
    std::filesystem::path fresh;  ///< the new file, whole, beside it
    FileSum freshSum{};
    std::filesystem::path old{};     ///< a copy of the old file beside it; empty where there was none
    std::optional<FileSum> oldSum{}; ///< none where there was none
};

/// What a run that is killed between two renames leaves for the next one: which files were to be replaced
/// together, and by what. It is a text; paths in it are told from the folder that it stands in.
struct BatchJournal {
    std::vector<BatchFile> files;

    std::string textIn(const std::filesystem::path& folder) const;
    /// Nothing for a text that is not whole, or not such as a batch writes: the temporary files have names of
    /// ours and stand beside the file that they belong to.
    static std::optional<BatchJournal> read(std::string_view text, const std::filesystem::path& folder);
};

/// What stands in the batch's other folders in place of its journal: where that is.
std::string pointerText(const std::filesystem::path& journal, const std::filesystem::path& folder);
/// The journal's path; nothing for any other text.
std::optional<std::filesystem::path> readPointer(std::string_view text, const std::filesystem::path& folder);

/// The journal that goes with a temporary file, of which no two runs have the same.
std::filesystem::path journalBeside(const std::filesystem::path& temporary);
/// The journal's name once its files are to be put back.
std::filesystem::path whenTakenBack(const std::filesystem::path& journal);
/// Whether that is the name of a journal, in either state, or of a pointer to one.
bool isJournalName(const std::filesystem::path& name);

} // namespace corvelle::base
