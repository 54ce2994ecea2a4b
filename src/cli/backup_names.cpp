#include "cli/backup_names.h"

#include "base/file_error.h"
#include "base/new_file.h"
#include "base/path_text.h"
#include "base/text.h"
#include "formatter/backup.h"

#include <stdexcept>
#include <system_error>

namespace corvelle::cli {

std::string BackupName::text() const {
    return formatter::backupName(module, type, copy);
}

void saveBackup(const std::filesystem::path& folder, BackupName name, std::string_view bytes,
                const std::filesystem::path& like) {
    const auto fail = [](const std::filesystem::path& path, const std::string& reason) {
        throw std::runtime_error("not rewritten, its backup " + base::textOf(path) +
                                 " could not be saved: " + reason);
    };
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) fail(folder / base::pathOf(name.text()), base::fileErrorOf(error, folder).reason());
    for (;; ++name.copy) {
        const auto path = folder / base::pathOf(name.text());
        try {
            if (base::writeNewFile(path, bytes, like)) return;
        } catch (const base::FileError& failure) {
            fail(path, failure.reason());
        }
    }
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
