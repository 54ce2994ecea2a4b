#include "cli/backup_names.h"

#include "base/file_error.h"
#include "base/paths.h"
#include "base/pending_file.h"
#include "base/text.h"
#include "formatter/backup.h"

#include <algorithm>
#include <stdexcept>
#include <system_error>

namespace corvelle::cli {

std::string BackupName::text() const {
    return formatter::backupName(module, type, copy) + ending;
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

bool isPlainName(std::string_view name) {
    return !name.empty() && name.find_first_of("/\\:*?\"<>|") == std::string_view::npos &&
           std::none_of(name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < 32; });
}

BackupName BackupNames::next(std::string_view module, ide::ComponentType type) {
    BackupName name{std::string(module), type};
    findFree(name);
    return name;
}

BackupName BackupNames::next(const std::filesystem::path& file) {
    BackupName name{base::textOf(file.stem()), {}, 1, base::textOf(file.extension())};
    findFree(name);
    return name;
}

void BackupNames::findFree(BackupName& name) {
    unsigned& copies = copies_[base::upper(name.module)];
    std::error_code ignored;
    do {
        name.copy = ++copies;
    } while (std::filesystem::exists(
        std::filesystem::symlink_status(folder_ / base::pathOf(name.text()), ignored)));
}

} // namespace corvelle::cli
