#include "base/same_name.h"

#include <windows.h>

namespace corvelle::base {

bool isSameName(const std::filesystem::path& a, const std::filesystem::path& b) {
    return CompareStringW(LOCALE_INVARIANT, NORM_IGNORECASE, a.c_str(), static_cast<int>(a.native().size()),
                          b.c_str(), static_cast<int>(b.native().size())) == CSTR_EQUAL;
}

} // namespace corvelle::base
