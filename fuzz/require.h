#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

/// Ends the run with the words when the condition does not hold.
inline void require(bool holds, std::string_view what) {
    if (holds) return;
    std::fprintf(stderr, "%.*s\n", static_cast<int>(what.size()), what.data());
    std::abort();
}
