#pragma once

#include "base/text_lines.h"
#include "formatter/structured/blocks.h"
#include "formatter/structured/structured.h"

#include <string_view>
#include <vector>

namespace corvelle::formatter::structured {

/// Gives the lines that are kept the blanks that they begin with, in the style. Appends a notice for each
/// line that stays where it is since it would become too long.
void layOut(const base::TextLines& texts, const ModuleBlocks& blocks, const Style& style,
            bool removeTrailingComments, std::vector<NewLine>& result, std::vector<Fault>& notices);

} // namespace corvelle::formatter::structured
