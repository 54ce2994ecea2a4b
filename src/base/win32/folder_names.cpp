#include "base/folder_names.h"

#include "base/file_error.h"

#include <algorithm>
#include <system_error>

namespace corvelle::base {

namespace fs = std::filesystem;

std::vector<fs::path> namesIn(const fs::path& folder) {
    std::vector<fs::path> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        names.push_back(entry->path().filename());
    if (error && error != std::errc::permission_denied) throw fileErrorOf(error, folder);
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace corvelle::base
