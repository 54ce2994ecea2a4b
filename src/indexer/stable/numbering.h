#pragma once

#include "indexer/stable/earlier_index.h"
#include "indexer/stable/help_names.h"
#include "indexer/stable/memory.h"
#include "indexer/stable/project_controls.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// Which control has which help name and number.
namespace corvelle::indexer::stable {

/// A control of an index.
struct NumberedControl {
    std::string control; ///< empty: the designer itself
    std::optional<std::int32_t> index{};
    std::string library, className; ///< "VB", "CommandButton"
    std::string container;          ///< "fraTop", of an array "fraTop(2)"; empty: the designer
    std::string idhName;            ///< of a control that shows the default topic the default one
    std::int32_t number = 0;        ///< the default topic's there
    bool hasWidth = true;           ///< one that is not seen at run time has none in its file
};

/// A designer and those of its controls that are in the index, in the order of its file.
struct NumberedDesigner {
    std::string name;
    std::filesystem::path path;
    ide::ComponentType type{};
    std::vector<NumberedControl> controls;
};

using Numbering = std::vector<NumberedDesigner>; ///< in the order of the project

/// What becomes of controls that may have been renamed.
enum class RenamesAre { Offered, Taken, Declined };

struct NumberingOptions {
    NameKind names = NameKind::Sequence;
    RenamesAre renames = RenamesAre::Offered;
    bool restoresDeleted = false; ///< whether controls that the author has deleted come back
};

/// Where something stands, for people: a designer's file, its line (0: none) and the control.
struct PlaceInProject {
    std::filesystem::path path; ///< empty: the designer is not in the project any more
    std::uint32_t line = 0;
    ControlPlace control;
    std::string className;
};

/// What an index says of one control.
struct Finding {
    PlaceInProject place;
    std::string idhName;
    std::int32_t number = 0;
};

/// What the numbering has met.
struct Changes {
    struct Renamed {
        ControlPlace before;
        Finding now; ///< with the name and the number that it has now
        std::string idhNameBefore;
        std::int32_t numberBefore = 0;
    };
    struct Different {
        Finding index;
        std::string property;
        std::int32_t value = 0; ///< the file's
    };
    struct Shared {
        std::int32_t number = 0;
        std::vector<Finding> findings;
    };

    std::vector<Finding> added, gone, restored;
    std::size_t allAreNew = 0;    ///< of a first index its number of controls; they are not listed then
    std::vector<Renamed> renamed; ///< taken
    std::vector<Renamed> offered; ///< not settled yet
    std::vector<Shared> shared;
    std::vector<Different> different;
};

/// A numbered project: what its index is to hold, and what it is to remember.
struct NumberedProject {
    Numbering numbering;
    Memory memory; ///< what was written into the designers stays as it was, under the controls' names of now
    Changes changes;
    std::string fault{}; ///< why it cannot be numbered; empty: it could
};

/// Gives every control of the project that the options take a name and a number. One that is still there
/// keeps both; a new one gets a new name, and the number that its file gives it, or else one above all that
/// were ever given. What went leaves its name and number unused.
NumberedProject numberProject(const FoundProject& project, const EarlierIndex& earlier,
                              const NumberingOptions& options);

} // namespace corvelle::indexer::stable
