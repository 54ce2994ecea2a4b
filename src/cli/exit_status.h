#pragma once

namespace corvelle::cli {

/// Exit statuses; the largest one that applies is the program's.
enum ExitStatus : int { exitDone = 0, exitLookAt = 1, exitFailed = 2 };

} // namespace corvelle::cli
