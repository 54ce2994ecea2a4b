#include "base/paths.h"

#include "base/file_error.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <memory>

namespace corvelle::base {

std::filesystem::path pathOf(std::string_view text) {
    return text;
}

std::string textOf(const std::filesystem::path& path) {
    return path.native();
}

bool isSameName(const std::filesystem::path& a, const std::filesystem::path& b) {
    return a == b;
}

// Not by the library's iterator, which ends the program where it has no memory.
std::vector<std::filesystem::path> namesIn(const std::filesystem::path& folder) {
    struct Close {
        void operator()(DIR* opened) const { ::closedir(opened); }
    };
    std::vector<std::filesystem::path> names;
    const std::unique_ptr<DIR, Close> opened(::opendir(folder.c_str()));
    if (!opened && errno == EACCES) return names;
    if (!opened) throw fileErrorOfErrno(folder);
    while (true) {
        errno = 0;
        const auto* const entry = ::readdir(opened.get());
        if (!entry && errno != 0) throw fileErrorOfErrno(folder);
        if (!entry) break;
        names.emplace_back(entry->d_name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace corvelle::base
