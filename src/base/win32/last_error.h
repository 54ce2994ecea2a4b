#pragma once

namespace corvelle::base {

/// What the C library would have put into `errno` for the calling thread's last error of the system.
int errnoOfLastError();

} // namespace corvelle::base
