#include "base/put_in_place.h"

namespace corvelle::base {

void putInPlace(TemporaryFile& temporary, const std::filesystem::path& target,
                const std::filesystem::path& path, const ReplaceOptions&) {
    if (!temporary.close()) throw fileErrorOfErrno(path);
    std::error_code error;
    std::filesystem::rename(temporary.path(), target, error);
    if (error) throw fileErrorOf(error, path);
    temporary.letGo();
}

} // namespace corvelle::base
