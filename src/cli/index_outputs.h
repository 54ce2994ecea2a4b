#pragma once

#include "cli/index_settings.h"
#include "ide/workspace/project.h"

#include <optional>
#include <string>

namespace corvelle::cli {

/// Why one of the files that the settings want written may not be: it would take the place of another one, of
/// a file that is read, of a part of the project, or of texts that could not be taken over. Nothing if all
/// may be.
std::optional<std::string> whatForbidsOutputs(const IndexSettings& settings,
                                              const workspace::Project& project);

} // namespace corvelle::cli
