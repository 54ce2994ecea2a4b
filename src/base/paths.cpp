#include "base/paths.h"

#include "base/file_error.h"

#include <system_error>

namespace corvelle::base {

namespace {

namespace fs = std::filesystem;

// As far as the path exists links are resolved; the rest is as it is written.
fs::path resolved(const fs::path& path) {
    std::error_code error;
    const auto absolute = fs::absolute(path, error);
    auto result = fs::weakly_canonical(absolute, error);
    return error ? absolute.lexically_normal() : result;
}

} // namespace

bool isSamePath(const fs::path& a, const fs::path& b) {
    std::error_code error;
    if (fs::equivalent(a, b, error)) return true;
    if (error == std::errc::io_error) throw fileErrorOf(error, a);
    return isSameName(resolved(a), resolved(b));
}

} // namespace corvelle::base
