#include "com/dispatch_server.h"

namespace corvelle::com {

bool isMemberName(const wchar_t* member, const wchar_t* asked) {
    const auto lower = [](wchar_t c) { return c >= L'A' && c <= L'Z' ? c + (L'a' - L'A') : c; };
    if (!asked) return false;
    while (*member && lower(*member) == lower(*asked)) ++member, ++asked;
    return *member == *asked;
}

} // namespace corvelle::com
