#include "fakes/open_files.h"

#include <iterator>
#include <system_error>

namespace corvelle::test {

namespace fs = std::filesystem;

std::ptrdiff_t openFiles(const fs::path& folder) {
#ifdef _WIN32
    // A file that is open cannot get another name.
    std::ptrdiff_t open = 0;
    for (const auto& entry : fs::directory_iterator(folder)) {
        auto other = entry.path();
        other += "~";
        std::error_code error;
        fs::rename(entry.path(), other, error);
        if (error)
            ++open;
        else
            fs::rename(other, entry.path());
    }
    return open;
#else
    static_cast<void>(folder);
    const fs::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
#endif
}

} // namespace corvelle::test
