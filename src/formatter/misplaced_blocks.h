#pragma once

#include "formatter/format_code.h"

#include <optional>

namespace corvelle::formatter {

/// The first line of formatted code that does not stand by its block, as the language's blocks are: a closer
/// or divider in another column than its opener (a Case: than the first of its Select), or the first or last
/// line of a procedure, Type or Enum off column 1. Told as CV301. Lines with numbers or labels and those
/// inside an #If that their opener does not stand in are not looked at, nor is what does not balance.
std::optional<Finding> findMisplacedBlock(const ModuleCode& code, const FormattedCode& formatted);

} // namespace corvelle::formatter
