#include "formatter/structured/structured.h"

#include "formatter/structured/layout.h"
#include "formatter/structured/removal.h"

#include <algorithm>
#include <utility>

namespace corvelle::formatter::structured {

StructuredResult formatStructured(const base::TextLines& lines, const StructuredOptions& options) {
    ModuleBlocks blocks = readBlocks(lines);
    StructuredResult result;
    result.style = decideStyle(lines, blocks, options.style);
    if (options.force) {
        for (LineInfo& line : blocks.lines) line.held = false;
    }
    result.lines = removeParts(lines, blocks.lines, options);
    layOut(lines, blocks, result.style, options.removeTrailingComments, result.lines, result.notices);
    result.faults = std::move(blocks.faults);
    std::stable_sort(result.faults.begin(), result.faults.end(),
                     [](const Fault& a, const Fault& b) { return a.line < b.line; });
    return result;
}

} // namespace corvelle::formatter::structured
