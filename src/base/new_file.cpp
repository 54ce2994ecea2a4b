#include "base/new_file.h"

#include "base/file_descriptor.h"
#include "base/file_error.h"
#include "base/file_properties.h"

#include <cerrno>

namespace corvelle::base {

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
