#pragma once

#include <ctime>
#include <string>

namespace corvelle::indexer {

/// "11/21/2026 2:43:10 AM"; at midnight the date alone.
std::string generalDate(const std::tm& time);

/// The current local time so written.
std::string currentDateAndTime();

} // namespace corvelle::indexer
