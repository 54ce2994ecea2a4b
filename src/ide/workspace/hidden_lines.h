#pragma once

#include "ide/workspace/declarations.h"
#include "ide/workspace/module_file.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace corvelle::workspace {

/// Finds the places of the hidden lines inside the code of a file whose code lines have been edited.
class HiddenLines {
  public:
    /// No line.
    static constexpr std::uint32_t none = 0xFFFFFFFF;

    struct Placed {
        std::uint32_t
            after; ///< the edited code's line that it follows; `none`: it stands before the first one
        std::string_view bytes; ///< the hidden line with its line end
    };

    /// `newPlaces`: where each code line of the file is among the edited lines, or `none` if it is gone.
    HiddenLines(const ModuleFile& file, const Declarations& edited, std::vector<std::uint32_t> newPlaces,
                std::uint32_t editedCount);

    /// The hidden lines that are kept, in the order in which they are written.
    std::vector<Placed> place() const;

  private:
    /// Where the line goes; false when its member no longer exists.
    bool findPlace(std::string_view member, std::uint32_t linesBefore, std::uint32_t& after) const;
    std::uint32_t placeByPosition(std::uint32_t linesBefore) const;

    const ModuleFile& file_;
    Declarations original_;
    const Declarations& edited_;
    std::vector<std::uint32_t> newPlaces_;
    std::vector<std::uint32_t> lastKept_; // the new place of the last code line, up to each, that is kept
    std::uint32_t editedCount_;
};

} // namespace corvelle::workspace
