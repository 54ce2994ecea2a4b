#pragma once

#include "base/file.h"
#include "cli/index_settings.h"
#include "ide/workspace/project.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::cli {

/// The paths of all files that the settings want written, as they are given.
std::vector<std::string> outputPaths(const IndexSettings& settings);

/// Why one of the files that the settings want written may not be: it would take the place of another one, of
/// a file that is read, or of a part of the project. Nothing if all may be.
std::optional<std::string> whatForbidsOutputs(const IndexSettings& settings,
                                              const workspace::Project& project);

/// What stands in the outputs' places before a run, and the files that come there in its end: all of them or
/// none.
class IndexFiles {
  public:
    /// Reads the old files. Why one of them must not be replaced: it cannot be read, or holds what is not
    /// ours to replace and the settings do not insist. Nothing if all may be.
    std::optional<std::string> readOld(const IndexSettings& settings);
    /// The old file's bytes; empty where there was none.
    std::string_view oldBytes(const std::string& path) const;

    /// Keeps a new file in memory. Its old one must be as it was when it was read, or be in the state of the
    /// stamp where one is given. One that was put before gets other bytes.
    void put(const std::filesystem::path& path, std::string bytes, base::ReplaceOptions how = {});
    /// The bytes of one that was put.
    std::string_view newBytes(const std::string& path) const;
    /// Forgets new files that are as their old ones; of all but modules, which the IDE reads with CR LF
    /// alone, the ends of the lines may be others, as version control may have left them.
    void dropUnchanged();
    /// Writes all of them beside their places and puts them there. What went wrong; nothing if all are there.
    /// In the first case every old file is as it was.
    std::optional<std::string> write();
    /// In the order of their being put.
    std::vector<std::string> paths() const;

  private:
    struct OldFile {
        std::string bytes;
        base::ReplaceOptions how; // how it may be replaced: as long as nobody else has
        bool isModule = false;
    };
    struct NewFile {
        std::filesystem::path path;
        std::string bytes;
        base::ReplaceOptions how;
    };

    std::map<std::filesystem::path, OldFile> old_;
    std::vector<NewFile> new_;
};

} // namespace corvelle::cli
