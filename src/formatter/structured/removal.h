#pragma once

#include "base/text_lines.h"
#include "formatter/structured/blocks.h"
#include "formatter/structured/structured.h"

#include <string_view>
#include <vector>

namespace corvelle::formatter::structured {

/// What the options take away: whole lines, and the ends of lines. The lines' blanks at their beginning are
/// as they were.
std::vector<NewLine> removeParts(const base::TextLines& texts, const std::vector<LineInfo>& lines,
                                 const StructuredOptions& options);

} // namespace corvelle::formatter::structured
