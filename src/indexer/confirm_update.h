#pragma once

#include "indexer/message.h"

#include <string_view>
#include <vector>

namespace corvelle::indexer {

/// Asks whether the files may be updated: the heading, the paths in order and the question, a line each.
/// Whether the answer is Yes.
bool ConfirmUpdate(std::string_view heading, const std::vector<std::string_view>& paths,
                   const MsgBox& msgBox);

} // namespace corvelle::indexer
