#pragma once

#include "cli/format_settings.h"

namespace corvelle::cli {

/// Runs `corvelle format`; the exit status.
int runFormat(const FormatSettings& settings);

} // namespace corvelle::cli
