#include "cli/module_settings.h"

#include "base/file.h"
#include "base/path_text.h"

#include <algorithm>

namespace corvelle::cli {

std::optional<std::string> ModuleSettings::readIfThere(const std::string& path) {
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

settings::Properties ModuleSettings::propertiesOf(const ModuleSource& source) {
    if (source.isStandardInput() && stdinName_.empty()) return {};
    const auto path = source.isStandardInput() ? base::pathOf(stdinName_) : source.path;
    std::string text = base::textOf(std::filesystem::absolute(path).lexically_normal());
#ifdef _WIN32
    std::replace(text.begin(), text.end(), '\\', '/');
#endif
    return files_.propertiesOf(text);
}

} // namespace corvelle::cli
