#include "base/same_name.h"

namespace corvelle::base {

bool isSameName(const std::filesystem::path& a, const std::filesystem::path& b) {
    return a == b;
}

} // namespace corvelle::base
