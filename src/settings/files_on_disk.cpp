#include "settings/files_on_disk.h"

#include "base/file.h"
#include "base/path_text.h"

#include <algorithm>

namespace corvelle::settings {

namespace {

bool standsOnVolume([[maybe_unused]] const std::string& path) {
#ifdef _WIN32
    constexpr auto slashesOfShare = 4; // "//server/share/.editorconfig"
    return path.front() != '/' || std::count(path.begin(), path.end(), '/') >= slashesOfShare;
#else
    return true;
#endif
}

} // namespace

std::string absolutePath(const std::filesystem::path& path) {
    std::string text = base::textOf(std::filesystem::absolute(path).lexically_normal());
#ifdef _WIN32
    std::replace(text.begin(), text.end(), '\\', '/');
#endif
    return text;
}

std::optional<std::string> readIfThere(const std::string& path) {
    if (!standsOnVolume(path)) return std::nullopt;
    try {
        return base::readFile(base::pathOf(path));
    } catch (const base::FileError& error) {
        const auto is = [&error](base::ErrorNumber number) {
            return error.number() == static_cast<std::int32_t>(number);
        };
        if (is(base::ErrorNumber::FileNotFound) || is(base::ErrorNumber::PathNotFound)) return std::nullopt;
        throw;
    }
}

} // namespace corvelle::settings
