#include "cli/backup_names.h"

#include "base/text.h"
#include "formatter/backup.h"

namespace corvelle::cli {

std::string BackupNames::next(std::string_view moduleName, ide::ComponentType type) {
    return formatter::backupName(moduleName, type, ++copies_[base::upper(moduleName)]);
}

} // namespace corvelle::cli
