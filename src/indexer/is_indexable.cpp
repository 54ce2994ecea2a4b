#include "indexer/is_indexable.h"

#include "base/text.h"

#include <array>

namespace corvelle::indexer {

namespace {

struct Exclusion {
    std::string_view className;
    CheckValue IndexOptions::*box;
};

constexpr std::array exclusions{
    Exclusion{"LABEL", &IndexOptions::ChkExclLbl},  Exclusion{"FRAME", &IndexOptions::ChKExcFrame},
    Exclusion{"SHAPE", &IndexOptions::ChkExcShape}, Exclusion{"LINE", &IndexOptions::ChkExcLine},
    Exclusion{"MENU", &IndexOptions::ChkExcMenu},   Exclusion{"TOOLBAR", &IndexOptions::ChkExcToolbar},
};

} // namespace

bool isIndexable(std::string_view className, const ExcludeList& list, const IndexOptions& options) {
    const auto name = base::upper(className);
    if (isInList(name, list)) return false;
    for (const auto& exclusion : exclusions) {
        if (name == exclusion.className) return options.*exclusion.box == 0;
    }
    return true;
}

} // namespace corvelle::indexer
