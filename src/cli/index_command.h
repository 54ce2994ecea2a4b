#pragma once

#include "cli/index_settings.h"

namespace corvelle::cli {

/// Runs `corvelle index`; the exit status.
int runIndex(const IndexSettings& settings);

} // namespace corvelle::cli
