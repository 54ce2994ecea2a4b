#pragma once

#include "formatter/structured/statements.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

// The statements of a module read once more, in the plainest way: all tokens of a logical line first, then
// parted, then known by their first words. It shares nothing with the structured layout's reader but the
// names of the results and the list of reserved words.
namespace plain {

namespace structured = corvelle::formatter::structured;

struct LogicalLine {
    std::uint32_t begin, end; ///< its physical lines
    bool labelled = false;    ///< begins with a label or a line number
    bool directive = false;
    std::vector<structured::Statement> statements;
};

/// The logical lines; none where the text is none that two readers need agree about: a literal or a name in
/// brackets is left open, a lone CR stands in it, or what may be a date.
std::optional<std::vector<LogicalLine>> read(const std::vector<std::string_view>& lines);

/// Follows which block is open as far as members of a Type or an Enum need it.
class Members {
  public:
    bool inside() const { return inside_; }
    void take(const structured::Statement& statement);

  private:
    bool inside_ = false;
};

} // namespace plain
