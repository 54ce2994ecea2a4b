#include "cli/backup_names.h"

#include "base/path_text.h"
#include "base/text.h"
#include "formatter/backup.h"

#include <system_error>

namespace corvelle::cli {

std::string BackupName::text() const {
    return formatter::backupName(module, type, copy);
}

BackupName BackupNames::next(std::string_view module, ide::ComponentType type) {
    unsigned& copies = copies_[base::upper(module)];
    BackupName name{std::string(module), type, ++copies};
    std::error_code ignored;
    while (std::filesystem::exists(
        std::filesystem::symlink_status(folder_ / base::pathOf(name.text()), ignored))) {
        name.copy = ++copies;
    }
    return name;
}

} // namespace corvelle::cli
