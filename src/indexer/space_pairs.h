#pragma once

#include <string>
#include <string_view>

namespace corvelle::indexer {

/// The text with every pair of spaces made one space, in one pass from left to right: three spaces in a row
/// become two.
std::string withSpacePairsJoined(std::string_view text);

} // namespace corvelle::indexer
