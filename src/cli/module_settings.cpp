#include "cli/module_settings.h"

#include "base/paths.h"

namespace corvelle::cli {

settings::Properties ModuleSettings::propertiesOf(const ModuleSource& source) {
    if (source.isStandardInput() && stdinName_.empty()) return {};
    const auto path = source.isStandardInput() ? base::pathOf(stdinName_) : source.path;
    return files_.propertiesOf(settings::absolutePath(path));
}

} // namespace corvelle::cli
