#pragma once

#include "cli/exit_status.h"
#include "formatter/engine.h"
#include "settings/layout_settings.h"

#include <algorithm>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace corvelle::cli {

inline constexpr unsigned mostJobs = 1024;

/// What `corvelle format` was asked to do.
struct FormatSettings {
    std::vector<std::string> paths;
    settings::LayoutOptions layout;
    formatter::FormatOptions options;     ///< what is to be removed
    bool check = false;                   ///< print the paths of the files that would change
    bool diff = false;                    ///< print unified diffs of the files that would change
    bool toStandardOutput = false;        ///< print the formatted file
    bool force = false;                   ///< accept structural errors and unsafe lines
    bool showSettings = false;            ///< print what holds for each module, and where that comes from
    bool breakLinks = false;              ///< rewrite a file though other hard links keep its old bytes
    bool quiet = false;                   ///< no lines but errors and results
    std::optional<std::string> backupDir; ///< where the code goes before a file is rewritten
    std::string stdinName;                ///< name of the module on standard input; empty: none given
    /// Modules formatted at once: as many as the machine has processors.
    unsigned jobs = std::clamp(std::thread::hardware_concurrency(), 1U, mostJobs);

    bool writesFiles() const { return !check && !diff && !toStandardOutput && !showSettings; }
};

} // namespace corvelle::cli
