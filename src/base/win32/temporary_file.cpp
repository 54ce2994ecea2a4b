#include "base/temporary_file.h"

namespace corvelle::base {

// Windows hands permissions down from the folder.
FileProperties FileProperties::of(const std::filesystem::path&, const std::filesystem::file_status&) {
    return {};
}

void FileProperties::giveTo(int, const std::filesystem::path&) const {}

void flushFolder(const std::filesystem::path&) {}

} // namespace corvelle::base
