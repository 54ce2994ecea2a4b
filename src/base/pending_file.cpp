#include "base/pending_file.h"

#include "base/file_descriptor.h"
#include "base/file_error.h"
#include "base/file_properties.h"

#include <cerrno>

namespace corvelle::base {

namespace {

namespace fs = std::filesystem;

// What cannot be looked at need not be new: it may be a link, or have permissions to keep.
void requireKnown(const fs::file_status& status, const std::error_code& error, const fs::path& path) {
    if (status.type() == fs::file_type::none) throw fileErrorOf(error, path);
}

// The file that the path stands for: where a symbolic link points, else the path itself.
fs::path resolved(const fs::path& path) {
    std::error_code error;
    const auto status = fs::symlink_status(path, error);
    requireKnown(status, error, path);
    if (!fs::is_symlink(status)) return path;
    auto target = fs::canonical(path, error);
    if (error) throw fileErrorOf(error, path);
    return target;
}

fs::path folderOf(const fs::path& target) {
    return target.has_parent_path() ? target.parent_path() : fs::path(".");
}

FileProperties propertiesToKeep(const fs::path& target, const fs::path& path, bool breakLinks) {
    std::error_code error;
    const auto status = fs::status(target, error);
    requireKnown(status, error, path);
    if (const auto what = whatInsteadOfFile(status); !what.empty()) throw notAFile(what);
    if (isReadOnly(status)) throw FileError(ErrorNumber::PathFileAccessError, "the file is read-only");
    return FileProperties::of(target, status, breakLinks);
}

// Whether nothing but the file's rights or its name can have been changed since the stamp.
bool holdsWhatWasRead(const fs::path& target, FileStamp now, const ReplaceOptions& options) {
    now.changed = options.stamp->changed;
    return now == *options.stamp && options.content && readFile(target) == *options.content;
}

void requireUnchanged(const fs::path& target, const ReplaceOptions& options) {
    if (!options.onlyNew && !options.stamp) return;
    const auto now = stampIfThere(target);
    const bool isUnchanged =
        options.onlyNew ? !now : now && (now == options.stamp || holdsWhatWasRead(target, *now, options));
    if (!isUnchanged) throw changedMeanwhile();
}

} // namespace

FileError changedMeanwhile() {
    return {static_cast<std::int32_t>(ErrorNumber::PermissionDenied), "the file was changed meanwhile"};
}

PendingFile::PendingFile(const fs::path& path, const ReplaceOptions& options)
    : path_(path), target_(resolved(path)), options_(options),
      properties_(propertiesToKeep(target_, path, options.breakLinks)),
      temporary_(folderOf(target_), properties_.initialMode(), target_), writer_(temporary_.number(), path_) {
}

void PendingFile::finish() {
    if (finished_) return;
    writer_.flush();
    properties_.giveTo(temporary_.number(), path_);
    if (!flushToDisk(temporary_.number())) throw fileErrorOfErrno(path_);
    finished_ = true;
}

void PendingFile::commit() {
    finish();
    requireUnchanged(target_, options_);
    putInPlace(temporary_, target_, path_, options_);
    flushFolder(folderOf(target_));
}

void replaceFile(const fs::path& path, const std::function<void(FileWriter&)>& write,
                 const ReplaceOptions& options) {
    PendingFile file(path, options);
    write(file.writer());
    file.commit();
}

namespace {

namespace fs = std::filesystem;

void giveRights(int file, const fs::path& like) {
    try {
        constexpr bool withOtherLinks = true;
        auto properties = FileProperties::of(like, fs::status(like), withOtherLinks);
        properties.mode &= 0666U; // nothing to be run, least of all for another user
        properties.giveTo(file, like);
    } catch (const std::exception&) {
        // It stays its maker's alone, as it was created.
    }
}

} // namespace

bool writeNewFile(const fs::path& path, std::string_view bytes, const fs::path& like) {
    constexpr unsigned ownersAlone = 0600;
    FileDescriptor file = openNew(path, ownersAlone);
    if (!file.isOpen() && errno == EEXIST) return false;
    if (!file.isOpen()) throw fileErrorOfErrno(path);
    const bool written = writeAll(file.number(), bytes.data(), bytes.size());
    if (written) giveRights(file.number(), like);
    if (written && flushToDisk(file.number()) && file.close()) return true;
    const FileError error = fileErrorOfErrno(path);
    file.close();
    std::error_code ignored;
    fs::remove(path, ignored);
    throw error;
}

} // namespace corvelle::base
