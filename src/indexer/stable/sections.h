#pragma once

#include "indexer/stable/numbering.h"
#include "indexer/stable/topics.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvelle::indexer::stable {

/// One kind of what a run has found, for the report and for --check.
struct Section {
    std::string title;
    std::vector<std::string> lines;
    bool isMismatch = true; ///< the index's files do not match the project
};

/// What the numbering has met, in sections; those without lines are left out.
std::vector<Section> sectionsOf(const Changes& changes);

/// What is to be said of the texts, the same.
std::vector<Section> sectionsOf(const TopicsOf& topics, const Numbering& numbering);

/// Designers whose controls no module can assign to.
std::vector<Section> sectionsOfModule(const std::vector<std::string>& notReached);

} // namespace corvelle::indexer::stable
