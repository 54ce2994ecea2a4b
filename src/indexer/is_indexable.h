#pragma once

#include "indexer/exclude_list.h"
#include "indexer/index_options.h"

#include <string_view>

namespace corvelle::indexer {

/// Whether controls of the class get help IDs: not those on the list, nor those of a class whose box is not
/// unchecked.
bool isIndexable(std::string_view className, const ExcludeList& list, const IndexOptions& options);

} // namespace corvelle::indexer
