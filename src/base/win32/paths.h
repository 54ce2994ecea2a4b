#pragma once

#include <cstdint>

namespace corvelle::base {

/// The system's call for a path's short (8.3) form: fills the buffer of that size with text that ends in NUL.
/// The buffer stays as it is where there is no such file or the short form does not fit.
void shortPathName(const char* path, char* buffer, std::uint32_t size);

} // namespace corvelle::base
