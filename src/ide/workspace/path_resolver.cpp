#include "ide/workspace/path_resolver.h"

#include "base/file_error.h"
#include "base/path_text.h"
#include "base/text.h"

#include <algorithm>
#include <system_error>

namespace corvelle::workspace {

namespace {

namespace fs = std::filesystem;

std::string withSlashes(std::string_view written) {
    std::string path(written);
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

// A drive's path, or one from the root of a drive or a share.
[[maybe_unused]] bool isAbsolute(std::string_view written) {
    return written.empty() || written[0] == '\\' || written[0] == '/' ||
           (written.size() > 1 && written[1] == ':');
}

} // namespace

fs::path pathInProject(const fs::path& folder, std::string_view written) {
    auto name = withSlashes(written);
    try {
        return folder / base::pathOf(name);
    } catch (const base::FileError&) {
        // No file can have such a name; what is missing is told with question marks in it.
        std::replace_if(
            name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) > 127; }, '?');
        return folder / base::pathOf(name);
    }
}

#ifdef _WIN32

std::optional<fs::path> PathResolver::resolve(const fs::path& folder, std::string_view written) {
    std::error_code ignored;
    auto path = pathInProject(folder, written);
    if (written.empty() || !fs::exists(path, ignored)) return std::nullopt;
    return path;
}

#else

std::optional<fs::path> PathResolver::resolve(const fs::path& folder, std::string_view written) {
    if (isAbsolute(written)) return std::nullopt;
    const std::string wanted = withSlashes(written);
    fs::path found = folder;
    std::size_t begin = 0;
    while (begin <= wanted.size()) {
        const auto end = std::min(wanted.find('/', begin), wanted.size());
        const auto name = wanted.substr(begin, end - begin);
        begin = end + 1;
        if (name.empty() || name == ".") continue;
        if (name == "..") {
            found /= name;
            continue;
        }
        auto next = findIn(found, name);
        if (!next) return std::nullopt;
        found = std::move(*next);
    }
    return found;
}

std::optional<fs::path> PathResolver::findIn(const fs::path& folder, const std::string& name) {
    std::error_code ignored;
    fs::path exact = folder / name;
    if (fs::exists(fs::symlink_status(exact, ignored))) return exact;
    const auto& listing = listingOf(folder);
    const auto matches = listing.find(base::upper(name));
    if (matches == listing.end() || matches->second.size() != 1) return std::nullopt;
    return folder / matches->second.front();
}

const PathResolver::Listing& PathResolver::listingOf(const fs::path& folder) {
    const auto [place, isNew] = listings_.try_emplace(folder.native());
    if (isNew) {
        std::error_code error;
        fs::directory_iterator entries(folder.empty() ? fs::path(".") : folder, error);
        for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
            const auto name = entries->path().filename().native();
            place->second[base::upper(name)].push_back(name);
        }
    }
    return place->second;
}

#endif

} // namespace corvelle::workspace
