#pragma once

#include "base/text_lines.h"
#include "formatter/structured/blocks.h"
#include "formatter/structured/style.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace corvelle::formatter::structured {

/// Calls that belong together like a block's two ends, `WriteBlockStart x` and `WriteBlockEnd x`: where the
/// author has put what stands between them one unit deeper, it is one level deeper. How many such levels each
/// line has; empty if no line has any.
std::vector<std::uint32_t> pairedLevels(const base::TextLines& texts, const ModuleBlocks& blocks,
                                        const Style& style);

} // namespace corvelle::formatter::structured
