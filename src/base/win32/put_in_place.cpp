#include "base/paths.h"
#include "base/pending_file.h"
#include "base/replace_with_backup.h"

#include <windows.h>

namespace corvelle::base {

namespace {

namespace fs = std::filesystem;

std::uint32_t outcomeOf(BOOL done) {
    return done ? 0 : GetLastError();
}

class SystemCalls : public ReplacingCalls {
  public:
    std::uint32_t replace(const fs::path& target, const fs::path& fresh, const fs::path& backup) override {
        return outcomeOf(ReplaceFileW(target.c_str(), fresh.c_str(), backup.c_str(), 0, nullptr, nullptr));
    }
    std::uint32_t move(const fs::path& from, const fs::path& to, bool replaces) override {
        return outcomeOf(MoveFileExW(from.c_str(), to.c_str(), replaces ? MOVEFILE_REPLACE_EXISTING : 0));
    }
    std::uint32_t remove(const fs::path& path) override { return outcomeOf(DeleteFileW(path.c_str())); }
    bool exists(const fs::path& path) override {
        return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
    }
};

FileError errorOf(std::uint32_t code, const fs::path& path) {
    return fileErrorOf(std::error_code(static_cast<int>(code), std::system_category()), path);
}

bool isWhatWasRead(const fs::path& old, const ReplaceOptions& options) {
    FileStamp now;
    if (!options.stamp) return true;
    return stampOf(old, now) && now == *options.stamp &&
           (!options.content || readFile(old) == *options.content);
}

// A disk that knows no such call has nothing that it would keep.
bool isUnknown(std::uint32_t error) {
    return error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED;
}

} // namespace

void putInPlace(TemporaryFile& temporary, const fs::path& target, const fs::path& path,
                const ReplaceOptions& options) {
    using End = Replacement::End;
    SystemCalls calls;
    FileStamp old;
    fs::path backup;
    if (const bool there = stampOf(target, old); there)
        backup = temporary.exchangeName(options.stamp ? *options.stamp : old, path);
    if (!temporary.close()) throw fileErrorOfErrno(path);
    Replacement result{End::Failed, ERROR_NOT_SUPPORTED};
    if (!backup.empty() && !options.onlyNew)
        result = replaceWithBackup(calls, target, temporary.path(), backup,
                                   [&](const fs::path& found) { return isWhatWasRead(found, options); });
    if (result.end == End::Failed && isUnknown(result.error))
        result.error = calls.move(temporary.path(), target, !options.onlyNew);
    if (result.end == End::Failed && result.error != 0)
        throw options.onlyNew && result.error == ERROR_ALREADY_EXISTS ? changedMeanwhile()
                                                                      : errorOf(result.error, path);
    if (result.end == End::Changed) throw changedMeanwhile();
    if (result.end == End::InBackup)
        throw FileError(ErrorNumber::PermissionDenied,
                        "the old file could not be put back; it is " + textOf(backup));
    temporary.letGo();
}

} // namespace corvelle::base
