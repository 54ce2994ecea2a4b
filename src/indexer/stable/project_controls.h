#pragma once

#include "ide/component_type.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What a project has now: its designers and their controls, as their files say.
namespace corvelle::indexer::stable {

/// A control; the views are into what the designer was read from.
struct FoundControl {
    std::string_view name; ///< of the designer itself empty
    std::string_view library, className;
    std::optional<std::int32_t> index{};
    std::string container; ///< "fraTop", of an array "fraTop(2)"; empty: the designer itself
    std::int32_t helpContextID = 0, whatsThisHelpID = 0; ///< 0: the file gives none
    std::uint32_t line = 0;                              ///< of the file, from 1
    bool hasWidth = true;                                ///< one that is not seen at run time has none
    bool isChosen = true;                                ///< the options take it into the index

    /// The number that the file gives it for help; 0: none.
    std::int32_t givenNumber() const {
        if (helpContextID > 0) return helpContextID;
        return whatsThisHelpID > 0 ? whatsThisHelpID : 0;
    }
};

struct FoundDesigner {
    std::string name;
    std::filesystem::path path;
    ide::ComponentType type;
    bool isChosen = true;               ///< the options take it into the index
    std::vector<FoundControl> controls; ///< in the order of the file, the designer's own entry first
};

using FoundProject = std::vector<FoundDesigner>; ///< in the order of the project

} // namespace corvelle::indexer::stable
