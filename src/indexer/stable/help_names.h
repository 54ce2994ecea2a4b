#pragma once

#include "indexer/stable/memory.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace corvelle::indexer::stable {

/// How new help names are made.
enum class NameKind {
    Sequence, ///< IDH_AAAB, IDH_AAAC, ...
    Readable, ///< IDH_frmOrder_cboSupplier
};

/// Whether it is a name as the sequence has them.
bool isNameInSequence(std::string_view name);

/// Makes new help names. None was given before, whatever the letter case.
class HelpNames {
  public:
    HelpNames(const Memory& earlier, NameKind kind);

    /// The next name, for that control. Nothing when the sequence has ended.
    std::optional<std::string> next(const ControlPlace& place);

  private:
    std::optional<std::string> nextOfSequence();
    std::string readable(const ControlPlace& place);

    NameKind kind_;
    std::uint32_t last_ = 0;                // place in the sequence of the last name given
    std::unordered_set<std::string> taken_; // in upper case
};

} // namespace corvelle::indexer::stable
