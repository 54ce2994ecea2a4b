#pragma once

#include "ide/workspace/module_file.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::workspace {

/// The properties that a designer's file may have for its help.
enum class HelpProperty { HelpContextID, WhatsThisButton, WhatsThisHelp, WhatsThisHelpID };

std::string_view nameOf(HelpProperty property);
/// The one of that name, letter case aside; none if there is none.
std::optional<HelpProperty> helpPropertyNamed(std::string_view name);

/// A help property that a designer's file is to have, or to lose.
struct HelpPropertyWish {
    std::string control;               ///< empty: the designer itself
    std::optional<std::int32_t> index; ///< in a control array
    HelpProperty property{};
    std::int32_t value = 0; ///< -1 of one that is on or off
    /// A number of ours that may stand there and is replaced.
    std::optional<std::int32_t> previous{};
    bool replacesAny = false; ///< whether any other number that stands there is replaced
};

/// What became of a wish.
enum class HelpPropertyFate {
    Done,      ///< written, or taken out
    Replaced,  ///< written in the place of another number
    Needless,  ///< the file is so already
    Differs,   ///< another number stands there, and stays
    Invisible, ///< another maker's control that is not seen at run time, so that its container gives it none
    Forbidden, ///< the form's border and buttons leave no room for the question mark of WhatsThisButton
    Missing,   ///< there is no such control
    Ambiguous, ///< several controls have that name and index, or the property stands there twice
};

struct HelpPropertyOutcome {
    HelpPropertyFate fate{};
    std::uint32_t line =
        0;             ///< where the control begins, or the property stands; 1-based, 0 for a Missing one
    std::string found; ///< of Differs and Replaced: the value that stood there
};

/// A designer's file with other properties, and what became of each wish.
struct ChangedDesigner {
    std::string bytes;
    std::vector<HelpPropertyOutcome> outcomes;
};

/// The file with these properties where the IDE would write them: in alphabetical order, letter case aside,
/// among the block's own, or among those that another maker's control has from its container. Every other
/// byte is kept. Whether a built-in class has the property is for the caller to know. A number other than 0
/// that stands there stays, unless it is to be replaced. The result has been read back: it is the same
/// designer with these properties. Throws StrangeDesigner.
ChangedDesigner withHelpProperties(const ModuleFile& file, const std::vector<HelpPropertyWish>& wishes);

/// The file without these properties, as far as they stand there with these values. Read back as well.
/// Throws StrangeDesigner.
ChangedDesigner withoutHelpProperties(const ModuleFile& file, const std::vector<HelpPropertyWish>& wishes);

} // namespace corvelle::workspace
