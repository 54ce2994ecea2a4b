#include "base/temporary_file.h"

#include "base/file_error.h"

#include <cerrno>
#include <string>

namespace corvelle::base {

namespace fs = std::filesystem;

TemporaryFile::TemporaryFile(const fs::path& folder, unsigned mode, const fs::path& target) {
    constexpr int attempts = 10000;
    for (int i = 0; i < attempts; ++i) {
        path_ = folder / (".corvelle" + std::to_string(i) + ".tmp");
        FileDescriptor file = openNew(path_, mode);
        if (file.isOpen()) {
            file_.emplace(std::move(file));
            return;
        }
        if (errno != EEXIST) throw fileErrorOfErrno(target);
    }
    throw FileError(ErrorNumber::FileAlreadyExists);
}

TemporaryFile::~TemporaryFile() {
    if (path_.empty()) return;
    file_->close();
    std::error_code ignored;
    fs::remove(path_, ignored);
}

void TemporaryFile::renameTo(const fs::path& target) {
    std::error_code error;
    fs::rename(path_, target, error);
    if (error) throw fileErrorOf(error, target);
    path_.clear();
}

} // namespace corvelle::base
