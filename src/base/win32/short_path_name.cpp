#include "base/win32/short_path_name.h"

#include <windows.h>

namespace corvelle::base {

void shortPathName(const char* path, char* buffer, std::uint32_t size) {
    GetShortPathNameA(path, buffer, size);
}

} // namespace corvelle::base
