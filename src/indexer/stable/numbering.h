#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
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
};

/// A designer and those of its controls that are in the index, in the order of its file.
struct NumberedDesigner {
    std::string name;
    std::filesystem::path path;
    std::vector<NumberedControl> controls;
};

using Numbering = std::vector<NumberedDesigner>; ///< in the order of the project

} // namespace corvelle::indexer::stable
