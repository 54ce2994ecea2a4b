#include "cli/interrupted_changes.h"

#include "base/file_batch.h"
#include "base/paths.h"
#include "cli/terminal.h"

#include <iostream>

namespace corvelle::cli {

void completeInterruptedChanges(const std::vector<std::filesystem::path>& files) {
    const auto tell = [](const std::filesystem::path& path, const char* what) {
        std::cerr << shown(base::textOf(path)) << ": a change that was interrupted " << what << std::endl;
    };
    for (const auto& batch : base::completeBatches(files)) {
        for (const auto& path : batch.files)
            tell(path, batch.isTakenBack ? "has been taken back" : "has been completed");
        for (const auto& path : batch.left)
            tell(path, "could not be completed: the file has been changed since, and stays as it is");
    }
}

} // namespace corvelle::cli
