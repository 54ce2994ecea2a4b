#pragma once

#include "cli/property_settings.h"
#include "indexer/index_options.h"
#include "indexer/stable/numbering.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace corvelle::cli {

/// What `corvelle index` was asked to do. Paths and texts are as given; none means that the option was not.
struct IndexSettings {
    std::string project;
    std::string header;
    std::string config;
    std::optional<std::string> components; ///< words of componentWords; none: what the project's type presets
    std::string exclude;                   ///< words of exclusionWords
    std::optional<std::string> excludeList;
    std::optional<std::string> module;
    std::optional<std::string> moduleFile;
    bool replaceModule = false;
    bool autoload = false;
    std::optional<std::string> text;
    std::optional<std::string> defaultText;
    std::optional<std::string> report;
    std::optional<std::string> projectFile;
    bool overwrite = false; ///< whether outputs replace files that are none of ours

    bool isClassic = false; ///< numbers as the add-in gives them, anew in each run
    // The rest is for numbers that stay only.
    std::optional<std::string> names; ///< "sequence" or "readable"
    bool takesRenames = false;
    bool declinesRenames = false;
    bool restoresDeleted = false;
    bool designersToo = false; ///< whether forms and their like get entries of their own
    bool check = false;        ///< write nothing, list what the files do not say as the project does

    PropertySettings properties;          ///< what the designers' files get
    std::optional<std::string> helpFile;  ///< what the project's file is to call its help file
    std::optional<std::string> backupDir; ///< where files of the project go before they are replaced
    bool diff = false;                    ///< write nothing, print what would change in files of the project

    bool changesDesigners() const { return properties.properties != PropertyChoice::None; }
    bool writesFiles() const { return !check && !diff; }
};

/// A word of a list and the check box that it stands for.
struct OptionWord {
    std::string_view word;
    indexer::CheckValue indexer::IndexOptions::*box;
};

inline constexpr std::array<OptionWord, 6> componentWords{{
    {"forms", &indexer::IndexOptions::ChkFrm},
    {"mdi", &indexer::IndexOptions::ChkMDI},
    {"designers", &indexer::IndexOptions::ChkDsr},
    {"docs", &indexer::IndexOptions::ChkDOB},
    {"pages", &indexer::IndexOptions::ChkPG},
    {"controls", &indexer::IndexOptions::ChkActiveXCtl},
}};

inline constexpr std::array<OptionWord, 6> exclusionWords{{
    {"labels", &indexer::IndexOptions::ChkExclLbl},
    {"frames", &indexer::IndexOptions::ChKExcFrame},
    {"shapes", &indexer::IndexOptions::ChkExcShape},
    {"menus", &indexer::IndexOptions::ChkExcMenu},
    {"lines", &indexer::IndexOptions::ChkExcLine},
    {"toolbars", &indexer::IndexOptions::ChkExcToolbar},
}};

/// Checks the boxes that a comma-separated list of the words names; the first other word, if there is one. An
/// empty list names none.
std::optional<std::string> checkBoxes(std::string_view list, const std::array<OptionWord, 6>& words,
                                      indexer::IndexOptions& options);

/// How the settings want controls numbered.
indexer::stable::NumberingOptions numberingOptions(const IndexSettings& settings);

/// What is wrong with settings that contradict one another; empty if nothing is.
std::string wrongUsage(const IndexSettings& settings);

} // namespace corvelle::cli
