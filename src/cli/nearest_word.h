#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvelle::cli {

/// The word that was most likely meant: the first of those with the fewest letters to change, add, leave out
/// or exchange with their neighbours. Empty if that is more than a third of the longer one's letters.
std::string nearestWord(std::string_view typed, const std::vector<std::string>& words);

} // namespace corvelle::cli
