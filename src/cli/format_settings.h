#pragma once

#include "cli/exit_status.h"
#include "formatter/engine.h"

#include <optional>
#include <string>
#include <vector>

namespace corvelle::cli {

/// What `corvelle format` was asked to do.
struct FormatSettings {
    std::vector<std::string> paths;
    formatter::FormatOptions options;
    bool check = false;                   ///< print the paths of the files that would change
    bool diff = false;                    ///< print unified diffs of the files that would change
    bool toStandardOutput = false;        ///< print the formatted file
    bool force = false;                   ///< accept structural errors and unsafe lines
    bool quiet = false;                   ///< no lines but errors and results
    std::optional<std::string> backupDir; ///< where the code goes before a file is rewritten
    std::string stdinName;                ///< name of the module on standard input; empty: none given
    unsigned jobs = 1;                    ///< modules formatted at once

    bool writesFiles() const { return !check && !diff && !toStandardOutput; }
    bool removesComments() const { return options.bNoCmntLn == 1 || options.bNoAllCmnt == 1; }
};

} // namespace corvelle::cli
