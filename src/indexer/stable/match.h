#pragma once

#include "indexer/stable/earlier_index.h"
#include "indexer/stable/memory.h"
#include "indexer/stable/project_controls.h"

#include <cstddef>
#include <vector>

namespace corvelle::indexer::stable {

/// Nobody's number.
inline constexpr std::size_t nothing = static_cast<std::size_t>(-1);

/// A found control, by its designer's number and its own.
struct FoundAt {
    std::size_t designer = nothing, control = nothing;
};

/// Which remembered control each found one is.
struct Matches {
    std::vector<std::vector<std::size_t>> remembered; ///< by designer and control; nothing: it is new
    std::vector<bool> isThere;                        ///< of the remembered ones; false: it went
};

/// Finds the controls of an earlier index again: by designer, name and array index, letter case aside; where
/// no index is known the k-th of a name is the k-th.
Matches match(const FoundProject& project, const std::vector<RememberedControl>& earlier, bool knowsIndices);

/// A control that went, and one that came in its place.
struct Rename {
    std::size_t remembered = nothing;
    FoundAt found;
};

/// Which of the new controls that the options take may be some that went, only renamed. Where the file gives
/// the new one the number of the one that went, of its class, it is that one. Else they are of one designer,
/// class and container, and stand between the same controls that are still there, as many new ones as went.
/// A designer that came may be one that went, if most of its controls are there. Without containers, as where
/// there was no memory, they are all one.
std::vector<Rename> findRenames(const FoundProject& project, const std::vector<RememberedControl>& earlier,
                                const Matches& matches, bool knowsContainers);

/// Whether the index is another project's: none of its designers is in this one, under whatever name.
bool isOfAnotherProject(const FoundProject& project, const EarlierIndex& earlier);

} // namespace corvelle::indexer::stable
