#pragma once

#include "indexer/stable/memory.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvelle::indexer::stable {

/// What an earlier run, or somebody else's on the same files, has left in the header and the configuration
/// file.
struct EarlierIndex {
    Memory memory;
    /// False: there was no memory, so that nobody knows the controls' indices: the k-th line of a name is of
    /// its k-th control.
    bool knowsIndices = true;
};

/// Reads both files, empty where there are none. What the configuration file says of a control holds: one
/// that it does not have is deleted, one with the default topic's name is on the default.
struct ReadEarlier {
    EarlierIndex index{};
    std::string fault{}; ///< why they cannot be used; empty: they can
};
ReadEarlier readEarlierIndex(std::string_view header, std::string_view configuration);

} // namespace corvelle::indexer::stable
