#pragma once

#include <cstddef>
#define PSAPI_VERSION 1 // for Windows XP
#include <windows.h>
// The above has to come first.
#include <psapi.h>

namespace corvelle::bench {

/// The most bytes of memory that this program has had so far; 0 where the system does not tell.
inline std::size_t peakMemory() {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    return GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters) ? counters.PeakWorkingSetSize
                                                                                 : 0;
}

} // namespace corvelle::bench
