#include "ide/workspace/path_resolver.h"

#include "base/file_error.h"
#include "base/paths.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <string>
#include <system_error>
#include <vector>

namespace corvelle::workspace {

namespace {

// The parts of a path between its slashes, in capital letters.
std::vector<std::string> partsOf(std::string_view path) {
    std::vector<std::string> parts;
    while (!path.empty()) {
        const auto end = std::min(path.find_first_of("\\/"), path.size());
        if (end > 0) parts.push_back(base::upper(path.substr(0, end)));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return parts;
}

bool isSlash(char c) {
    return c == '\\' || c == '/';
}

bool beginsWithTwoSlashes(std::string_view path) {
    return path.size() > 1 && isSlash(path[0]) && isSlash(path[1]);
}

bool namesDevices(const std::vector<std::string>& parts) {
    return !parts.empty() && (parts[0] == "." || parts[0] == "?" || parts[0] == "??");
}

// How many parts name the computer and the share, or the device.
std::size_t rootSize(const std::vector<std::string>& parts) {
    return namesDevices(parts) && parts.size() > 1 && parts[1] == "UNC" ? 4 : 2;
}

bool sameRoot(const std::vector<std::string>& parts, const std::filesystem::path& folder) {
    const auto bytes = folder.u8string(); // which exists for every path; what is compared are ASCII letters
    const std::string text(bytes.begin(), bytes.end());
    if (!beginsWithTwoSlashes(text)) return false;
    const auto there = partsOf(text);
    const auto size = rootSize(parts);
    return parts.size() >= size && there.size() >= size &&
           std::equal(parts.begin(), parts.begin() + static_cast<std::ptrdiff_t>(size), there.begin());
}

// To Windows `NUL`, `nul.bas` and `Nul .x` are one device in every folder.
bool isDevice(std::string_view part) {
    std::string_view name = part.substr(0, part.find_first_of(".:"));
    name = name.substr(0, name.find_last_not_of(' ') + 1);
    constexpr std::array<std::string_view, 6> names{"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
    if (std::find(names.begin(), names.end(), name) != names.end()) return true;
    const bool port = name.substr(0, 3) == "COM" || name.substr(0, 3) == "LPT";
    return port && name.size() == 4 &&
           std::string_view("0123456789\xB9\xB2\xB3").find(name[3]) != std::string_view::npos;
}

// A colon behind a drive's letter apart, what follows one is a part of a file that has no name of its own.
bool namesStream(std::string_view written) {
    return written.find(':', 2) != std::string_view::npos || written.substr(0, 1) == ":";
}

} // namespace

std::string_view whyNotLookedAt(std::string_view written, const std::filesystem::path& folder) {
    const auto parts = partsOf(written);
    const bool devices = namesDevices(parts) && (beginsWithTwoSlashes(written) || parts[0] == "??");
    if (std::any_of(parts.begin(), parts.end(), isDevice)) return "a device's path";
    if (beginsWithTwoSlashes(written) && sameRoot(parts, folder)) return {};
    if (devices) return "a device's path";
    if (beginsWithTwoSlashes(written)) return "a path on the network";
    return namesStream(written) ? "a device's path" : std::string_view();
}

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
