#pragma once

#include "cli/text_settings.h"

namespace corvelle::cli {

/// Runs `corvelle text`; the exit status.
int runText(const TextSettings& settings);

} // namespace corvelle::cli
